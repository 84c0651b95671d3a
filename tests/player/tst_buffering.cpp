// When the buffering indicator shows, over a stream that really stalls.
#include "player/PlayerModel.h"
#include "support/EngineTest.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

namespace {

constexpr qint64 delay = 450; // milliseconds

/// Notes how long the player has waited when the indicator comes.
class Watch {
public:
    explicit Watch(PlayerModel &model)
    {
        QObject::connect(model.player(), &MediaPlayer::timeControlStatusChanged, &m_context,
            [this, &model] { noteStatus(model); });
        QObject::connect(&model, &PlayerModel::isBufferingChanged, &m_context, [this, &model] {
            if (model.isBuffering())
                shownAfter << (m_waiting.isValid() ? m_waiting.elapsed() : -1);
        });
        noteStatus(model);
    }

    QList<qint64> shownAfter; ///< Milliseconds; -1 when it did not wait at all.

private:
    void noteStatus(PlayerModel &model)
    {
        if (model.player()->timeControlStatus() == Status::WaitingToPlayAtSpecifiedRate)
            m_waiting.start();
        else
            m_waiting.invalidate();
    }

    QObject m_context;
    QElapsedTimer m_waiting;
};

} // namespace

class BufferingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLiveStreamThatStallsShowsIt()
    {
        TestServer server(clipPath(QString()));
        const QString path = QStringLiteral("/live.ts");
        server.pauseWithin(path, clipFile(QStringLiteral("numbered-60.ts")), 0.3);
        PlayerModel model(m_panels);
        Watch watch(model);
        model.play(server.url(path), std::nullopt, true);
        QVERIFY(playsPast(*model.player(), 0));
        QTRY_VERIFY(!model.isBuffering());
        watch.shownAfter.clear();

        QTRY_VERIFY(model.isBuffering());
        QCOMPARE(watch.shownAfter.size(), 1);
        QVERIFY2(watch.shownAfter[0] >= delay - 10, "too early");
        QVERIFY(model.isPlaying());

        server.release();
        QTRY_VERIFY(model.player()->timeControlStatus() == Status::Playing);
        QTRY_VERIFY(!model.isBuffering());
    }

    void aFileThatStallsDoesNot()
    {
        TestServer server(clipPath(QString()));
        const QString path = QStringLiteral("/film.ts");
        server.pauseWithin(path, clipFile(QStringLiteral("numbered-60.ts")), 0.3);
        PlayerModel model(m_panels);
        QSignalSpy buffering(&model, &PlayerModel::isBufferingChanged);
        model.play(server.url(path), std::nullopt, false);
        QVERIFY(playsPast(*model.player(), 0));
        QTRY_VERIFY(model.player()->timeControlStatus() == Status::WaitingToPlayAtSpecifiedRate);
        QVERIFY(!buffering.wait(3 * delay));
        QCOMPARE(model.player()->timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
        QCOMPARE(buffering.size(), 0);
    }

    void aShortStallDoesNot()
    {
        PlayerModel model(m_panels);
        QElapsedTimer waited;
        waited.start();
        waitForNothing(model);
        QSignalSpy buffering(&model, &PlayerModel::isBufferingChanged);
        QTest::qWait(300);
        model.togglePlayback(); // It waits no more.
        if (waited.elapsed() >= delay)
            QSKIP("The machine is too slow for a short stall");
        QVERIFY(!buffering.wait(3 * delay));
    }

    void playingStoppingAndPagesHideIt_data()
    {
        QTest::addColumn<std::function<void(PlayerModel &)>>("hide");
        using Hide = std::function<void(PlayerModel &)>;
        QTest::newRow("stop") << Hide([](PlayerModel &model) { model.stop(); });
        QTest::newRow("pause") << Hide([](PlayerModel &model) { model.togglePlayback(); });
        QTest::newRow("play") << Hide([](PlayerModel &model) {
            model.play(clipUrl(QStringLiteral("colours.mp4")), std::nullopt, false);
        });
        QTest::newRow("page") << Hide([](PlayerModel &model) {
            model.openRemote(QStringLiteral("https://youtu.be/dQw4w9WgXcQ"), QString());
        });
        QTest::newRow("clear") << Hide([](PlayerModel &model) { model.clearNetworkStream(); });
    }

    void playingStoppingAndPagesHideIt()
    {
        QFETCH(const std::function<void(PlayerModel &)>, hide);
        PlayerModel model(m_panels);
        waitForNothing(model);
        QTRY_VERIFY(model.isBuffering());
        hide(model);
        QTRY_VERIFY(!model.isBuffering());
        QSignalSpy buffering(&model, &PlayerModel::isBufferingChanged);
        QVERIFY(!buffering.wait(3 * delay));
    }

    void eachWaitIsOfItsOwn()
    {
        PlayerModel model(m_panels);
        Watch watch(model);
        for (int i = 0; i < 3; ++i) {
            waitForNothing(model);
            QTRY_VERIFY(model.isBuffering());
            model.stop();
        }
        QCOMPARE(watch.shownAfter.size(), 3);
        for (const qint64 waited : watch.shownAfter)
            QVERIFY(waited >= delay - 10);
    }

private:
    // A live stream that never starts.
    static void waitForNothing(PlayerModel &model)
    {
        model.play(QUrl(QStringLiteral("http://127.0.0.1:9/a.m3u8")), std::nullopt, true);
    }

    static QByteArray clipFile(const QString &name)
    {
        QFile file(clipPath(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("There is no %s", qPrintable(name));
        return file.readAll();
    }

    StandInPanels m_panels;
};

ZEPH_ENGINE_TEST_MAIN(BufferingTest)
#include "tst_buffering.moc"
