// In a real window the column follows the largest face that the picture shows.
#include "CalculatedNumbers.h"
#include "Canvases.h"
#include "support/FrameCount.h"
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/FaceDetector.h"
#include "platform/MediaItemVideoOutput.h"
#include "platform/VideoLayer.h"
#include "surface/SmartReframe.h"

#include <QSignalSpy>
#include <QTimer>

#include <functional>

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

constexpr QSize size(1000, 500);

/// Finds what it is told to, and counts how often it is asked.
class Detector final : public FaceDetector {
public:
    using Find = std::function<QList<QRectF>(const QImage &)>;

    explicit Detector(Find find) : m_find(std::move(find)) { }

    bool isReady() override { return ready; }
    QList<QRectF> faces(const QImage &picture) override
    {
        ++calls;
        return m_find(picture);
    }

    bool ready = true;
    int calls = 0;

private:
    const Find m_find;
};

std::shared_ptr<Detector> finding(const QList<QRectF> &faces)
{
    return std::make_shared<Detector>([faces](const QImage &) { return faces; });
}

QRectF faceAround(double middle)
{
    return { middle - 0.05, 0.4, 0.1, 0.2 };
}

/// Shows a clip in the smart mode, whose detector is not ready until told so.
std::shared_ptr<Detector> detectorInPreparation(VideoWindow &video)
{
    const auto detector = finding({ faceAround(0.25) });
    detector->ready = false;
    video.hostingView().setFaceDetector(detector);
    video.open(QStringLiteral("grid.mkv"));
    video.view().setDisplayMode(Mode::Smart);
    return detector;
}

/// From where to where a row of a picture is not green. In the clips with faces that is the large
/// photograph.
struct Extent {
    int left;
    int right;
};

Extent photographIn(const QImage &picture, int row)
{
    const auto isGreen = [&](int x) {
        const QColor colour = picture.pixelColor(x, row);
        return colour.red() < 60 && colour.blue() < 60 && colour.green() > 130;
    };
    Extent extent { 0, picture.width() };
    while (extent.left < extent.right && isGreen(extent.left))
        ++extent.left;
    while (extent.right > extent.left && isGreen(extent.right - 1))
        --extent.right;
    return extent;
}

double middleOfThePhotograph(const QImage &picture)
{
    const Extent photograph = photographIn(picture, picture.height() * 500 / 720);
    return (photograph.left + photograph.right) / 2.0 / picture.width();
}

/// One step, as it was taken.
struct Step {
    double pan; ///< Before.
    QList<QRectF> faces;
    double truth; ///< The middle of the large face.
};

/// Looks with the program's own detector, and keeps a record.
struct Recorder {
    explicit Recorder(const PlayerHostingView &view)
        : detector(std::make_shared<Detector>([&view, this](const QImage &picture) {
            steps.append(
                { view.horizontalPan(), shared->faces(picture), middleOfThePhotograph(picture) });
            return steps.last().faces;
        }))
    {
    }

    bool isReady() const { return shared->isReady(); }

    const std::shared_ptr<FaceDetector> shared = FaceDetector::shared();
    QList<Step> steps;
    const std::shared_ptr<Detector> detector;
};

} // namespace

class SmartModeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void stepsTowardsAFace();
    void firstOfEqualFaces();
    void facesPartlyOutside_data();
    void facesPartlyOutside();
    void decayWithoutFaces();
    void portraitPictureStaysWhereItIs();
    void leavingKeepsThePan();
    void leavingKeepsThePictureNew();
    void pausedPictureIsLookedAtOnce();
    void nothingToLookAt();
    void picturesWaitForTheDetector();
    void windowGoesWhileACopyIsMade();

    void followsOneFace_data() { canvases(); }
    void followsOneFace();
    void followsTheLargestFace_data() { canvases(); }
    void followsTheLargestFace();
    void oddPictures_data();
    void oddPictures();

private:
    static void letTimerFire(const PlayerHostingView &view, int times);
    static void fireTimer(const PlayerHostingView &view);
    static void followsTheLargePhotograph(const QString &clip, int faces, double place);
};

