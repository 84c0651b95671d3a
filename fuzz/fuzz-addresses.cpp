// What becomes of a typed or pasted address, and what is promised of it.
#include "player/PlayerModel.h"
#include "sources/UrlPath.h"

using namespace zeph;

namespace {

void require(bool promise)
{
    if (!promise)
        qFatal("a promise is broken");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    const QString address = PlayerModel::normalizedRemoteAddress(text);
    require(address == trimmedText(address));
    require(text.contains(address));
    if (const auto accepted = AddressText::fromText(address)) {
        const QUrl url = accepted->toUrl();
        require(url.isValid() || address.isEmpty());
        require(!pathExtension(url).contains(QLatin1Char('.')));
        if (PlayerModel::isIPTVPlaylistURL(url))
            require(address.contains(QLatin1String("m3u"), Qt::CaseInsensitive)
                || address.contains(QLatin1Char('%')));
    }
    return 0;
}
