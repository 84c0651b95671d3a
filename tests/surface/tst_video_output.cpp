// Small copies of the pictures that are shown: which, when, and what is in them.
#include "Canvases.h"
#include "support/FrameCount.h"
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/MediaItemVideoOutput.h"
#include "platform/VideoTap.h"

using namespace zeph;

namespace {

constexpr int tolerance = 12;

QList<QColor> quarters(const QImage &image)
{
    QList<QColor> colours;
    for (double y : { 0.25, 0.75 }) {
        for (double x : { 0.25, 0.75 })
            colours << image.pixelColor(int(x * image.width()), int(y * image.height()));
    }
    return colours;
}

// A picture of a numbered clip in a copy of one column a stripe.
constexpr QSize stripes(10, 1);

int numberIn(const QImage &image)
{
    int number = 0;
    for (int bit = 0; bit < stripes.width(); ++bit)
        number |= int(image.pixelColor(bit, 0).lightness() >= 128) << bit;
    return number;
}

/// Looks at what the window plays, in place of its own view.
struct Output {
    Output(VideoWindow &video, QSize size) : tap(size)
    {
        video.player().currentItem()->setVideoOutput(&tap);
    }

    void ask()
    {
        tap.copyPixelBuffer([this](const QImage &copy) { copies << copy; });
    }

    MediaItemVideoOutput tap;
    QList<QImage> copies;
};

} // namespace

class VideoOutputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isUprightInKnownColours_data() { canvases(); }
    void isUprightInKnownColours();
    void isTurnedAsItIsSeen_data() { canvases(); }
    void isTurnedAsItIsSeen();
    void isOfTheWantedSize_data();
    void isOfTheWantedSize();
    void noPictureTwice_data() { canvases(); }
    void noPictureTwice();
    void isTheNewestWhilePlaying_data() { canvases(); }
    void isTheNewestWhilePlaying();
    void lastReceiverCounts();
    void picturesStayNewWithoutACopy();
    void nothingOfOtherItems();
    void nothingWithoutAPicture();

private:
    static void drawSomePictures(VideoWindow &video);
};

void VideoOutputTest::init()
{
    qunsetenv("ZEPH_VIDEO_CANVAS");
}

void VideoOutputTest::drawSomePictures(VideoWindow &video)
{
    const FrameCount drawn(video.window());
    for (int i = 1; i <= 3; ++i) {
        video.window().update();
        QTRY_VERIFY(drawn.value() >= i);
    }
}

void VideoOutputTest::isUprightInKnownColours()
{
    useCanvas();
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("colours.mp4"));
    Output output(video, { 32, 24 });
    output.ask();
    QTRY_COMPARE(output.copies.count(), 1);

    const QImage copy = output.copies.first();
    QCOMPARE(copy.size(), QSize(32, 24));
    QCOMPARE(copy.depth(), 32);
    const QList<QColor> expected { Qt::red, Qt::green, Qt::blue, Qt::white };
    const QList<QColor> actual = quarters(copy);
    for (int i = 0; i < 4; ++i)
        QVERIFY2(isNear(actual[i], expected[i], tolerance), qPrintable(actual[i].name()));
    // Of red: blue, green, red and the fourth, in memory.
    constexpr int eighth = 8 * 4;
    const uchar *pixel = copy.constScanLine(6) + eighth;
    QVERIFY(pixel[0] < 12 && pixel[1] < 12 && pixel[2] > 243 && pixel[3] == 255);
}

void VideoOutputTest::isTurnedAsItIsSeen()
{
    useCanvas();
    VideoWindow video({ 640, 360 });
    video.view().setDisplayMode(PortraitDisplayMode::Manual);
    video.open(QStringLiteral("colours-rotated.mp4"));
    QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(180, 320));
    drawSomePictures(video);
    Output output(video, { 40, 30 });
    output.ask();
    video.player().seek(1);
    QTRY_COMPARE(output.copies.count(), 1);

    QCOMPARE(output.copies.first().size(), QSize(40, 30));
    const QImage reference(clipPath(QStringLiteral("colours-rotated.png")));
    const QList<QColor> expected = quarters(reference);
    const QList<QColor> actual = quarters(output.copies.first());
    for (int i = 0; i < 4; ++i)
        QVERIFY2(isNear(actual[i], expected[i], tolerance), qPrintable(actual[i].name()));
}

void VideoOutputTest::isOfTheWantedSize_data()
{
    canvasesAndClips({ QStringLiteral("grid-2160p.mkv"), QStringLiteral("grid-1x1.mkv"),
        QStringLiteral("grid-3x4000.mkv"), QStringLiteral("grid-4000x3.mkv") });
}

