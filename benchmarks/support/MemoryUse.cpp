#include "support/MemoryUse.h"

#include <QByteArray>
#include <QFile>

namespace zeph::bench {

namespace {

qint64 statusValue(QByteArrayView key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    constexpr qint64 kibibyte = 1024;
    const auto lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key))
            return line.sliced(key.size()).trimmed().split(' ').constFirst().toLongLong()
                * kibibyte;
    }
    return 0;
}

} // namespace

void resetPeakMemory()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

qint64 peakMemory()
{
    return statusValue("VmHWM:");
}

qint64 currentMemory()
{
    return statusValue("VmRSS:");
}

} // namespace zeph::bench
