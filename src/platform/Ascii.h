// Letters and digits of ASCII in text of bytes, whatever the locale.
#pragma once

namespace zeph {

constexpr bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

constexpr bool isHexDigit(char byte)
{
    return (byte >= '0' && byte <= '9') || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'f');
}

/// Bytes that are no letters of ASCII stay as they are.
constexpr char lowerAscii(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
}

/// Bytes that are no letters of ASCII stay as they are.
constexpr char upperAscii(char byte)
{
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte & ~0x20) : byte;
}

} // namespace zeph
