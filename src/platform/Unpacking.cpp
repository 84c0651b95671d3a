#include "platform/Unpacking.h"

#include <zlib.h>

#include <array>
#include <utility>

namespace zeph {

namespace {

class Inflater {
public:
    explicit Inflater(qint64 limit) : m_limit(limit)
    {
        constexpr int gzipOrZlib = MAX_WBITS + 32;
        if (inflateInit2(&m_stream, gzipOrZlib) != Z_OK)
            m_unpacked.error = UnpackingError::damaged;
    }
    ~Inflater() { inflateEnd(&m_stream); }
    Inflater(const Inflater &) = delete;
    Inflater &operator=(const Inflater &) = delete;

    void take(const QByteArray &packed)
    {
        // The library's interface is older than const; it only reads.
        m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.constData()));
        m_stream.avail_in = static_cast<uInt>(packed.size());
        do {
            inflateMore();
        } while (!failed() && (m_stream.avail_in > 0 || m_stream.avail_out == 0));
    }

    bool failed() const { return m_unpacked.error != UnpackingError::none; }

    Unpacked finish()
    {
        if (!failed() && !m_partEnded)
            m_unpacked.error = UnpackingError::damaged;
        if (failed())
            m_unpacked.bytes = {};
        return std::move(m_unpacked);
    }

private:
    void inflateMore()
    {
        if (m_partEnded && m_stream.avail_in > 0)
            inflateReset(&m_stream);
        m_stream.next_out = reinterpret_cast<Bytef *>(m_output.data());
        m_stream.avail_out = static_cast<uInt>(m_output.size());
        const int result = inflate(&m_stream, Z_NO_FLUSH);
        m_partEnded = result == Z_STREAM_END || (m_partEnded && result == Z_BUF_ERROR);
        // The latter only says that there is nothing to do.
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) {
            m_unpacked.error = UnpackingError::damaged;
            return;
        }
        const auto size = static_cast<qsizetype>(m_output.size() - m_stream.avail_out);
        if (m_unpacked.bytes.size() + size > m_limit)
            m_unpacked.error = UnpackingError::tooLarge;
        else
            m_unpacked.bytes.append(m_output.data(), size);
    }

    const qint64 m_limit;
    z_stream m_stream {};
    std::array<char, std::size_t { 1 } << 16> m_output;
    bool m_partEnded = false;
    Unpacked m_unpacked;
};

qsizetype totalSize(const QList<QByteArray> &pieces)
{
    qsizetype size = 0;
    for (const QByteArray &piece : pieces)
        size += piece.size();
    return size;
}

} // namespace

Unpacked join(QList<QByteArray> pieces)
{
    QByteArray bytes;
    bytes.reserve(totalSize(pieces));
    // Each is gone once it is copied, so that the memory is never needed twice.
    for (QByteArray &piece : pieces)
        bytes += std::exchange(piece, {});
    return { bytes };
}

Unpacked unpack(QList<QByteArray> pieces, qint64 limit)
{
    Inflater inflater(limit);
    for (QByteArray &piece : pieces) {
        if (inflater.failed())
            break;
        inflater.take(std::exchange(piece, {}));
    }
    return inflater.finish();
}

} // namespace zeph
