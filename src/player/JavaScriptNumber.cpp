#include "player/JavaScriptNumber.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zeph {

QString javaScriptNumber(double value)
{
    // The bounds within which a double is written without an exponent.
    const double magnitude = std::abs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 0x1p54);
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
        plain ? std::chars_format::fixed : std::chars_format::scientific);
    QString text = QString::fromLatin1(buffer.data(), end.ptr - buffer.data());
    if (plain && !text.contains(u'.'))
        text += QStringLiteral(".0");
    return text;
}

} // namespace zeph
