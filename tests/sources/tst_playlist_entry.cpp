// Entries of lists, and how they are stored.
#include "sources/PlaylistEntry.h"
#include "sources/PlaylistEntryJson.h"
#include "sources/PlaylistError.h"
#include "sources/RandomUuids.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTest>

#include <bit>
#include <cstring>
#include <utility>

using namespace zeph;

namespace {

const QUuid id(QStringLiteral("0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11"));

AddressText address(const char *text)
{
    return *AddressText::fromText(QString::fromUtf8(text));
}

PlaylistEntry::Fields allFields()
{
    return { id, QStringLiteral("\u0416 A"), address("http://h/a.m3u8"), address("http://x/l.png"),
        QStringLiteral("News"), QStringLiteral("TR") };
}

PlaylistEntry::Fields requiredFields()
{
    return { id, QStringLiteral("A"), address("http://h/a"), {}, {}, {} };
}

QJsonObject requiredJson()
{
    return { { QStringLiteral("id"), id.toString(QUuid::WithoutBraces) },
        { QStringLiteral("name"), QStringLiteral("A") },
        { QStringLiteral("url"), QStringLiteral("http://h/a") } };
}

QJsonObject objectOf(const PlaylistEntry &entry)
{
    return QJsonDocument::fromJson(playlistEntryToJson(entry)).object();
}

} // namespace

class PlaylistEntryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsItsFields();
    void tellsAbsentFromEmpty();
    void isEmptyByDefault();
    void isEqualByAllFields_data();
    void isEqualByAllFields();
    void sharesWhatItCopies();
    void writesJson();
    void writesOnlyWhatIsThere();
    void readsWhatItWrites_data();
    void readsWhatItWrites();
    void readsLists();
    void ignoresOtherKeys();
    void takesNullAsAbsent();
    void takesIdsInCapitals();
    void refusesBadJson_data();
    void refusesBadJson();
    void describesErrors();
    void makesRandomIds();
};

void PlaylistEntryTest::keepsItsFields()
{
    const PlaylistEntry entry(allFields());
    QCOMPARE(entry.id(), id);
    QCOMPARE(entry.name(), QStringLiteral("\u0416 A"));
    QCOMPARE(entry.url(), QUrl(QStringLiteral("http://h/a.m3u8")));
    QCOMPARE(entry.address(), QLatin1StringView("http://h/a.m3u8"));
    QCOMPARE(entry.logoURL(), QUrl(QStringLiteral("http://x/l.png")));
    QCOMPARE(entry.logoAddress(), QLatin1StringView("http://x/l.png"));
    QCOMPARE(entry.groupTitle(), QStringLiteral("News"));
    QCOMPARE(entry.countryCode(), QStringLiteral("TR"));
}

void PlaylistEntryTest::tellsAbsentFromEmpty()
{
    PlaylistEntry::Fields fields = requiredFields();
    const PlaylistEntry absent(fields);
    QCOMPARE(absent.logoURL(), std::nullopt);
    QVERIFY(absent.logoAddress().isEmpty());
    QCOMPARE(absent.groupTitle(), std::nullopt);
    QCOMPARE(absent.countryCode(), std::nullopt);

    fields.name = QString();
    fields.groupTitle = QString();
    fields.countryCode = QString();
    const PlaylistEntry empty(fields);
    QCOMPARE(empty.name(), QString());
    QCOMPARE(empty.groupTitle(), QString());
    QCOMPARE(empty.countryCode(), QString());
    QVERIFY(empty.groupTitle().has_value());
    QVERIFY(empty.countryCode().has_value());
}

void PlaylistEntryTest::isEmptyByDefault()
{
    const PlaylistEntry none;
    QVERIFY(none.id().isNull());
    QVERIFY(none.name().isEmpty());
    QVERIFY(none.url().isEmpty());
    QVERIFY(!none.logoURL());
    QVERIFY(!none.groupTitle());
    QVERIFY(!none.countryCode());
    QCOMPARE(none, PlaylistEntry());
    QVERIFY(none != PlaylistEntry(requiredFields()));
    QVERIFY(PlaylistEntry(requiredFields()) != none);
}

