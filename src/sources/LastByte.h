// Where a byte stands last in a text.
#pragma once

#include <QByteArrayView>

#include <string_view>

namespace zeph {

/// -1 when it stands nowhere. To be used rather than QByteArrayView's own lastIndexOf(), which with
/// Qt 6.8 looks at what follows an empty view.
inline qsizetype lastIndexOf(QByteArrayView text, char byte)
{
    const std::string_view view(text.data(), static_cast<std::size_t>(text.size()));
    return static_cast<qsizetype>(view.rfind(byte));
}

} // namespace zeph
