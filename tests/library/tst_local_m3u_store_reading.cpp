// The saved links as they are stored: what is written, and what is made of what is found there.
#include "StoreTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace zeph;
using Fields = PlaylistEntry::Fields;

class LocalM3UStoreReadingTest : public StoreTest {
    Q_OBJECT

private Q_SLOTS:
    void storesReadableJson();
    void leavesWhatItCannotRead_data();
    void leavesWhatItCannotRead();
    void readsOddLists_data();
    void readsOddLists();
    void readsHalfASurrogatePair();
    void readsAMillionEntries();
};

void LocalM3UStoreReadingTest::storesReadableJson()
{
    Library library(m_file);
    const PlaylistEntry full = savedLinkWith([](Fields &fields) {
        fields.name = QStringLiteral("\u0416 \"A\"");
        fields.logoURL = address(QStringLiteral("http://x/l.png"));
        fields.groupTitle = QStringLiteral("News");
        fields.countryCode = QStringLiteral("TR");
    });
    const PlaylistEntry bare = savedLink(QStringLiteral("b"));
    library.store.replaceEntries({ full, bare });
    const auto json = library.defaults.text(QStringLiteral("ZephPlayer.LocalM3U.SavedEntries"));
    QVERIFY(json);
    QVERIFY(contentOf(m_file).contains("\u0416"));
    const auto text = [](const QString &value) { return QJsonValue(value); };
    const QJsonArray expected {
        QJsonObject { { QStringLiteral("id"), full.id().toString(QUuid::WithoutBraces) },
            { QStringLiteral("name"), text(full.name()) },
            { QStringLiteral("url"), QStringLiteral("http://h/a.m3u8") },
            { QStringLiteral("logoURL"), QStringLiteral("http://x/l.png") },
            { QStringLiteral("groupTitle"), QStringLiteral("News") },
            { QStringLiteral("countryCode"), QStringLiteral("TR") } },
        QJsonObject { { QStringLiteral("id"), bare.id().toString(QUuid::WithoutBraces) },
            { QStringLiteral("name"), QStringLiteral("b") },
            { QStringLiteral("url"), QStringLiteral("http://h/b.m3u8") } },
    };
    QCOMPARE(QJsonDocument::fromJson(*json).array(), expected);
}

