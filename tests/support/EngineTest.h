// What the tests that play something share.
#pragma once

#include "platform/MediaPlayer.h"
#include "support/Patience.h"

#include <QCoreApplication>

#include <clocale>
#include <memory>

namespace zeph {

/// One of the clips that tests/clips/make-clips makes.
QString clipPath(const QString &name);
QUrl clipUrl(const QString &name);

QUrl shortClip(); ///< of 2 s
QUrl longClip(); ///< of 30 s
QUrl missingClip();

/// Makes `player` open the address, and answers with the item, which the player owns.
MediaItem *open(MediaPlayer &player, const QUrl &url);

/// Waits until the item is ready or has failed, and answers with which; `Unknown` when it is
/// neither in time.
MediaItem::Status settledStatus(const MediaItem *item);

/// Waits until `player` plays and has got past `seconds`.
bool playsPast(const MediaPlayer &player, double seconds);

} // namespace zeph

// QTEST_GUILESS_MAIN with the number format that the engine needs, whatever the user's locale: the
// application object sets that of the environment.
#define ZEPH_ENGINE_TEST_MAIN(TestClass)                                                           \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        QCoreApplication app(argc, argv);                                                          \
        std::setlocale(LC_NUMERIC, "C");                                                           \
        TestClass test;                                                                            \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
