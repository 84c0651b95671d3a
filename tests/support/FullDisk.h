// Disks without room.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/resource.h>

/// While it lives, this process cannot make a file longer than this. Writing fails in the middle,
/// as it does on a disk that runs full. Needs no rights.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before {};
};

/// A file system of this process's own with room for a few files. To be made while there is but one
/// thread, because a process without rights has to enter a user namespace for it.
class SmallDisk {
public:
    explicit SmallDisk(qsizetype bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    /// Not on a machine that does not allow it at all.
    bool isMounted() const { return m_isMounted; }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    bool m_isMounted = false;
};

/// What a test writes to until there is no room: a small disk for some of its rows, and files that
/// cannot grow for the others, as not every machine allows such a disk.
class FullDisk {
public:
    /// Test data for a test that makes one of these.
    static void addRows();

    /// Within such a test. `disk` outlives it.
    explicit FullDisk(const SmallDisk &disk);

    /// Why the test cannot be run; null when it can.
    const char *reasonToSkip() const;
    /// `path`, or a file of that name on the small disk.
    QString place(const QString &path) const;
    /// From now on, and while the limit lives, no file grows longer than 200 kB; on the small disk
    /// no more than 256 KiB have room anyway.
    std::unique_ptr<FileSizeLimit> runFull() const;
    /// Why writing fails then.
    QString error() const;

private:
    const SmallDisk &m_disk;
    bool m_isReal = false;
};

// Instead of QTEST_GUILESS_MAIN. The test's class is constructed with the `SmallDisk`.
#define ZEPH_SMALL_DISK_TEST_MAIN(TestClass)                                                       \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        const SmallDisk disk(256 << 10);                                                           \
        QCoreApplication application(argc, argv);                                                  \
        TestClass test(disk);                                                                      \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
