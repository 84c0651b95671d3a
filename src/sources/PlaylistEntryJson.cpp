#include "sources/PlaylistEntryJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace zeph {

namespace {

constexpr QLatin1StringView idKey { "id" };
constexpr QLatin1StringView nameKey { "name" };
constexpr QLatin1StringView urlKey { "url" };
constexpr QLatin1StringView logoURLKey { "logoURL" };
constexpr QLatin1StringView groupTitleKey { "groupTitle" };
constexpr QLatin1StringView countryCodeKey { "countryCode" };

// QUuid alone would take braces, and make a null id of anything else.
std::optional<QUuid> uuidFromText(const QString &text)
{
    const QUuid id = QUuid::fromString(text);
    if (id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    return id;
}

// Reads one optional key. False when its value is of the wrong type.
bool readText(const QJsonObject &object, QLatin1StringView key, std::optional<QString> &text)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined() || value.isNull())
        return true;
    if (!value.isString())
        return false;
    text = value.toString();
    return true;
}

// Writes the text straight away: by way of QJsonObject a long list takes several times as long.
class ObjectWriter {
public:
    explicit ObjectWriter(QByteArray &json) : m_json(json) { m_json += '{'; }
    ~ObjectWriter() { m_json += '}'; }
    ObjectWriter(const ObjectWriter &) = delete;
    ObjectWriter &operator=(const ObjectWriter &) = delete;

    void add(QLatin1StringView key, QByteArrayView utf8)
    {
        if (!m_json.endsWith('{'))
            m_json += ',';
        m_json += '"';
        m_json.append(key.data(), key.size());
        m_json += "\":\"";
        appendEscaped(utf8);
        m_json += '"';
    }
    void add(QLatin1StringView key, QLatin1StringView ascii)
    {
        add(key, QByteArrayView(ascii.data(), ascii.size()));
    }

private:
    static bool isPlain(char byte)
    {
        constexpr char firstByteOfMark = '\xef';
        return static_cast<unsigned char>(byte) >= 0x20 && byte != '"' && byte != '\\'
            && byte != firstByteOfMark;
    }

    void appendEscaped(QByteArrayView utf8)
    {
        while (!utf8.isEmpty()) {
            const auto plainEnd = std::find_if_not(utf8.begin(), utf8.end(), isPlain);
            m_json.append(utf8.data(), plainEnd - utf8.begin());
            utf8 = utf8.sliced(plainEnd - utf8.begin());
            if (!utf8.isEmpty())
                utf8 = utf8.sliced(appendEscapedCharacter(utf8));
        }
    }

    // Returns the number of bytes that were taken.
    qsizetype appendEscapedCharacter(QByteArrayView utf8)
    {
        // Escaped, because QJsonDocument drops a byte-order mark at the start of a text that it
        // reads.
        if (utf8.startsWith("\xef\xbb\xbf")) {
            m_json += "\\ufeff";
            return 3;
        }
        const char byte = utf8.front();
        if (static_cast<unsigned char>(byte) < 0x20) {
            m_json += "\\u";
            m_json += QByteArray::number(byte, 16).rightJustified(4, '0');
        } else {
            if (byte == '"' || byte == '\\')
                m_json += '\\';
            m_json += byte;
        }
        return 1;
    }

    QByteArray &m_json;
};

void appendEntry(QByteArray &json, const PlaylistEntry &entry)
{
    ObjectWriter object(json);
    if (const auto countryCode = entry.countryCode())
        object.add(countryCodeKey, countryCode->toUtf8());
    if (const auto groupTitle = entry.groupTitle())
        object.add(groupTitleKey, groupTitle->toUtf8());
    object.add(idKey, entry.id().toByteArray(QUuid::WithoutBraces));
    if (!entry.logoAddress().isEmpty())
        object.add(logoURLKey, entry.logoAddress());
    object.add(nameKey, entry.name().toUtf8());
    object.add(urlKey, entry.address());
}

} // namespace

QByteArray playlistEntryToJson(const PlaylistEntry &entry)
{
    QByteArray json;
    appendEntry(json, entry);
    return json;
}

std::optional<PlaylistEntry> playlistEntryFromJson(const QJsonValue &json)
{
    if (!json.isObject())
        return std::nullopt;
    const QJsonObject object = json.toObject();
    std::optional<QString> idText;
    std::optional<QString> name;
    std::optional<QString> urlText;
    std::optional<QString> logoText;
    PlaylistEntry::Fields fields;
    const bool haveRightTypes = readText(object, idKey, idText) && readText(object, nameKey, name)
        && readText(object, urlKey, urlText) && readText(object, logoURLKey, logoText)
        && readText(object, groupTitleKey, fields.groupTitle)
        && readText(object, countryCodeKey, fields.countryCode);
    if (!haveRightTypes || !idText || !name || !urlText)
        return std::nullopt;

    const auto id = uuidFromText(*idText);
    const auto url = AddressText::fromText(*urlText);
    if (!id || !url || !url->isAbsolute())
        return std::nullopt;
    if (logoText) {
        fields.logoURL = AddressText::fromText(*logoText);
        if (!fields.logoURL)
            return std::nullopt;
    }
    fields.id = *id;
    fields.name = *name;
    fields.url = *url;
    return PlaylistEntry(fields);
}

QByteArray playlistToJson(const QList<PlaylistEntry> &entries)
{
    QByteArray json = "[";
    for (const PlaylistEntry &entry : entries) {
        if (json.size() > 1)
            json += ',';
        appendEntry(json, entry);
    }
    json += ']';
    return json;
}

std::optional<QList<PlaylistEntry>> playlistFromJson(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    const QJsonArray array = document.array();
    QList<PlaylistEntry> entries;
    entries.reserve(array.size());
    for (const QJsonValue value : array) {
        auto entry = playlistEntryFromJson(value);
        if (!entry)
            return std::nullopt;
        entries += *std::move(entry);
    }
    return entries;
}

} // namespace zeph
