// Times as labels show them.
#pragma once

#include <QString>

namespace zeph {

/// Minutes and seconds, as many minutes as there are: "62:05" for 3725 seconds. "00:00" for what is
/// not finite.
QString time(double seconds);

} // namespace zeph