void PlaylistEntryTest::isEqualByAllFields_data()
{
    QTest::addColumn<PlaylistEntry>("other");
    const auto row = [](const char *name, const auto &change) {
        PlaylistEntry::Fields fields = allFields();
        change(fields);
        QTest::newRow(name) << PlaylistEntry(fields);
    };
    using Fields = PlaylistEntry::Fields;
    row("id", [](Fields &fields) { fields.id = QUuid::createUuid(); });
    row("name", [](Fields &fields) { fields.name += u'x'; });
    row("url", [](Fields &fields) { fields.url = address("http://h/b.m3u8"); });
    row("logo", [](Fields &fields) { fields.logoURL = address("http://x/m.png"); });
    row("no logo", [](Fields &fields) { fields.logoURL.reset(); });
    row("group", [](Fields &fields) { fields.groupTitle = QStringLiteral("x"); });
    row("no group", [](Fields &fields) { fields.groupTitle.reset(); });
    row("empty group", [](Fields &fields) { fields.groupTitle = QString(); });
    row("country", [](Fields &fields) { fields.countryCode = QStringLiteral("DE"); });
    row("no country", [](Fields &fields) { fields.countryCode.reset(); });
    // The same letters all in all.
    row("name and url", [](Fields &fields) {
        fields.name += QStringLiteral("h");
        fields.url = address("ttp://h/a.m3u8");
    });
}

void PlaylistEntryTest::isEqualByAllFields()
{
    QFETCH(PlaylistEntry, other);
    const PlaylistEntry entry(allFields());
    const PlaylistEntry same(allFields());
    QCOMPARE(entry, same);
    QCOMPARE(qHash(entry), qHash(same));
    QVERIFY(entry != other);
    QVERIFY(other != entry);
    QVERIFY(qHash(entry) != qHash(other));
}

void PlaylistEntryTest::sharesWhatItCopies()
{
    const QString group = QStringLiteral("a group that is not a literal").toUpper();
    PlaylistEntry::Fields fields = allFields();
    fields.groupTitle = group;
    PlaylistEntry entry(fields);
    const PlaylistEntry copy = entry;
    QVERIFY(copy.address().data() == entry.address().data());
    QCOMPARE(copy.groupTitle()->constData(), group.constData());

    QList<PlaylistEntry> list(3, entry);
    const QList<PlaylistEntry> copies = list;
    list[1] = PlaylistEntry(requiredFields());
    list.removeFirst();
    entry = std::exchange(list[1], PlaylistEntry());
    QCOMPARE(entry, copy);
    QCOMPARE(copies, QList<PlaylistEntry>(3, copy));
    PlaylistEntry &itself = entry;
    entry = itself;
    QCOMPARE(entry, copy);
}

void PlaylistEntryTest::writesJson()
{
    QCOMPARE(objectOf(PlaylistEntry(allFields())),
        QJsonObject({ { QStringLiteral("id"), id.toString(QUuid::WithoutBraces) },
            { QStringLiteral("name"), QStringLiteral("\u0416 A") },
            { QStringLiteral("url"), QStringLiteral("http://h/a.m3u8") },
            { QStringLiteral("logoURL"), QStringLiteral("http://x/l.png") },
            { QStringLiteral("groupTitle"), QStringLiteral("News") },
            { QStringLiteral("countryCode"), QStringLiteral("TR") } }));
}

void PlaylistEntryTest::writesOnlyWhatIsThere()
{
    QCOMPARE(objectOf(PlaylistEntry(requiredFields())), requiredJson());
}

void PlaylistEntryTest::readsWhatItWrites_data()
{
    QTest::addColumn<PlaylistEntry>("entry");
    QTest::newRow("all") << PlaylistEntry(allFields());
    QTest::newRow("required") << PlaylistEntry(requiredFields());
    PlaylistEntry::Fields odd = allFields();
    odd.name = QStringLiteral("\"\\/\u0001\u2028\ufeff\U0001f4fa");
    odd.groupTitle = QString();
    odd.countryCode = QStringLiteral("\ufeffa");
    odd.logoURL = address("l.png");
    odd.url = address("foo:");
    QTest::newRow("odd") << PlaylistEntry(odd);
    PlaylistEntry::Fields letters = allFields();
    letters.name.clear();
    for (ushort letter = 0; letter < 0x400; ++letter)
        letters.name += QChar(letter);
    QTest::newRow("letters") << PlaylistEntry(letters);
}

void PlaylistEntryTest::readsWhatItWrites()
{
    QFETCH(PlaylistEntry, entry);
    QCOMPARE(playlistEntryFromJson(objectOf(entry)), entry);
}

