#include "sources/RandomUuids.h"

namespace zeph {

QUuid RandomUuids::next()
{
    quint64 words[2];
    m_random.fillRange(words);
    const auto byte = [&words](int index) { return static_cast<uchar>(words[1] >> (8 * index)); };
    constexpr ushort version = 0x4000;
    constexpr uchar variant = 0x80;
    return QUuid(static_cast<uint>(words[0]), static_cast<ushort>(words[0] >> 32),
        static_cast<ushort>(version | (words[0] >> 52)),
        static_cast<uchar>(variant | (byte(0) & 0x3f)), byte(1), byte(2), byte(3), byte(4), byte(5),
        byte(6), byte(7));
}

} // namespace zeph
