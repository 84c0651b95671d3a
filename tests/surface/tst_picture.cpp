// What the screen shows is the clip's picture: its colours, its shape and the right way up.
#include "Canvases.h"
#include "support/Patience.h"
#include "VideoWindow.h"

using namespace zeph;

namespace {

// Video stores colours with less precision than the screen shows them.
constexpr int tolerance = 8;

// The colours in the middles of the four quarters of `picture`, in fractions of the window.
bool showsQuarters(const VideoWindow &video, QRectF picture, const QList<QColor> &expected)
{
    QList<QColor>::const_iterator colour = expected.begin();
    for (double y : { 0.25, 0.75 }) {
        for (double x : { 0.25, 0.75 }) {
            if (!isNear(video.colourAt(
                            picture.x() + x * picture.width(), picture.y() + y * picture.height()),
                    *colour++, tolerance))
                return false;
        }
    }
    return true;
}

const QList<QColor> upright { QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255),
    QColor(255, 255, 255) };
const QRectF whole(0, 0, 1, 1);

} // namespace

class PictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void colours_data() { canvases(); }
    void colours()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
        QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(320, 180));
    }

    void widePixels_data() { canvases(); }
    void widePixels()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours-wide-pixels.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
        QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(320, 180));
    }

    void rotation_data() { canvases(); }
    void rotation()
    {
        useCanvas();
        const QImage reference(clipPath(QStringLiteral("colours-rotated.png")));
        QCOMPARE(reference.size(), QSize(180, 320));
        QList<QColor> expected;
        for (int y : { 80, 240 }) {
            for (int x : { 45, 135 })
                expected << reference.pixelColor(x, y);
        }

        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours-rotated.mp4"));
        const double width = 360.0 * 180 / 320 / 640;
        QTRY_VERIFY(showsQuarters(video, QRectF(0.5 - width / 2, 0, width, 1), expected));
        QTRY_COMPARE(video.player().currentItem()->presentationSize(), QSizeF(180, 320));
        QVERIFY(isNear(video.colourAt(0.1, 0.5), Qt::black, tolerance));
        QVERIFY(isNear(video.colourAt(0.9, 0.5), Qt::black, tolerance));
    }

    void letterbox_data() { canvases(); }
    void letterbox()
    {
        useCanvas();
        VideoWindow video({ 640, 640 });
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, QRectF(0, 0.21875, 1, 0.5625), upright));
        QVERIFY(isNear(video.colourAt(0.5, 0.1), Qt::black, tolerance));
        QVERIFY(isNear(video.colourAt(0.5, 0.9), Qt::black, tolerance));

        video.window().resize(1280, 360);
        video.view().setSize(QSizeF(1280, 360));
        QTRY_COMPARE(video.screen().size(), QSize(1280, 360));
        QTRY_VERIFY(showsQuarters(video, QRectF(0.25, 0, 0.5, 1), upright));
        QTRY_VERIFY(isNear(video.colourAt(0.1, 0.5), Qt::black, tolerance));
    }

    void removedItemLeavesBlack_data() { canvases(); }
    void removedItemLeavesBlack()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
        video.player().replaceCurrentItem(nullptr);
        QTRY_VERIFY(showsQuarters(video, whole, { Qt::black, Qt::black, Qt::black, Qt::black }));
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
    }

    void nothingToSeeLeavesBlack_data()
    {
        canvasesAndClips({ QStringLiteral("clip.mp3"), QStringLiteral("garbage.mp4") });
    }
    void nothingToSeeLeavesBlack()
    {
        QFETCH(QString, clip);
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
        video.open(clip);
        QTRY_VERIFY(showsQuarters(video, whole, { Qt::black, Qt::black, Qt::black, Qt::black }));
        video.open(QStringLiteral("colours.mp4"));
        QTRY_VERIFY(showsQuarters(video, whole, upright));
    }

    void endKeepsTheLastPicture_data() { canvases(); }
    void endKeepsTheLastPicture()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("colours.mp4"));
        video.player().play();
        QTRY_COMPARE(video.player().timeControlStatus(), MediaPlayer::TimeControlStatus::Playing);
        QTRY_COMPARE(video.player().rate(), 0.0);
        QVERIFY(showsQuarters(video, whole, upright));
        QCOMPARE(video.player().currentTime(), video.player().currentItem()->duration());
    }

    void hiddenAndShownAgain_data() { canvases(); }
    void hiddenAndShownAgain()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-25.mp4"));
        video.player().play();
        QTRY_VERIFY(video.pictureNumber() > 5);
        video.window().hide();
        const double before = video.player().currentTime();
        QTRY_VERIFY(video.player().currentTime() > before + 0.5);
        video.window().show();
        QTRY_VERIFY(video.pictureNumber() > int(before * 25) + 12);
    }

    void layerTakenAwayAndGivenBack_data() { canvases(); }
    void layerTakenAwayAndGivenBack()
    {
        useCanvas();
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-25.mp4"));
        video.player().play();
        QTRY_VERIFY(video.pictureNumber() > 5);

        video.view().setPlayer(nullptr);
        QTRY_COMPARE(video.pictureNumber(), 0);
        const double before = video.player().currentTime();
        QTRY_VERIFY(video.player().currentTime() > before + 0.5);

        video.view().setPlayer(&video.player());
        QTRY_VERIFY(video.pictureNumber() > int(before * 25) + 12);
        // Without time for the scene to draw in between.
        video.view().setPlayer(nullptr);
        video.view().setPlayer(&video.player());
        const int last = video.pictureNumber();
        QTRY_VERIFY(video.pictureNumber() > last + 5);
    }
};

int main(int argc, char *argv[])
{
    PictureTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_picture.moc"
