// What the benchmarks of the library share.
#pragma once

#include "platform/FilePanels.h"
#include "sources/PlaylistParser.h"
#include "support/ChannelList.h"

#include <benchmark/benchmark.h>

namespace zeph::bench {

class NoPanels final : public FilePanels {
public:
    std::optional<QUrl> chooseFile(const OpenPanel &) override { return std::nullopt; }
    std::optional<QUrl> chooseSaveFile(const SavePanel &) override { return std::nullopt; }
    void showWarning(const WarningAlert &) override { }
};

inline QList<PlaylistEntry> channels(int count)
{
    return PlaylistParser::parse(PlaylistText::fromBytes(channelList(count)), QUrl());
}

/// As many as the benchmark's first argument says.
inline QList<PlaylistEntry> channels(const benchmark::State &state)
{
    return channels(static_cast<int>(state.range(0)));
}

} // namespace zeph::bench
