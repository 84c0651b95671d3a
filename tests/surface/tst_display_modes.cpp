// In a real window each display mode cuts out, enlarges, turns and moves the picture as it is to.
#include "Canvases.h"
#include "GridPicture.h"
#include "support/Patience.h"
#include "VideoWindow.h"

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

const GridPicture grid { QStringLiteral("grid.mkv"), { 1280, 720 }, 40 };

constexpr double rightEdge = -1;
constexpr double leftEdge = 1;

} // namespace

#define TRY_SHOWS(video, view, picture)                                                            \
    QTRY_VERIFY2((view).mismatch((video).screen(), picture).isEmpty(),                             \
        qPrintable((view).mismatch((video).screen(), picture)))

class TestDisplayModes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachMode_data();
    void eachMode();
    void oddPictures_data();
    void oddPictures();
    void switchedWhilePaused_data();
    void switchedWhilePaused();
    void switchedWhilePlaying_data();
    void switchedWhilePlaying();
    void windowResized_data();
    void windowResized();
    void anotherPictureFollows_data();
    void anotherPictureFollows();

private:
    static void dragTo(VideoWindow &video, double pan);
};

namespace {

struct CanvasRow {
    const char *name;
    QByteArray canvas;
};
const CanvasRow bothCanvases[] = {
    { "on the CPU", "software" },
    { "with OpenGL", "opengl" },
};

} // namespace

// From a pan of 0.
void TestDisplayModes::dragTo(VideoWindow &video, double pan)
{
    const QPoint from(int(video.view().width() / 2), int(video.view().height() / 2));
    const QPoint to = from + QPoint(int(std::lround(pan * video.view().width() * 0.35)), 0);
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&video.window(), to);
    QTest::mouseRelease(&video.window(), Qt::LeftButton, {}, to);
}

void TestDisplayModes::eachMode_data()
{
    QTest::addColumn<QByteArray>("canvas");
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<double>("pan");
    for (const CanvasRow &row : bothCanvases) {
        for (Mode mode : allPortraitDisplayModes) {
            QTest::addRow("%s %s", qPrintable(rawValue(mode)), row.name)
                << row.canvas << mode << 0.0;
        }
        for (double pan : { leftEdge, 0.4, rightEdge }) {
            QTest::addRow("%s %.1f %s", qPrintable(rawValue(Mode::Manual)), pan, row.name)
                << row.canvas << Mode::Manual << pan;
        }
    }
}

void TestDisplayModes::eachMode()
{
    useCanvas();
    QFETCH(Mode, mode);
    QFETCH(double, pan);
    VideoWindow video({ 1000, 500 });
    video.open(grid.clip);
    video.view().setDisplayMode(mode);
    TRY_SHOWS(video, (GridView { { 1000, 500 }, mode, 0 }), grid);
    if (pan != 0) {
        dragTo(video, pan);
        QCOMPARE(video.hostingView().horizontalPan(), pan);
        TRY_SHOWS(video, (GridView { { 1000, 500 }, mode, pan }), grid);
    }
}

void TestDisplayModes::oddPictures_data()
{
    QTest::addColumn<QByteArray>("canvas");
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<double>("cell");
    QTest::addColumn<bool>("isTurned");
    for (const CanvasRow &row : bothCanvases) {
        const auto add = [&](const char *clip, QSizeF size, double cell, bool isTurned = false) {
            QTest::addRow("%s %s", clip, row.name)
                << row.canvas << QString::fromLatin1(clip) << size << cell << isTurned;
        };
        add("grid-tall.mkv", { 540, 1200 }, 60);
        add("grid-2160p.mkv", { 3840, 2160 }, 120);
        add("grid-wide-pixels.mkv", { 1280, 720 }, 40);
        add("grid-rotated.mp4", { 720, 1280 }, 40, true);
        add("grid-1x1.mkv", { 1, 1 }, 1);
        add("grid-3x4000.mkv", { 3, 4000 }, 100);
        add("grid-4000x3.mkv", { 4000, 3 }, 100);
    }
}

void TestDisplayModes::oddPictures()
{
    useCanvas();
    QFETCH(QString, clip);
    QFETCH(QSizeF, size);
    QFETCH(double, cell);
    QFETCH(bool, isTurned);
    const GridPicture picture { clip, size, cell, isTurned };
    VideoWindow video({ 600, 400 });
    video.open(clip);
    QTRY_COMPARE(video.player().currentItem()->presentationSize(), size);
    for (Mode mode : allPortraitDisplayModes) {
        video.view().setDisplayMode(mode);
        TRY_SHOWS(video, (GridView { { 600, 400 }, mode, 0 }), picture);
    }
}

void TestDisplayModes::switchedWhilePaused_data()
{
    canvases();
}

void TestDisplayModes::switchedWhilePaused()
{
    useCanvas();
    VideoWindow video({ 1000, 500 });
    video.open(grid.clip);
    for (Mode mode : { Mode::Fill, Mode::Rotate, Mode::Manual, Mode::Normal, Mode::Smart,
             Mode::Rotate, Mode::Normal, Mode::Manual }) {
        video.view().setDisplayMode(mode);
        TRY_SHOWS(video, (GridView { { 1000, 500 }, mode, 0 }), grid);
    }
}

void TestDisplayModes::switchedWhilePlaying_data()
{
    canvases();
}

void TestDisplayModes::switchedWhilePlaying()
{
    useCanvas();
    VideoWindow video({ 1000, 500 });
    video.open(grid.clip);
    video.player().play();
    QTRY_COMPARE(video.player().timeControlStatus(), MediaPlayer::TimeControlStatus::Playing);
    // Not the smart mode: it moves while it plays.
    for (Mode mode :
        { Mode::Fill, Mode::Normal, Mode::Rotate, Mode::Manual, Mode::Fill, Mode::Normal }) {
        video.view().setDisplayMode(mode);
        TRY_SHOWS(video, (GridView { { 1000, 500 }, mode, 0 }), grid);
        QCOMPARE(video.player().timeControlStatus(), MediaPlayer::TimeControlStatus::Playing);
    }
}

void TestDisplayModes::windowResized_data()
{
    canvases();
}

void TestDisplayModes::windowResized()
{
    useCanvas();
    VideoWindow video({ 1000, 500 });
    video.open(grid.clip);
    for (Mode mode : allPortraitDisplayModes) {
        video.view().setDisplayMode(mode);
        // The last one is narrower than a column of its height.
        for (QSize size : { QSize(700, 640), QSize(1200, 400), QSize(300, 700) }) {
            video.resize(size);
            TRY_SHOWS(video, (GridView { size, mode, 0 }), grid);
        }
    }
}

void TestDisplayModes::anotherPictureFollows_data()
{
    canvases();
}

void TestDisplayModes::anotherPictureFollows()
{
    useCanvas();
    const GridPicture tall { QStringLiteral("grid-tall.mkv"), { 540, 1200 }, 60 };
    VideoWindow video({ 1000, 500 });
    video.view().setDisplayMode(Mode::Manual);
    for (const GridPicture &picture : { grid, tall, grid }) {
        video.open(picture.clip);
        TRY_SHOWS(video, (GridView { { 1000, 500 }, Mode::Manual, 0 }), picture);
    }
}

int main(int argc, char *argv[])
{
    TestDisplayModes test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_display_modes.moc"
