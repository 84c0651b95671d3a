#include "support/EngineTest.h"
#include "support/Patience.h"

#include <utility>

namespace zeph {

QString clipPath(const QString &name)
{
    const QString folder = qEnvironmentVariable("ZEPH_CLIPS");
    if (folder.isEmpty())
        qFatal("ZEPH_CLIPS has to name the folder that tests/clips/make-clips has filled");
    return folder + QLatin1Char('/') + name;
}

QUrl clipUrl(const QString &name)
{
    return QUrl::fromLocalFile(clipPath(name));
}

QUrl shortClip()
{
    return clipUrl(QStringLiteral("clip.mp4"));
}

QUrl longClip()
{
    return clipUrl(QStringLiteral("long.mp4"));
}

QUrl missingClip()
{
    return clipUrl(QStringLiteral("nothing-there.mp4"));
}

MediaItem *open(MediaPlayer &player, const QUrl &url)
{
    auto item = std::make_unique<MediaItem>(url);
    MediaItem *opened = item.get();
    player.replaceCurrentItem(std::move(item));
    return opened;
}

MediaItem::Status settledStatus(const MediaItem *item)
{
    (void)QTest::qWaitFor(
        [item] { return item->status() != MediaItem::Status::Unknown; }, patience);
    return item->status();
}

bool playsPast(const MediaPlayer &player, double seconds)
{
    const auto past = [&player, seconds] {
        return player.timeControlStatus() == MediaPlayer::TimeControlStatus::Playing
            && player.currentTime() > seconds;
    };
    return QTest::qWaitFor(past, patience);
}

} // namespace zeph
