#include "sources/AddressText.h"

#include "sources/AddressParts.h"
#include "sources/AddressReader.h"

namespace zeph {

std::optional<AddressText> AddressText::fromText(QStringView text)
{
    if (!text.isValidUtf16())
        return std::nullopt;
    const QByteArray utf8 = text.toUtf8();
    AddressReader reader;
    const auto address = reader.read(utf8);
    if (!address)
        return std::nullopt;
    return AddressText(address->text.toByteArray());
}

std::optional<AddressText> AddressText::fromUrl(const QUrl &url)
{
    return fromText(QString::fromLatin1(url.toEncoded()));
}

bool AddressText::isAbsolute() const
{
    return schemeSize(m_text) > 0;
}

} // namespace zeph
