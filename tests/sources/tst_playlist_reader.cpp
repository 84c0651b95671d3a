// Lists that are read in another thread.
#include "sources/PlaylistReader.h"
#include "support/Patience.h"

#include <QThread>

#include <optional>

using namespace zeph;

namespace {

const QUrl base(QStringLiteral("http://h/list/p.m3u"));

QString onlyName(const PlaylistReading &reading)
{
    const auto *entries = std::get_if<QList<PlaylistEntry>>(&reading);
    return entries && entries->size() == 1 ? entries->constFirst().name() : QString();
}

} // namespace

class PlaylistReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void aListWithoutAddressesIsAnError_data();
    void aListWithoutAddressesIsAnError();
    void readsInTheBackground();
    void readsForNobody();
};

void PlaylistReaderTest::reads_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8") << QByteArray("#EXTINF:-1,\xc3\xa9t\xc3\xa9\nhttp://h/1.ts");
    QTest::newRow("Latin-1") << QByteArray("#EXTINF:-1,\xe9t\xe9\nhttp://h/1.ts");
    QTest::newRow("marked") << QByteArray("\xef\xbb\xbf#EXTINF:-1,\xc3\xa9t\xc3\xa9\n1.ts");
}

void PlaylistReaderTest::reads()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(onlyName(readPlaylist(bytes, base)), QStringLiteral("été"));
}

void PlaylistReaderTest::aListWithoutAddressesIsAnError_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no address") << QByteArray("#EXTM3U\n#EXTINF:-1,One\n");
    QTest::newRow("a page") << QByteArray("<!doctype html>\n<title>Hello</title>\n");
}

void PlaylistReaderTest::aListWithoutAddressesIsAnError()
{
    QFETCH(const QByteArray, bytes);
    const PlaylistReading reading = readPlaylist(bytes, base);
    QVERIFY(std::holds_alternative<PlaylistError>(reading));
    QCOMPARE(std::get<PlaylistError>(reading), PlaylistError::empty);
}

void PlaylistReaderTest::readsInTheBackground()
{
    std::optional<PlaylistReading> reading;
    const QThread *thread = nullptr;
    readPlaylistInBackground("#EXTINF:-1,One\n1.ts", base, this, [&](const PlaylistReading &read) {
        reading = read;
        thread = QThread::currentThread();
    });
    QVERIFY(!reading);
    QTRY_VERIFY(reading);
    QCOMPARE(onlyName(*reading), QStringLiteral("One"));
    QCOMPARE(std::get<QList<PlaylistEntry>>(*reading)[0].address(),
        QLatin1StringView("http://h/list/1.ts"));
    QCOMPARE(thread, QThread::currentThread());
}

void PlaylistReaderTest::readsForNobody()
{
    bool called = false;
    {
        QObject context;
        readPlaylistInBackground(QByteArray("1.ts\n").repeated(10'000), base, &context,
            [&](const PlaylistReading &) { called = true; });
    }
    bool laterIsDone = false;
    readPlaylistInBackground(
        "1.ts", base, this, [&](const PlaylistReading &) { laterIsDone = true; });
    QTRY_VERIFY(laterIsDone);
    QVERIFY(!called);
}

QTEST_GUILESS_MAIN(PlaylistReaderTest)
#include "tst_playlist_reader.moc"
