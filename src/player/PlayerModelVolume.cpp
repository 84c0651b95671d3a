// Steps of the volume, as the keys ask for them.
#include "player/PlayerModel.h"

#include <cmath>

namespace zeph {

namespace {

constexpr quint64 volumeToastNanoseconds = 1'200'000'000;

// Whole per cent, less what is left over. A binary fraction may lack a hair of the decimal that it
// stands for, which must not cost a per cent: five less than 95 is 90.
double wholePercent(double volume)
{
    constexpr double hair = 1e-6;
    return std::trunc(volume * 100 + std::copysign(hair, volume));
}

} // namespace

void PlayerModel::adjustVolume(double delta)
{
    if (std::isnan(delta))
        return;
    setVolume(wholePercent(m_volume + delta) / 100);
    const QString message = m_volume == 0
        ? tr("Volume: 0% (Muted)")
        : tr("Volume: %1%").arg(static_cast<int>(wholePercent(m_volume)));
    showToast(message, volumeToastNanoseconds);
}

} // namespace zeph
