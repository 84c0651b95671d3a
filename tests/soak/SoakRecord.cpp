#include "SoakRecord.h"

#include "Growth.h"

#include <algorithm>
#include <functional>

namespace {

struct Column {
    const char *name;
    std::function<double(const SoakSample &)> figure;
    /// By how much it may rise: a part of what it is, and an amount in any case.
    double part;
    double amount;
};

constexpr double memoryPart = 0.05;
constexpr double memoryAmount = 10; ///< MiB.
constexpr double count = 2;

double mebibytes(qint64 kibibytes)
{
    return static_cast<double>(kibibytes) / 1024;
}

const QList<Column> &columns()
{
    static const QList<Column> all {
        { "memory", [](const SoakSample &sample) { return mebibytes(sample.program.memory); },
            memoryPart, memoryAmount },
        { "anonymous",
            [](const SoakSample &sample) { return mebibytes(sample.program.anonymousMemory); },
            memoryPart, memoryAmount },
        { "descriptors", [](const SoakSample &sample) { return sample.program.fileDescriptors; }, 0,
            count },
        { "threads", [](const SoakSample &sample) { return sample.program.threads; }, 0, count },
        { "children", [](const SoakSample &sample) { return sample.children.processes; }, 0, 0 },
        { "c-memory", [](const SoakSample &sample) { return mebibytes(sample.children.memory); },
            memoryPart, memoryAmount },
        { "c-anonymous",
            [](const SoakSample &sample) { return mebibytes(sample.children.anonymousMemory); },
            memoryPart, memoryAmount },
        { "c-descriptors", [](const SoakSample &sample) { return sample.children.fileDescriptors; },
            0, count },
        { "c-threads", [](const SoakSample &sample) { return sample.children.threads; }, 0, count },
    };
    return all;
}

constexpr int width = 14;

QString cell(const QString &text)
{
    return text.rightJustified(width);
}

QString cell(double figure)
{
    return cell(QString::number(figure, 'f', 1));
}

Growth growthIn(const QList<SoakSample> &samples, const Column &column, double minutes)
{
    QList<QPointF> points;
    for (const SoakSample &sample : samples)
        points << QPointF(sample.minute, column.figure(sample));
    return growthOf(points, minutes);
}

} // namespace

SoakRecord::SoakRecord(const QString &file) : m_file(file)
{
    if (!m_file.open(QIODevice::WriteOnly))
        qFatal("%s cannot be written", qPrintable(file));
    QByteArray head = "minute,actions,rest";
    for (const Column &column : columns())
        head += QByteArray(",") + column.name;
    m_file.write(head + '\n');
}

void SoakRecord::add(const SoakSample &sample)
{
    QByteArray line = QByteArray::number(sample.minute, 'f', 2) + ','
        + QByteArray::number(sample.actions) + ',' + (sample.atRest ? '1' : '0');
    for (const Column &column : columns())
        line += ',' + QByteArray::number(column.figure(sample), 'f', 1);
    m_file.write(line + '\n');
    m_file.flush();
    if (sample.atRest)
        m_atRest << sample;
}

QString SoakRecord::table() const
{
    QString table = cell(QStringLiteral("minute")) + cell(QStringLiteral("actions"));
    for (const Column &column : columns())
        table += cell(QLatin1StringView(column.name));
    for (const SoakSample &sample : m_atRest) {
        table += u'\n' + cell(sample.minute) + cell(QString::number(sample.actions));
        for (const Column &column : columns())
            table += cell(column.figure(sample));
    }
    return table + u'\n';
}

QString SoakRecord::verdicts(double minutes) const
{
    QString text;
    for (const Column &column : columns()) {
        const Growth growth = growthIn(m_atRest, column, minutes);
        text += cell(QLatin1StringView(column.name)) + QStringLiteral(": ")
            + (growth.isFlat(column.part, column.amount) ? QStringLiteral("flat")
                                                         : QStringLiteral("GROWS"))
            + QStringLiteral(", median %1 at first, %2 at last; the line rises by %3\n")
                  .arg(growth.first, 0, 'f', 1)
                  .arg(growth.last, 0, 'f', 1)
                  .arg(growth.trend, 0, 'f', 1);
    }
    return text;
}

bool SoakRecord::isFlat(double minutes) const
{
    return std::all_of(columns().cbegin(), columns().cend(), [&](const Column &column) {
        return growthIn(m_atRest, column, minutes).isFlat(column.part, column.amount);
    });
}
