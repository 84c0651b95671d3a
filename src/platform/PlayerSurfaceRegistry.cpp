#include "platform/PlayerSurfaceRegistry.h"

namespace zeph {

PlayerSurfaceRegistry &PlayerSurfaceRegistry::shared()
{
    static PlayerSurfaceRegistry registry;
    return registry;
}

} // namespace zeph
