// What can be played again after it was stopped.
#pragma once

#include "sources/OKVideoContent.h"
#include "sources/YouTubeContent.h"

#include <QString>
#include <QUrl>

#include <variant>

namespace zeph {

struct LastMedia {
    QUrl url;
    QString title;
    bool isLiveStream = false;
};

struct LastYouTube {
    YouTubeContent content;
    QString title;
};

struct LastOKVideo {
    OKVideoContent content;
    QString title;
};

using LastPlayableSource = std::variant<LastMedia, LastYouTube, LastOKVideo>;

} // namespace zeph
