#include "ProcessFigures.h"

#include <QDir>
#include <QFile>

namespace {

const QString processesFolder = QStringLiteral("/proc");

QString folderOf(qint64 processId)
{
    return processesFolder + u'/' + QString::number(processId);
}

/// The number after a label of a file that has one in each line; 0 when there is none.
qint64 number(const QByteArray &content, const QByteArray &label)
{
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(label + ':'))
            return line.mid(label.size() + 1).simplified().split(' ').constFirst().toLongLong();
    }
    return 0;
}

QByteArray contentOf(qint64 processId, const char *name)
{
    QFile file(folderOf(processId) + u'/' + QLatin1StringView(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// By the process that started them.
QMultiHash<qint64, qint64> allProcesses()
{
    QMultiHash<qint64, qint64> children;
    const QStringList names = QDir(processesFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        bool isNumber = false;
        const qint64 id = name.toLongLong(&isNumber);
        if (isNumber)
            children.insert(number(contentOf(id, "status"), "PPid"), id);
    }
    return children;
}

} // namespace

ProcessFigures &ProcessFigures::operator+=(const ProcessFigures &other)
{
    memory += other.memory;
    anonymousMemory += other.anonymousMemory;
    fileDescriptors += other.fileDescriptors;
    threads += other.threads;
    processes += other.processes;
    return *this;
}

ProcessFigures figuresOf(qint64 processId)
{
    const QByteArray status = contentOf(processId, "status");
    if (status.isEmpty())
        return {};
    const QByteArray memory = contentOf(processId, "smaps_rollup");
    ProcessFigures figures;
    figures.memory = number(memory, "Rss");
    figures.anonymousMemory = number(memory, "Anonymous");
    figures.threads = static_cast<int>(number(status, "Threads"));
    figures.fileDescriptors =
        static_cast<int>(QDir(folderOf(processId) + QStringLiteral("/fd"))
                             .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                             .size());
    figures.processes = 1;
    return figures;
}

ProcessFigures figuresOfDescendants(qint64 processId)
{
    const QMultiHash<qint64, qint64> all = allProcesses();
    ProcessFigures figures;
    QList<qint64> waiting = all.values(processId);
    while (!waiting.isEmpty()) {
        const qint64 id = waiting.takeLast();
        figures += figuresOf(id);
        waiting += all.values(id);
    }
    return figures;
}