void SmartModeTest::init()
{
    qunsetenv("ZEPH_VIDEO_CANVAS");
}

void SmartModeTest::letTimerFire(const PlayerHostingView &view, int times)
{
    QSignalSpy fired(&view.smartTimer(), &QTimer::timeout);
    QTRY_VERIFY(fired.count() >= times);
}

void SmartModeTest::fireTimer(const PlayerHostingView &view)
{
    QVERIFY(QMetaObject::invokeMethod(const_cast<QTimer *>(&view.smartTimer()), "timeout"));
}

void SmartModeTest::stepsTowardsAFace()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    QList<double> pans;
    view.setFaceDetector(std::make_shared<Detector>([&](const QImage &picture) {
        pans << view.horizontalPan();
        return picture.size() == FaceDetector::pictureSize ? QList { faceAround(0.25) }
                                                           : QList<QRectF>();
    }));
    video.open(QStringLiteral("grid.mkv"));
    video.player().play();
    video.view().setDisplayMode(Mode::Smart);
    QTRY_VERIFY(pans.count() >= 4);
    const double expected[] = { 0, 0.175, 0.28875, 0.3626875 };
    for (int i = 0; i < 4; ++i)
        QVERIFY(isSame(pans[i], expected[i]));
    // The layers follow within the step.
    const double pan = view.horizontalPan();
    const double overflow = 500.0 * 16 / 9 - 281.25;
    const double width = 500.0 * 16 / 9;
    QVERIFY(isSame(view.playerLayer().x(),
        pan * overflow / 2 - overflow / 2 - width * 0.12999999999999989 / 2));
}

void SmartModeTest::firstOfEqualFaces()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const QRectF small(0.4, 0.4, 0.1, 0.1);
    const auto detector =
        finding({ small, QRectF(0.5, 0.5, 0.25, 0.25), QRectF(0, 0, 0.25, 0.25) });
    view.setFaceDetector(detector);
    video.open(QStringLiteral("grid.mkv"));
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(detector->calls, 1);
    QVERIFY(isSame(view.horizontalPan(), -0.25 * 0.35));
}

void SmartModeTest::facesPartlyOutside_data()
{
    QTest::addColumn<double>("middle");
    QTest::addColumn<double>("pan");
    QTest::newRow("on the left") << -0.02 << 0.35;
    QTest::newRow("on the right") << 1.02 << -0.35;
}

void SmartModeTest::facesPartlyOutside()
{
    QFETCH(double, middle);
    QFETCH(double, pan);
    VideoWindow video(size);
    const auto detector = finding({ faceAround(middle) });
    video.hostingView().setFaceDetector(detector);
    video.open(QStringLiteral("grid.mkv"));
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(detector->calls, 1);
    QVERIFY(isSame(video.hostingView().horizontalPan(), pan));
}

// With the program's own detector, on a picture without faces.
void SmartModeTest::decayWithoutFaces()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    Recorder recorder(view);
    QTRY_VERIFY(recorder.isReady());
    view.setFaceDetector(recorder.detector);
    video.open(QStringLiteral("grid.mkv"));
    video.player().play();
    video.view().setDisplayMode(Mode::Manual);
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, { 500, 250 });
    QTest::mouseMove(&video.window(), { 850, 250 });
    QTest::mouseRelease(&video.window(), Qt::LeftButton, {}, { 850, 250 });
    video.view().setDisplayMode(Mode::Smart);
    QTRY_VERIFY(recorder.steps.count() >= 4);
    const double expected[] = { 1, 0.65, 0.4225, 0.274625 };
    for (int i = 0; i < 4; ++i) {
        QVERIFY(recorder.steps[i].faces.isEmpty());
        QVERIFY(isSame(recorder.steps[i].pan, expected[i]));
    }
}

void SmartModeTest::portraitPictureStaysWhereItIs()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = finding({ faceAround(0.25) });
    detector->ready = false;
    view.setFaceDetector(detector);
    video.open(QStringLiteral("grid-tall.mkv"));
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(540, 1200));
    const QPointF position = view.playerLayer().position();
    detector->ready = true;
    QTRY_COMPARE(detector->calls, 1);
    QVERIFY(isSame(view.horizontalPan(), 0.175));
    QCOMPARE(view.playerLayer().position(), position);
}