void VideoOutputTest::isOfTheWantedSize()
{
    useCanvas();
    QFETCH(QString, clip);
    for (QSize size : { QSize(320, 240), QSize(1, 1) }) {
        VideoWindow video({ 600, 400 });
        video.view().setDisplayMode(PortraitDisplayMode::Manual);
        video.open(clip);
        Output output(video, size);
        output.ask();
        QTRY_COMPARE(output.copies.count(), 1);
        QCOMPARE(output.copies.first().size(), size);
    }
}

void VideoOutputTest::noPictureTwice()
{
    useCanvas();
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("numbered-25.mp4"));
    Output output(video, stripes);
    QVERIFY(!output.tap.hasNewPixelBuffer());
    QTRY_VERIFY(output.tap.hasNewPixelBuffer());
    output.ask();
    QTRY_COMPARE(output.copies.count(), 1);
    QCOMPARE(numberIn(output.copies.first()), 0);
    QVERIFY(!output.tap.hasNewPixelBuffer());

    // Neither drawing it again nor drawing it larger makes it new.
    output.ask();
    drawSomePictures(video);
    video.resize({ 960, 540 });
    drawSomePictures(video);
    QVERIFY(!output.tap.hasNewPixelBuffer());
    QCOMPARE(output.copies.count(), 1);

    video.player().seek(4);
    QTRY_COMPARE(output.copies.count(), 2);
    QCOMPARE(numberIn(output.copies.last()), 100);
}

void VideoOutputTest::isTheNewestWhilePlaying()
{
    useCanvas();
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("numbered-25.mp4"));
    Output output(video, stripes);
    video.player().play();
    for (int i = 1; i <= 5; ++i) {
        QTRY_VERIFY(output.tap.hasNewPixelBuffer());
        const int shown = video.pictureNumber();
        output.ask();
        QTRY_COMPARE(output.copies.count(), i);
        QVERIFY(numberIn(output.copies.last()) >= shown);
        if (i > 1)
            QVERIFY(numberIn(output.copies[i - 1]) > numberIn(output.copies[i - 2]));
    }
}

void VideoOutputTest::lastReceiverCounts()
{
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("numbered-25.mp4"));
    Output output(video, stripes);
    int replaced = 0;
    output.tap.copyPixelBuffer([&replaced](const QImage &) { ++replaced; });
    output.ask();
    QTRY_COMPARE(output.copies.count(), 1);
    QCOMPARE(replaced, 0);
}

void VideoOutputTest::picturesStayNewWithoutACopy()
{
    const QImage copy(1, 1, QImage::Format_RGB32);
    VideoTap tap(copy.size());
    tap.pictureShown();
    // It is there, but nobody has taken it.
    tap.wantCopy();
    tap.putCopy(copy);
    QVERIFY(!tap.hasNewPicture());
    tap.dropCopy();
    QVERIFY(tap.hasNewPicture());
    QVERIFY(!tap.isCopyDue());
    QVERIFY(tap.takeCopy().isNull());
    // It was being made.
    tap.wantCopy();
    tap.dropCopy();
    tap.putCopy(copy);
    QVERIFY(tap.hasNewPicture());
    QVERIFY(tap.takeCopy().isNull());
}

void VideoOutputTest::nothingOfOtherItems()
{
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("numbered-25.mp4"));
    Output first(video, stripes);
    QTRY_VERIFY(first.tap.hasNewPixelBuffer());
    first.ask();
    QTRY_COMPARE(first.copies.count(), 1);

    first.ask();
    video.open(QStringLiteral("numbered-24.mkv"));
    Output second(video, stripes);
    second.ask();
    QTRY_COMPARE(second.copies.count(), 1);
    QVERIFY(!first.tap.hasNewPixelBuffer());
    QCOMPARE(first.copies.count(), 1);

    video.player().currentItem()->setVideoOutput(nullptr);
    drawSomePictures(video);
    second.ask();
    video.player().seek(4);
    QTRY_COMPARE(video.pictureNumber(), 95);
    QVERIFY(!second.tap.hasNewPixelBuffer());
    QCOMPARE(second.copies.count(), 1);
}

void VideoOutputTest::nothingWithoutAPicture()
{
    VideoWindow video({ 640, 360 });
    video.open(QStringLiteral("clip.mp3"));
    Output output(video, stripes);
    output.ask();
    QTRY_VERIFY(video.isOpen());
    drawSomePictures(video);
    QVERIFY(!output.tap.hasNewPixelBuffer());
    QVERIFY(output.copies.isEmpty());
}

int main(int argc, char *argv[])
{
    VideoOutputTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_video_output.moc"
