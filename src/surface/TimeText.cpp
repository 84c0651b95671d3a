#include "surface/TimeText.h"

#include <algorithm>
#include <cmath>

namespace zeph {

QString time(double seconds)
{
    if (!std::isfinite(seconds))
        return QStringLiteral("00:00");
    constexpr double most = 1e15;
    const auto whole = static_cast<long long>(std::clamp(std::floor(seconds), -most, most));
    return QString::asprintf("%02lld:%02lld", whole / 60, whole % 60);
}

} // namespace zeph