void LocalM3UStoreReadingTest::leavesWhatItCannotRead_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto json = [](const char *name, const QByteArray &text) {
        QTest::newRow(name) << settingsWith(text);
    };
    const auto raw = [](const char *name, const QByteArray &value) {
        QTest::newRow(name) << "[General]\nZephPlayer.LocalM3U.SavedEntries=" + value + '\n';
    };
    const QByteArray good = playlistEntryToJson(savedLink(QStringLiteral("a")));
    json("nothing", "");
    json("no JSON", "abc");
    json("half of it", ('[' + good + ']').chopped(10));
    json("more than it", '[' + good + "] x");
    json("object", good);
    json("null", "null");
    json("number", "5");
    json("text", "\"a\"");
    json("numbers", "[1, 2]");
    json("one is no entry", '[' + good + ",{}]");
    json("one is null", '[' + good + ",null]");
    json("no address", R"([{"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":"a"}])");
    json("bad id", R"([{"id":"1","name":"a","url":"http://h/a"}])");
    json("number as name",
        R"([{"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":1,"url":"http://h/a"}])");
    json("deep", QByteArray(100'000, '['));
    json("no UTF-8", "[\"\xff\xfe\"]");
    raw("list", "a, b");
    raw("number of another kind", "@Size(3 4)");
    raw("4 GB of bytes", R"(@Variant(\0\0\0\f\xff\xff\xff\xfe))");
    raw("4 GB of text", R"(@Variant(\0\0\0\n\xff\xff\xff\xfe))");
    raw("4 GB of list", R"(@Variant(\0\0\0\t\xff\xff\xff\xfe))");
    raw("open quote", R"("[{\"id\")");
    QTest::newRow("no settings") << QByteArrayLiteral("\x7f"
                                                      "ELF\0\1\2\3\n\0\n=\n[\n]\n");
    QTest::newRow("zeros") << QByteArray(100'000, '\0');
}

void LocalM3UStoreReadingTest::leavesWhatItCannotRead()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(m_file, content));
    Library library(m_file);
    QVERIFY(library.store.entries().isEmpty());
    QCOMPARE(library.store.errorMessage(), QString());
    library.store.exportLocalPlaylistAsM3U();
    library.store.update(savedLinkFields(QStringLiteral("b")));
    library.store.remove(savedLink(QStringLiteral("b")));
    library.store.replaceEntries({});
    QCOMPARE(contentOf(m_file), content);

    library.store.add(savedLinkFields(QStringLiteral("b")));
    QCOMPARE(library.names(), QStringList(QStringLiteral("b")));
    QCOMPARE(storedEntries(m_file), library.store.entries());
}

void LocalM3UStoreReadingTest::readsOddLists_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("names");
    const auto entry = [](const QByteArray &name, const QByteArray &more = {}) {
        return R"({"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":")" + name
            + R"(","url":"http://h/a")" + more + '}';
    };
    QTest::newRow("nothing in it") << QByteArray("[]") << QStringList();
    QTest::newRow("blanks") << " [\n" + entry("a") + "\t] \n" << QStringList(QStringLiteral("a"));
    QTest::newRow("other keys") << '[' + entry("a", R"(,"x":[1,{"y":null}],"URL":1)") + ']'
                                << QStringList(QStringLiteral("a"));
    QTest::newRow("same ids and addresses") << '[' + entry("a") + ',' + entry("b")
            + ']' << QStringList({ QStringLiteral("a"), QStringLiteral("b") });
    QTest::newRow("odd letters")
        << '[' + entry("\u202e\u0627\u0301\u200d\U0001f4fa\ufeff\ufffe\\u0000\\n") + ']'
        << QStringList(QStringLiteral("\u202e\u0627\u0301\u200d\U0001f4fa\ufeff\ufffe")
               + QChar(u'\0') + u'\n');
    QTest::newRow("long name") << '[' + entry(QByteArray(1'000'000, 'x')) + ']'
                               << QStringList(QString(1'000'000, u'x'));
}

void LocalM3UStoreReadingTest::readsOddLists()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, names);
    QVERIFY(writeFile(m_file, settingsWith(json)));
    Library library(m_file);
    QCOMPARE(library.names(), names);
    QCOMPARE(contentOf(m_file), settingsWith(json));
    // Another one does not spoil them.
    library.store.add(savedLinkFields(QStringLiteral("new")));
    QCOMPARE(Library(m_file).names(), QStringList(QStringLiteral("new")) + names);
}

void LocalM3UStoreReadingTest::readsHalfASurrogatePair()
{
    const QByteArray json = "[{\"id\":\"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11\","
                            "\"name\":\"\\ud83d\",\"url\":\"http://h/a\"}]";
    QVERIFY(writeFile(m_file, settingsWith(json)));
    const Library library(m_file);
    QCOMPARE(library.names().size(), 1);
    QCOMPARE(library.names().constFirst().size(), 1);
}

void LocalM3UStoreReadingTest::readsAMillionEntries()
{
    constexpr int count = 1'000'000;
    QByteArray json = "[";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        json += R"({"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":")" + number
            + R"(","url":"http://h/)" + number + "\"},";
    }
    json.back() = ']';
    QVERIFY(writeFile(m_file, settingsWith(json)));
    const Library library(m_file);
    QCOMPARE(library.store.entries().size(), count);
    QCOMPARE(library.store.entries().constLast().name(), QStringLiteral("999999"));
    QVERIFY(library.store.contains(address(QStringLiteral("http://h/777777"))));
}

QTEST_GUILESS_MAIN(LocalM3UStoreReadingTest)
#include "tst_local_m3u_store_reading.moc"
