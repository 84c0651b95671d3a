#include "sources/PlaylistEntryJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

} // namespace

QByteArray playlistEntryToJson(const PlaylistEntry &entry)
{
    QJsonObject object {
        { idKey, entry.id().toString(QUuid::WithoutBraces) },
        { nameKey, entry.name() },
        { urlKey, entry.address() },
    };
    if (entry.logoURL())
        object.insert(logoURLKey, entry.logoAddress());
    if (const auto groupTitle = entry.groupTitle())
        object.insert(groupTitleKey, *groupTitle);
    if (const auto countryCode = entry.countryCode())
        object.insert(countryCodeKey, *countryCode);
    // Escaped, because QJsonDocument drops a byte-order mark at the start of a text that it reads.
    return QJsonDocument(object).toJson(QJsonDocument::Compact).replace("\xef\xbb\xbf", "\\ufeff");
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
        json += playlistEntryToJson(entry);
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
