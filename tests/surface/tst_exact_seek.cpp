// The picture on the screen after a seek is the one of the time that was asked for.
#include "support/Patience.h"
#include "VideoWindow.h"

#include <QRandomGenerator>

#include <cmath>

using namespace zeph;

class ExactSeekTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void paused_data()
    {
        QTest::addColumn<QString>("clip");
        QTest::addColumn<double>("framesPerSecond");
        QTest::addColumn<int>("frames");
        QTest::newRow("mp4") << QStringLiteral("numbered-25.mp4") << 25.0 << 500;
        QTest::newRow("mkv") << QStringLiteral("numbered-24.mkv") << 24000 / 1001.0 << 479;
        QTest::newRow("ts") << QStringLiteral("numbered-60.ts") << 60.0 << 600;
    }

    void paused()
    {
        QFETCH(QString, clip);
        QFETCH(double, framesPerSecond);
        QFETCH(int, frames);
        VideoWindow video({ 640, 360 });
        video.open(clip);
        QTRY_COMPARE(video.pictureNumber(), 0);

        QRandomGenerator random(7);
        for (int i = 0; i < 50; ++i) {
            const int expected = random.bounded(frames);
            // Anywhere within the time of the picture, but for the rounding of its time stamps.
            const double within = 0.1 + 0.8 * random.generateDouble();
            video.player().seek((expected + within) / framesPerSecond);
            QTRY_COMPARE(video.pictureNumber(), expected);
        }
    }

    void pausedAtTheVeryBeginningOfAPicture()
    {
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-25.mp4"));
        QTRY_COMPARE(video.pictureNumber(), 0);
        for (int expected : { 1, 499, 60, 59, 61, 250, 0 }) {
            video.player().seek(expected / 25.0);
            QTRY_COMPARE(video.pictureNumber(), expected);
        }
    }

    // Two pictures a second leave time to see the first one after the seek, however slow the
    // machine.
    void playing()
    {
        constexpr double framesPerSecond = 2;
        constexpr int frames = 240;
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-2.mp4"));
        video.player().play();
        QTRY_COMPARE(video.player().timeControlStatus(), MediaPlayer::TimeControlStatus::Playing);

        QRandomGenerator random(11);
        int last = 0;
        for (int i = 0; i < 50; ++i) {
            int expected = 0;
            do {
                expected = random.bounded(frames - 10);
            } while (std::abs(expected - last) < 10);
            video.player().seek((expected + 0.5) / framesPerSecond);

            // The old picture and those that follow it may still be seen for a moment.
            int shown = -1;
            QTRY_VERIFY((shown = video.pictureNumber()) >= 0 && (shown < last || shown > last + 4));
            QCOMPARE(shown, expected);
            last = expected;
        }
        QCOMPARE(video.player().rate(), 1.0);
    }

    void beyondTheEndShowsTheLastPicture()
    {
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-25.mp4"));
        QTRY_COMPARE(video.pictureNumber(), 0);
        video.player().seek(1e9);
        QTRY_COMPARE(video.pictureNumber(), 499);
        video.player().seek(2);
        QTRY_COMPARE(video.pictureNumber(), 50);
    }

    void whileOpening()
    {
        VideoWindow video({ 640, 360 });
        video.open(QStringLiteral("numbered-25.mp4"));
        video.player().seek(4.02);
        QTRY_COMPARE(video.pictureNumber(), 100);
    }
};

int main(int argc, char *argv[])
{
    ExactSeekTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_exact_seek.moc"
