#include "player/MediaFileTypes.h"

namespace zeph {

const QStringList &mediaFileExtensions()
{
    static const QStringList extensions =
        QStringLiteral("mp4 mov mkv avi webm m4v mpeg mpg ts m2ts 3gp 3g2 mp3 m4a aac wav aiff caf")
            .split(u' ');
    return extensions;
}

} // namespace zeph