void SmartModeTest::leavingKeepsThePan()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = finding({ faceAround(0.25) });
    view.setFaceDetector(detector);
    video.open(QStringLiteral("grid.mkv"));
    video.player().play();
    video.view().setDisplayMode(Mode::Smart);
    QTRY_VERIFY(detector->calls >= 1);
    const double pan = view.horizontalPan();
    const int calls = detector->calls;
    video.view().setDisplayMode(Mode::Manual);
    QCOMPARE(view.horizontalPan(), pan);
    // Nobody looks at what is shown from now on.
    QTRY_VERIFY(video.player().currentTime() > 2);
    QCOMPARE(detector->calls, calls);
    QCOMPARE(view.horizontalPan(), pan);
    // Back again it goes on from there.
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(detector->calls, calls + 1);
    QVERIFY(isSame(view.horizontalPan(), pan + (0.5 - pan) * 0.35));
}

// A picture that was asked for but not looked at is looked at when the mode is chosen again.
void SmartModeTest::leavingKeepsThePictureNew()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = detectorInPreparation(video);
    QTRY_VERIFY(view.videoOutput()->hasNewPixelBuffer());
    detector->ready = true;
    fireTimer(view);
    video.view().setDisplayMode(Mode::Manual);

    const FrameCount drawn(video.window());
    for (int i = 1; i <= 3; ++i) {
        video.window().update();
        QTRY_VERIFY(drawn.value() >= i);
    }
    QVERIFY(view.videoOutput()->hasNewPixelBuffer());
    QCOMPARE(detector->calls, 0);
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(detector->calls, 1);
}

void SmartModeTest::pausedPictureIsLookedAtOnce()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = finding({ faceAround(0.25) });
    view.setFaceDetector(detector);
    video.open(QStringLiteral("numbered-25.mp4"));
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(detector->calls, 1);
    QVERIFY(isSame(view.horizontalPan(), 0.175));
    letTimerFire(view, 3);
    // Drawing it elsewhere or in another size does not make it new.
    video.resize({ 800, 600 });
    letTimerFire(view, 3);
    QCOMPARE(detector->calls, 1);
    QVERIFY(isSame(view.horizontalPan(), 0.175));

    video.player().seek(3);
    QTRY_COMPARE(detector->calls, 2);
    letTimerFire(view, 3);
    QCOMPARE(detector->calls, 2);
    QVERIFY(isSame(view.horizontalPan(), 0.28875));
}

void SmartModeTest::nothingToLookAt()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = finding({ faceAround(0.25) });
    view.setFaceDetector(detector);
    video.view().setDisplayMode(Mode::Smart);
    letTimerFire(view, 2);
    video.open(QStringLiteral("clip.mp3"));
    video.player().play();
    QTRY_VERIFY(video.isOpen());
    letTimerFire(view, 2);
    video.player().replaceCurrentItem(nullptr);
    letTimerFire(view, 2);
    video.view().setPlayer(nullptr);
    letTimerFire(view, 2);
    QCOMPARE(detector->calls, 0);
    QCOMPARE(view.horizontalPan(), 0.0);
}

void SmartModeTest::picturesWaitForTheDetector()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    const auto detector = detectorInPreparation(video);
    QTRY_VERIFY(view.videoOutput()->hasNewPixelBuffer());
    letTimerFire(view, 2);
    QCOMPARE(detector->calls, 0);
    QVERIFY(view.videoOutput()->hasNewPixelBuffer());
    detector->ready = true;
    QTRY_COMPARE(detector->calls, 1);
    QVERIFY(!view.videoOutput()->hasNewPixelBuffer());
}

void SmartModeTest::windowGoesWhileACopyIsMade()
{
    for (int i = 0; i < 5; ++i) {
        const auto detector = finding({});
        VideoWindow video(size);
        video.hostingView().setFaceDetector(detector);
        video.open(QStringLiteral("grid.mkv"));
        video.player().play();
        video.view().setDisplayMode(Mode::Smart);
        QTRY_VERIFY(video.hostingView().videoOutput()->hasNewPixelBuffer());
        // The timer is slow; what it does is asked for at once, and not waited for.
        fireTimer(video.hostingView());
        QCOMPARE(detector->calls, 0);
    }
}