void PlaylistEntryTest::readsLists()
{
    const QList<PlaylistEntry> entries { PlaylistEntry(allFields()),
        PlaylistEntry(requiredFields()), PlaylistEntry(allFields()) };
    QCOMPARE(playlistFromJson(playlistToJson(entries)), entries);
    QCOMPARE(playlistToJson({}), "[]");
    QCOMPARE(playlistFromJson("[]"), QList<PlaylistEntry>());
    for (const char *json : { "", "[", "{}", "null", "[1]", "[{}]", "[] x" })
        QVERIFY2(!playlistFromJson(json), json);
    // One bad entry spoils the list.
    QJsonArray array { requiredJson(), QJsonObject() };
    QVERIFY(!playlistFromJson(QJsonDocument(array).toJson()));
    array.removeLast();
    QVERIFY(playlistFromJson(QJsonDocument(array).toJson()));
}

void PlaylistEntryTest::ignoresOtherKeys()
{
    QJsonObject json = requiredJson();
    json.insert(QStringLiteral("logoUrl"), 1);
    json.insert(QStringLiteral("Name"), QJsonValue::Null);
    QCOMPARE(playlistEntryFromJson(json), PlaylistEntry(requiredFields()));
}

void PlaylistEntryTest::takesNullAsAbsent()
{
    QJsonObject json = requiredJson();
    for (const char *key : { "logoURL", "groupTitle", "countryCode" })
        json.insert(QString::fromUtf8(key), QJsonValue::Null);
    QCOMPARE(playlistEntryFromJson(json), PlaylistEntry(requiredFields()));
}

void PlaylistEntryTest::takesIdsInCapitals()
{
    QJsonObject json = requiredJson();
    json.insert(QStringLiteral("id"), id.toString(QUuid::WithoutBraces).toUpper());
    QCOMPARE(playlistEntryFromJson(json), PlaylistEntry(requiredFields()));
}

void PlaylistEntryTest::refusesBadJson_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    for (const char *key : { "id", "name", "url", "logoURL", "groupTitle", "countryCode" }) {
        const auto row = [key](const char *name, const QJsonValue &value) {
            QTest::addRow("%s, %s", key, name) << QString::fromUtf8(key) << value;
        };
        row("number", 1);
        row("boolean", true);
        row("array", QJsonArray { QStringLiteral("a") });
        row("object", QJsonObject());
        if (QByteArrayView("id name url").contains(key)) {
            row("absent", QJsonValue::Undefined);
            row("null", QJsonValue::Null);
        }
    }
    const auto row = [](const char *key, const char *value) {
        QTest::addRow("%s %s", key, value)
            << QString::fromUtf8(key) << QJsonValue(QString::fromUtf8(value));
    };
    row("id", "");
    row("id", "x");
    row("id", "{0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11}");
    row("id", "0d0cd8d00fe54b8b9b4c2f6a2f0c5a11");
    row("id", "0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a1");
    row("id", "0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11 ");
    row("id", "0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a1g");
    row("url", "");
    row("url", "a b");
    row("url", "live/1.m3u8");
    row("logoURL", "");
    row("logoURL", "a b");
}

void PlaylistEntryTest::refusesBadJson()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QJsonObject json = requiredJson();
    json.insert(key, value);
    QVERIFY(!playlistEntryFromJson(json));
}

void PlaylistEntryTest::describesErrors()
{
    QCOMPARE(playlistErrorDescription(PlaylistError::invalidEncoding),
        QStringLiteral("The playlist text could not be read."));
    QCOMPARE(playlistErrorDescription(PlaylistError::empty),
        QStringLiteral("No playable address was found in the playlist."));
}

void PlaylistEntryTest::makesRandomIds()
{
    constexpr int count = 100'000;
    RandomUuids first;
    RandomUuids second;
    QSet<QUuid> ids;
    // Every bit that may vary does.
    quint64 alwaysSet[2] { ~quint64 { 0 }, ~quint64 { 0 } };
    quint64 everSet[2] {};
    for (int i = 0; i < count; ++i) {
        const QUuid next = i % 2 ? first.next() : second.next();
        QCOMPARE(next.version(), QUuid::Random);
        QCOMPARE(next.variant(), QUuid::DCE);
        ids += next;
        quint64 bits[2];
        std::memcpy(bits, &next, sizeof bits);
        for (int half = 0; half < 2; ++half) {
            alwaysSet[half] &= bits[half];
            everSet[half] |= bits[half];
        }
    }
    QCOMPARE(ids.size(), count);
    int fixedBits = 0;
    for (int half = 0; half < 2; ++half)
        fixedBits += std::popcount(alwaysSet[half]) + std::popcount(~everSet[half]);
    QCOMPARE(fixedBits, 6);
}

QTEST_GUILESS_MAIN(PlaylistEntryTest)
#include "tst_playlist_entry.moc"
