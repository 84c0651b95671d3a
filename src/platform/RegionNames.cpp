#include "platform/RegionNames.h"

#include <QByteArray>

#include <unicode/ucol.h>
#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace zeph {

namespace {

constexpr const char *english = "en_US";

bool isAsciiLetter(QChar letter)
{
    const char16_t lower = letter.unicode() | u' ';
    return lower >= u'a' && lower <= u'z';
}

struct CloseCollator {
    void operator()(UCollator *collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CloseCollator>;

Collator caseInsensitiveCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(ucol_open(english, &status));
    if (collator)
        ucol_setStrength(collator.get(), UCOL_SECONDARY);
    return collator;
}

// Keys of texts compare as the texts themselves do, and faster.
QByteArray sortKey(const Collator &collator, const QString &text)
{
    if (!collator)
        return text.toUtf8();
    const auto length = static_cast<int>(text.size());
    std::array<std::uint8_t, 512> buffer;
    const int size = ucol_getSortKey(collator.get(), reinterpret_cast<const UChar *>(text.utf16()),
        length, buffer.data(), static_cast<int>(buffer.size()));
    return QByteArray(reinterpret_cast<const char *>(buffer.data()),
        std::min(size, static_cast<int>(buffer.size())));
}

} // namespace

QString regionName(const QString &code)
{
    if (code.size() != 2 || !isAsciiLetter(code.at(0)) || !isAsciiLetter(code.at(1)))
        return code;
    const QByteArray locale = "und_" + code.toLatin1();
    std::array<char16_t, 128> name;
    UErrorCode status = U_ZERO_ERROR;
    const int length = uloc_getDisplayCountry(
        locale.constData(), english, name.data(), static_cast<int>(name.size()), &status);
    // With this warning the name is only the code, in capitals.
    if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING)
        return code;
    return QString::fromUtf16(name.data(), length);
}

QStringList sortedByRegionName(const QStringList &codes)
{
    struct Region {
        QByteArray key;
        QString code;
    };
    const Collator collator = caseInsensitiveCollator();
    std::vector<Region> regions;
    regions.reserve(static_cast<std::size_t>(codes.size()));
    for (const QString &code : codes)
        regions.push_back({ sortKey(collator, regionName(code)), code });
    std::sort(regions.begin(), regions.end(), [](const Region &left, const Region &right) {
        return left.key != right.key ? left.key < right.key : left.code < right.code;
    });
    QStringList sorted;
    sorted.reserve(codes.size());
    for (const Region &region : regions)
        sorted << region.code;
    return sorted;
}

} // namespace zeph
