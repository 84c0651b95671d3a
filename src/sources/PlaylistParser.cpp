#include "sources/PlaylistParser.h"

#include "sources/AddressParts.h"
#include "sources/AddressReader.h"
#include "sources/AddressResolver.h"
#include "sources/CountryCode.h"
#include "sources/ExtInfLine.h"
#include "sources/LastByte.h"
#include "sources/RandomUuids.h"
#include "sources/SharedTexts.h"
#include "sources/Utf8Space.h"

#include <QUrl>

namespace zeph {

namespace {

// Longer lines are skipped. It keeps every size of an entry within 32 bits, even when all of the
// line has to be percent-encoded.
constexpr qsizetype longestLine = qsizetype { 1 } << 30;

// The name of an address that came without one, in UTF-8.
QByteArray nameFromAddress(QByteArrayView address)
{
    QByteArrayView path = splitAddress(address).path;
    while (path.endsWith('/'))
        path.chop(1);
    const qsizetype start = lastIndexOf(path, '/') + 1;
    QByteArray name = QByteArray::fromPercentEncoding(path.sliced(start).toByteArray());
    if (!name.isEmpty() && name.isValidUtf8())
        return name;
    const QString host = QUrl::fromEncoded(address.toByteArray()).host();
    return host.isEmpty() ? QByteArrayLiteral("Stream") : host.toUtf8();
}

class Parsing {
public:
    explicit Parsing(const QUrl &base)
        : m_resolver(AddressText::fromUrl(base).value_or(AddressText()))
    {
    }

    void takeLine(QByteArrayView line)
    {
        const QByteArrayView trimmed = trimmedUtf8(line);
        if (trimmed.isEmpty() || trimmed.size() > longestLine)
            return;
        if (ExtInfLine::isOne(trimmed))
            takeMetadata(ExtInfLine::read(trimmed, trimmed.end() != line.end()));
        else if (!trimmed.startsWith('#'))
            takeAddress(trimmed);
    }

    QList<PlaylistEntry> takeEntries() { return std::move(m_entries); }

private:
    // What the metadata lines say about the next address.
    struct Pending {
        QByteArrayView name;
        QByteArrayView logo;
        QByteArrayView group;
        CountryCode country;
    };

    void takeMetadata(const ExtInfLine &line)
    {
        m_pending.name = line.title.isEmpty() ? line.tvgName : line.title;
        const auto logo = m_logoReader.read(line.tvgLogo);
        m_pending.logo = logo ? logo->text : QByteArrayView();
        m_pending.group = line.groupTitle;
        m_pending.country =
            declaredCountryCode(line.tvgCountry.isEmpty() ? line.country : line.tvgCountry);
        if (m_pending.country.empty())
            m_pending.country = inferredCountryCode(line.tvgID);
    }

    void takeAddress(QByteArrayView text)
    {
        const auto address = m_resolver.resolve(text);
        if (!address)
            return;
        PlaylistEntry::Utf8Fields fields;
        fields.id = m_ids.next();
        fields.url = *address;
        QByteArray ownName;
        if (m_pending.name.isEmpty())
            ownName = nameFromAddress(*address);
        fields.name = m_pending.name.isEmpty() ? QByteArrayView(ownName) : m_pending.name;
        if (!m_pending.logo.isEmpty())
            fields.logoURL = m_pending.logo;
        if (!m_pending.group.isEmpty())
            fields.groupTitle = m_groups.text(m_pending.group);
        if (!m_pending.country.empty())
            fields.countryCode = m_pending.country;
        m_entries.emplaceBack(fields);
        m_pending = {};
    }

    AddressResolver m_resolver;
    AddressReader m_logoReader;
    RandomUuids m_ids;
    SharedTexts m_groups;
    Pending m_pending;
    QList<PlaylistEntry> m_entries;
};

} // namespace

QList<PlaylistEntry> PlaylistParser::parse(const PlaylistText &text, const QUrl &base)
{
    Parsing parsing(base);
    for (LineSplitter lines(text.utf8()); lines.next();)
        parsing.takeLine(lines.line());
    return parsing.takeEntries();
}

} // namespace zeph
