// Which files list channels.
#include "sources/ChannelListFile.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <sys/stat.h>

using namespace zeph;

class ChannelListFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void files_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isList");
        const QByteArray channels = "#EXTM3U\n#EXTINF:-1,One\nhttp://h/1.ts\n";
        const QByteArray parts = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:6\n"
                                 "#EXTINF:6.0,\n1.ts\n";
        const QByteArray variants = "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\nlow.m3u8\n";
        QTest::newRow("m3u") << "a.m3u" << channels << true;
        QTest::newRow("M3U") << "a.M3U" << channels << true;
        QTest::newRow("m3u8 of channels") << "a.m3u8" << channels << true;
        QTest::newRow("empty m3u8") << "a.m3u8" << QByteArray() << true;
        QTest::newRow("m3u8 of parts") << "a.m3u8" << parts << false;
        QTest::newRow("m3u8 of variants") << "a.m3u8" << variants << false;
        QTest::newRow("m3u of parts") << "a.m3u" << parts << true;
        QTest::newRow("media") << "a.mp4" << channels << false;
        QTest::newRow("no extension") << "m3u" << channels << false;
    }
    void files()
    {
        QFETCH(const QString, name);
        QFETCH(const QByteArray, content);
        const QString path = m_folder.filePath(name);
        QVERIFY(writeFile(path, content));
        QTEST(isChannelListFile(QUrl::fromLocalFile(path)), "isList");
    }

    void addressesOfTheWebAreNoFiles()
    {
        QVERIFY(!isChannelListFile(QUrl(QStringLiteral("http://host.example/a.m3u"))));
        QVERIFY(!isChannelListFile(QUrl()));
    }

    // Opening it would wait for somebody to write.
    void aPipeIsNotLookedInto()
    {
        const QString path = m_folder.filePath(QStringLiteral("pipe.m3u8"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
        QVERIFY(isChannelListFile(QUrl::fromLocalFile(path)));
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(ChannelListFileTest)
#include "tst_channel_list_file.moc"
