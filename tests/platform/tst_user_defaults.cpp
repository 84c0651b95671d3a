// What is remembered, in real files.
#include "platform/UserDefaults.h"
#include "support/Files.h"
#include "support/FullDisk.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include <atomic>
#include <sys/stat.h>
#include <thread>

using namespace zeph;

namespace {

const QString key = QStringLiteral("Some.Key-1");

QByteArray randomText(QRandomGenerator &random)
{
    const QString letters = QStringLiteral("\"\\@[]{},;:=%/ abcdefxn0179\n\r\t\v\a\b\f\u007f"
                                           "\u00e4\u0416\u2028\U0001f4fa")
        + QChar(1) + QChar(0x1f);
    QString text;
    const int size = random.bounded(12);
    for (int i = 0; i < size; ++i)
        text += letters[random.bounded(letters.size())];
    return text.toUtf8();
}

std::optional<QString> store(UserDefaults defaults, const QString &name, const QByteArray &text)
{
    return defaults.setText(defaults.lock(), name, text);
}

} // namespace

class UserDefaultsTest : public QObject {
    Q_OBJECT

public:
    explicit UserDefaultsTest(const SmallDisk &disk) : m_disk(disk) { }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_file = m_folder->filePath(QStringLiteral("settings/test.conf"));
    }

    void remembers()
    {
        UserDefaults defaults(m_file);
        QCOMPARE(defaults.text(key), std::nullopt);
        QVERIFY(!QFile::exists(m_file));
        QCOMPARE(store(defaults, key, "one"), std::nullopt);
        QCOMPARE(defaults.text(key), "one");
        QCOMPARE(UserDefaults(m_file).text(key), "one");
        const QByteArray zero("1\0002", 3);
        QCOMPARE(store(defaults, key, zero), std::nullopt);
        QCOMPARE(defaults.text(key), zero);
        QCOMPARE(store(defaults, key, ""), std::nullopt);
        QCOMPARE(defaults.text(key), "");
        QCOMPARE(contentOf(m_file), "[General]\nSome.Key-1=\"\"\n");
    }

    void isInTheUsersFolder()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("organization"));
        QCoreApplication::setApplicationName(QStringLiteral("application"));
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::ConfigLocation);
        const QString file = folder + QStringLiteral("/organization/application.conf");
        QFile::remove(file);
        QCOMPARE(store(UserDefaults(), key, "one"), std::nullopt);
        QCOMPARE(UserDefaults(file).text(key), "one");
        QVERIFY(QDir(folder + QStringLiteral("/organization")).removeRecursively());
    }

    void seesWhatOthersStored()
    {
        UserDefaults defaults(m_file);
        QCOMPARE(store(defaults, key, "one"), std::nullopt);
        QVERIFY(writeFile(m_file, "[General]\nSome.Key-1=\"another\"\n"));
        QCOMPARE(defaults.text(key), "another");
        QVERIFY(QFile::remove(m_file));
        QCOMPARE(store(defaults, key, "two"), std::nullopt);
        QCOMPARE(UserDefaults(m_file).text(key), "two");
    }

    // Copies, because QSettings reads a file that it knows only once.
    void isReadByQSettingsAndReadsWhatThatWrites()
    {
        QRandomGenerator random(11);
        for (int i = 0; i < 300; ++i) {
            const QByteArray text = randomText(random);
            UserDefaults defaults(m_file);
            QCOMPARE(store(defaults, key, text), std::nullopt);
            const QString copy = m_folder->filePath(QStringLiteral("%1.conf").arg(i));
            QVERIFY(QFile::copy(m_file, copy));
            QCOMPARE(UserDefaults(copy).text(key), text);

            const QString sameCopy = m_folder->filePath(QStringLiteral("%1.ini").arg(i));
            QVERIFY(QFile::copy(m_file, sameCopy));
            QCOMPARE(
                QSettings(sameCopy, QSettings::IniFormat).value(key).toString().toUtf8(), text);

            const QString other = m_folder->filePath(QStringLiteral("other%1.ini").arg(i));
            QSettings(other, QSettings::IniFormat).setValue(key, QString::fromUtf8(text));
            const QString otherCopy = m_folder->filePath(QStringLiteral("other%1.conf").arg(i));
            QVERIFY(QFile::copy(other, otherCopy));
            QCOMPARE(UserDefaults(otherCopy).text(key), text);
        }
    }

    void readsOnlyTexts_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("list") << QByteArray("a, b");
        QTest::newRow("quoted list") << QByteArray(R"("a", "b")");
        QTest::newRow("object") << QByteArray(R"(@Variant(\0\0\0\f\xff\xff\xff\xfe))");
        QTest::newRow("bytes") << QByteArray("@ByteArray(abc)");
        QTest::newRow("open quote") << QByteArray(R"("abc)");
        QTest::newRow("one quote") << QByteArray(R"(")");
        QTest::newRow("half an escape") << QByteArray(R"("abc\")");
        QTest::newRow("no number") << QByteArray(R"("abc\xg")");
        QTest::newRow("great number") << QByteArray(R"("abc\xfffffffffffffffff")");
        QTest::newRow("unknown escape") << QByteArray(R"("abc\q")");
    }

    void readsOnlyTexts()
    {
        QFETCH(QByteArray, value);
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath(QStringLiteral("test.conf"));
        QVERIFY(writeFile(m_file, "[General]\nSome.Key-1=" + value + '\n'));
        UserDefaults defaults(m_file);
        QCOMPARE(defaults.text(key), std::nullopt);
        // It is kept all the same.
        QCOMPARE(store(defaults, QStringLiteral("Other"), "x"), std::nullopt);
        QCOMPARE(contentOf(m_file), "[General]\nOther=\"x\"\nSome.Key-1=" + value + '\n');
    }

    void keepsWhatIsNotItsOwn()
    {
        m_file = m_folder->filePath(QStringLiteral("test.conf"));
        QVERIFY(writeFile(m_file,
            "x=1\r\n; remark\n# remark\nno setting\n=\n[Window]\nsize=@Size(3 4)\n"
            "a%20b=2\n\n[%General]\nx=a, b\n"));
        UserDefaults defaults(m_file);
        QCOMPARE(defaults.text(QStringLiteral("x")), "1");
        QCOMPARE(defaults.text(QStringLiteral("size")), std::nullopt);
        QCOMPARE(store(defaults, key, "one"), std::nullopt);
        QCOMPARE(contentOf(m_file),
            "[General]\nSome.Key-1=\"one\"\nx=\"1\"\n\n[%General]\nx=a, b\n\n"
            "[Window]\na%20b=\"2\"\nsize=@Size(3 4)\n");
    }

    void isForItsUserOnly()
    {
        UserDefaults defaults(m_file);
        QCOMPARE(store(defaults, key, "one"), std::nullopt);
        const auto others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(m_file) & others));
        // Unless the user wants it otherwise.
        QVERIFY(QFile::setPermissions(m_file, QFile::permissions(m_file) | QFile::ReadGroup));
        QCOMPARE(store(defaults, key, "two"), std::nullopt);
        QVERIFY(QFile::permissions(m_file) & QFile::ReadGroup);
    }

    void followsLinks()
    {
        UserDefaults defaults(m_file);
        QCOMPARE(store(defaults, key, "one"), std::nullopt);
        const QString link = m_folder->filePath(QStringLiteral("link.conf"));
        QVERIFY(QFile::link(m_file, link));
        QCOMPARE(UserDefaults(link).text(key), "one");
        QCOMPARE(store(UserDefaults(link), key, "two"), std::nullopt);
        QVERIFY(QFileInfo(link).isSymbolicLink());
        QVERIFY(contentOf(m_file).contains("two"));
    }

    // With the rights of root it could be replaced, as a device could.
    void leavesWhatIsNoFile()
    {
        m_file = m_folder->filePath(QStringLiteral("test.conf"));
        QCOMPARE(::mkfifo(QFile::encodeName(m_file).constData(), 0600), 0);
        QCOMPARE(UserDefaults(m_file).text(key), std::nullopt);
        QVERIFY(store(UserDefaults(m_file), key, "one"));
        struct stat file { };
        QCOMPARE(::lstat(QFile::encodeName(m_file).constData(), &file), 0);
        QVERIFY(S_ISFIFO(file.st_mode));
    }

    void leavesNothingElseBehind()
    {
        UserDefaults defaults(m_file);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(store(defaults, key, QByteArray::number(i)), std::nullopt);
        QCOMPARE(QFileInfo(m_file).dir().entryList(
                     QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
            QStringList(QStringLiteral("test.conf")));
    }

    // What a process that is killed at the wrong moment leaves behind.
    void isNotHeldUpByTheDead()
    {
        QCOMPARE(store(UserDefaults(m_file), key, "one"), std::nullopt);
        QVERIFY(writeFile(m_file + QStringLiteral(".lock"), {}));
        QElapsedTimer time;
        time.start();
        QCOMPARE(store(UserDefaults(m_file), key, "two"), std::nullopt);
        QVERIFY(time.elapsed() < 15'000);
    }

    void tellsWhyItCannotStore_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("a file in the way") << QStringLiteral("/etc/passwd/x.conf");
        QTest::newRow("no such folder") << QStringLiteral("/proc/no-such-folder/x.conf");
        QTest::newRow("a folder") << QDir::tempPath();
    }

    void tellsWhyItCannotStore()
    {
        QFETCH(QString, file);
        UserDefaults defaults(file);
        const auto error = store(defaults, key, "one");
        QVERIFY(error);
        QVERIFY(!error->isEmpty());
        QVERIFY2(!error->contains(QStringLiteral("Unknown")), qPrintable(*error));
    }

    void aFullDiskKeepsWhatItHas_data() { FullDisk::addRows(); }

    void aFullDiskKeepsWhatItHas()
    {
        const FullDisk disk(m_disk);
        if (const char *reason = disk.reasonToSkip())
            QSKIP(reason);
        m_file = disk.place(m_file);
        const QByteArray old(100'000, 'a');
        const QByteArray tooLong(1'000'000, 'b');
        UserDefaults defaults(m_file);
        QCOMPARE(store(defaults, key, old), std::nullopt);
        const QByteArray before = contentOf(m_file);
        {
            const auto limit = disk.runFull();
            for (int i = 0; i < 3; ++i) {
                const auto error = store(defaults, key, tooLong);
                QVERIFY(error);
                QCOMPARE(*error, disk.error());
                QCOMPARE(contentOf(m_file), before);
            }
        }
        // As soon as there is room it works again.
        QCOMPARE(store(defaults, key, "short"), std::nullopt);
        QVERIFY(contentOf(m_file).contains("short"));
    }

    void locksOthersOut()
    {
        const QString folder = m_folder->path();
        std::atomic<int> count = 0;
        const auto countUp = [&] {
            for (int i = 0; i < 200; ++i) {
                const FolderLock lock(folder);
                const int before = count;
                std::this_thread::yield();
                count = before + 1;
            }
        };
        std::thread other(countUp);
        countUp();
        other.join();
        QCOMPARE(count.load(), 400);
    }

    void waitsForNobodyForEver()
    {
        const FolderLock first(m_folder->path());
        QVERIFY(first.isHeld());
        QVERIFY(!FolderLock(m_folder->path()).isHeld());
        QVERIFY(!FolderLock(QStringLiteral("/no/such/folder")).isHeld());
    }

private:
    const SmallDisk &m_disk;
    std::optional<QTemporaryDir> m_folder;
    QString m_file;
};

ZEPH_SMALL_DISK_TEST_MAIN(UserDefaultsTest)
#include "tst_user_defaults.moc"