// Where the face stands at the end the column is to show it.
void SmartModeTest::followsTheLargePhotograph(const QString &clip, int faces, double place)
{
    useCanvas();
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    Recorder recorder(view);
    QTRY_VERIFY(recorder.isReady());
    view.setFaceDetector(recorder.detector);
    video.open(clip);
    // Before its shape is known the picture is drawn in the column's.
    QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(1280, 720));
    video.view().setDisplayMode(Mode::Smart);
    video.player().play();
    const double target = (0.5 - place) * 2;
    QTRY_VERIFY(std::abs(view.horizontalPan() - target) < 0.05);
    QTRY_VERIFY(
        std::abs(recorder.steps.last().truth - place) < 0.01 && video.player().currentTime() > 6);

    const QList<Step> &steps = recorder.steps;
    QVERIFY(steps.count() >= 8);
    for (int i = 0; i < steps.count(); ++i) {
        QVERIFY(!steps[i].faces.isEmpty());
        const double middle = largestFace(steps[i].faces)->center().x();
        QVERIFY2(std::abs(middle - steps[i].truth) < 0.02, qPrintable(QString::number(i)));
        const double after = i + 1 < steps.count() ? steps[i + 1].pan : view.horizontalPan();
        QVERIFY(isSame(after, easedPan(steps[i].pan, (0.5 - middle) * 2)));
    }
    QCOMPARE(steps.last().faces.count(), faces);
    // It has moved across the picture in between.
    QVERIFY(std::abs(steps.first().truth - steps.last().truth) > 0.4);

    // The screen shows that edge of the photograph which is nearer to the picture's middle.
    video.player().pause();
    letTimerFire(view, 2);
    const double width = 500.0 * 16 / 9;
    const double edge = place > 0.5 ? place * 1280 - 150 : place * 1280 + 150;
    const double expected = (edge / 1280 - 0.5) * width * 1.13
        + view.horizontalPan() * (width - 281.25) / 2 + 281.25 / 2;
    const auto edgeOnTheScreen = [&] {
        const int row = int(250 + (500 - 360) / 720.0 * 500 * 1.13);
        const Extent photograph = photographIn(video.screen().copy(360, 0, 280, 500), row);
        return place > 0.5 ? photograph.left : photograph.right;
    };
    QTRY_VERIFY(std::abs(edgeOnTheScreen() - expected) < 3);
}

void SmartModeTest::followsOneFace()
{
    followsTheLargePhotograph(QStringLiteral("face.mkv"), 1, (1280 - 150) / 1280.0);
}

void SmartModeTest::followsTheLargestFace()
{
    followsTheLargePhotograph(QStringLiteral("faces.mkv"), 2, 150 / 1280.0);
}

void SmartModeTest::oddPictures_data()
{
    canvasesAndClips({ QStringLiteral("grid-2160p.mkv"), QStringLiteral("grid-wide-pixels.mkv"),
        QStringLiteral("grid-rotated.mp4"), QStringLiteral("grid-1x1.mkv"),
        QStringLiteral("grid-3x4000.mkv"), QStringLiteral("grid-4000x3.mkv") });
}

void SmartModeTest::oddPictures()
{
    useCanvas();
    QFETCH(QString, clip);
    VideoWindow video({ 600, 400 });
    Recorder recorder(video.hostingView());
    QTRY_VERIFY(recorder.isReady());
    video.hostingView().setFaceDetector(recorder.detector);
    video.open(clip);
    video.view().setDisplayMode(Mode::Smart);
    QTRY_COMPARE(recorder.steps.count(), 1);
    QVERIFY(recorder.steps.first().faces.isEmpty());
    QCOMPARE(video.hostingView().horizontalPan(), 0.0);
}

int main(int argc, char *argv[])
{
    SmartModeTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_smart_mode.moc"
