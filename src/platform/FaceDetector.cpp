#include "platform/FaceDetector.h"

#include "platform/FaceFinder.h"
#include "platform/RunTimeModules.h"

#include <QLibrary>

#include <chrono>
#include <future>
#include <mutex>

namespace zeph {

namespace {

// The first picture takes longer than those that follow, so there is one already.
std::unique_ptr<FaceFinder> loadFaceFinder(const QString &path)
{
    QLibrary module(path);
    const auto create = reinterpret_cast<CreateFaceFinder *>(module.resolve(createFaceFinderName));
    std::unique_ptr<FaceFinder> finder(create ? create() : nullptr);
    if (!finder) {
        const QString reason =
            create ? QStringLiteral("its model cannot be read") : module.errorString();
        static std::once_flag said;
        std::call_once(said, [&] { qWarning("No faces are found: %s", qPrintable(reason)); });
        return nullptr;
    }
    QImage black(FaceDetector::pictureSize, QImage::Format_RGB32);
    black.fill(Qt::black);
    finder->faces(black);
    return finder;
}

class ModuleFaceDetector final : public FaceDetector {
public:
    ModuleFaceDetector()
        : m_loading(std::async(std::launch::async, loadFaceFinder,
            runTimeModulesFolder() + QStringLiteral("/zeph-face-finder.so")))
    {
    }

    bool isReady() override
    {
        if (m_loading.valid()
            && m_loading.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
            m_finder = m_loading.get();
        return !m_loading.valid();
    }

    QList<QRectF> faces(const QImage &picture) override
    {
        return isReady() && m_finder ? m_finder->faces(picture) : QList<QRectF>();
    }

private:
    std::future<std::unique_ptr<FaceFinder>> m_loading;
    std::unique_ptr<FaceFinder> m_finder;
};

} // namespace

// Not for the life of the process: libraries that are loaded late are torn down before objects that
// were made early.
std::shared_ptr<FaceDetector> FaceDetector::shared()
{
    static std::weak_ptr<FaceDetector> shared;
    std::shared_ptr<FaceDetector> detector = shared.lock();
    if (!detector) {
        detector = std::make_shared<ModuleFaceDetector>();
        shared = detector;
    }
    return detector;
}

} // namespace zeph
