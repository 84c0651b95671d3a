#include "platform/NotificationCenter.h"

namespace zeph {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

} // namespace zeph
