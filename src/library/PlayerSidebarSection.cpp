#include "library/PlayerSidebarSection.h"

namespace zeph {

QString rawValue(PlayerSidebarSection section)
{
    switch (section) {
    case PlayerSidebarSection::Network:
        return QStringLiteral("network");
    case PlayerSidebarSection::LocalM3U:
        return QStringLiteral("localM3U");
    }
    Q_UNREACHABLE();
}

} // namespace zeph
