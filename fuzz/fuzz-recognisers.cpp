// The recognisers of the video services' addresses, and what is promised of what they find.
#include "sources/OKVideoContent.h"
#include "sources/YouTubeContent.h"

using namespace zeph;

namespace {

void require(bool promise)
{
    if (!promise)
        qFatal("a promise is broken");
}

bool isFilled(const std::optional<QString> &id)
{
    return id && !id->isEmpty();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QUrl url(QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size))));
    if (const auto content = YouTubeContent::fromUrl(url)) {
        require(isFilled(content->videoID) || isFilled(content->playlistID));
        require(content->id().size() > 1);
    }
    if (const auto content = OKVideoContent::fromUrl(url)) {
        require(!content->videoID.isEmpty());
        require(OKVideoContent::fromUrl(content->embedURL()) == content);
    }
    return 0;
}
