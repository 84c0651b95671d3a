// The module that finds faces. A library of its own, because OpenCV takes long to load and most of
// the time nobody needs it.
#include "platform/FaceFinder.h"

#include <opencv2/core/ocl.hpp>
#include <opencv2/dnn.hpp>
#include <opencv2/imgproc.hpp>

#include <QResource>

#include <algorithm>
#include <vector>

namespace zeph {

namespace {

const cv::Size modelInput(320, 240);
constexpr float lowestScore = 0.7F;
constexpr float largestOverlap = 0.3F; ///< Of two boxes that are two faces.

cv::dnn::Net readModel()
{
    const QResource model(QStringLiteral(":/faces/fr_detect.onnx"));
    return cv::dnn::readNetFromONNX(
        reinterpret_cast<const char *>(model.data()), static_cast<size_t>(model.size()));
}

// Averaging over all pixels of a large picture costs more than finding the faces does.
cv::Mat reduced(const cv::Mat &picture)
{
    const cv::Size halfway = modelInput * 2;
    cv::Mat small = picture;
    if (small.cols > halfway.width || small.rows > halfway.height)
        cv::resize(small, small, halfway, 0, 0, cv::INTER_LINEAR);
    if (small.size() != modelInput)
        cv::resize(small, small, modelInput, 0, 0, cv::INTER_AREA);
    return small;
}

QRectF limitedToThePicture(const cv::Rect2d &box)
{
    const cv::Rect2d inside = box & cv::Rect2d(0, 0, 1, 1);
    return { inside.x, inside.y, inside.width, inside.height };
}

class OpenCVFaceFinder final : public FaceFinder {
public:
    OpenCVFaceFinder() : m_net(readModel())
    {
        m_net.setPreferableBackend(cv::dnn::DNN_BACKEND_OPENCV);
        m_net.setPreferableTarget(cv::dnn::DNN_TARGET_CPU);
    }

    QList<QRectF> faces(const QImage &picture) override
    {
        try {
            return detect(picture);
        } catch (const cv::Exception &) {
            return {};
        }
    }

private:
    QList<QRectF> detect(const QImage &picture)
    {
        // OpenCV has no type for memory that is only read.
        const cv::Mat pixels(picture.height(), picture.width(), CV_8UC4,
            const_cast<uchar *>(picture.constBits()), static_cast<size_t>(picture.bytesPerLine()));
        cv::Mat rgb;
        cv::cvtColor(reduced(pixels), rgb, cv::COLOR_BGRA2RGB);
        m_net.setInput(cv::dnn::blobFromImage(rgb, 1 / 128.0, {}, { 127, 127, 127 }));
        std::vector<cv::Mat> outputs;
        m_net.forward(outputs, std::vector<cv::String> { "scores", "boxes" });
        return chosen(outputs[0], outputs[1]);
    }

    // Each of some thousand places in the picture has a score for no face and one for a face, and
    // the corners of a box.
    static QList<QRectF> chosen(const cv::Mat &scores, const cv::Mat &boxes)
    {
        std::vector<cv::Rect2d> candidates;
        std::vector<float> candidateScores;
        const auto *score = scores.ptr<float>();
        const auto *corners = boxes.ptr<float>();
        for (int place = 0; place < scores.size[1]; ++place, score += 2, corners += 4) {
            if (score[1] > lowestScore) {
                candidates.emplace_back(
                    cv::Point2d(corners[0], corners[1]), cv::Point2d(corners[2], corners[3]));
                candidateScores.push_back(score[1]);
            }
        }
        std::vector<int> kept;
        cv::dnn::NMSBoxes(candidates, candidateScores, lowestScore, largestOverlap, kept);
        QList<QRectF> faces;
        for (int candidate : kept) {
            const QRectF face = limitedToThePicture(candidates[static_cast<size_t>(candidate)]);
            if (!face.isEmpty())
                faces << face;
        }
        return faces;
    }

    cv::dnn::Net m_net;
};

} // namespace

} // namespace zeph

extern "C" Q_DECL_EXPORT zeph::FaceFinder *zephCreateFaceFinder()
{
    cv::ocl::setUseOpenCL(false);
    try {
        return new zeph::OpenCVFaceFinder;
    } catch (const cv::Exception &) {
        return nullptr;
    }
}
