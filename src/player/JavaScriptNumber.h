// Numbers as they are written into the scripts for the web players.
#pragma once

#include <QString>

namespace zeph {

/// The shortest decimal form that reads back as `value`, always with a point or an exponent:
/// 5.0, -20.0, 0.35, 1e-05.
QString javaScriptNumber(double value);

} // namespace zeph
