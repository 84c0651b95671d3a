// Unpacking, next to what the system's gzip packs.
#include "platform/Unpacking.h"

#include <QProcess>
#include <QTest>

using namespace zeph;

namespace {

constexpr qint64 noLimit = qint64 { 1 } << 40;

QByteArray gzip(const QByteArray &bytes)
{
    QProcess process;
    process.start(QStringLiteral("gzip"), { QStringLiteral("--stdout") });
    process.write(bytes);
    process.closeWriteChannel();
    process.waitForFinished();
    return process.readAllStandardOutput();
}

QByteArray zlib(const QByteArray &bytes)
{
    return qCompress(bytes).sliced(4); // without the length, which is Qt's own
}

QList<QByteArray> cut(const QByteArray &bytes, qsizetype size)
{
    QList<QByteArray> pieces;
    for (qsizetype i = 0; i < bytes.size(); i += size)
        pieces << bytes.sliced(i, std::min(size, bytes.size() - i));
    return pieces;
}

QByteArray someBytes(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>((i * 7919) >> (i % 5));
    return bytes;
}

} // namespace

class UnpackingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void joins()
    {
        QCOMPARE(join({}).bytes, QByteArray());
        QCOMPARE(join({ "a", "", "bc" }).bytes, "abc");
    }

    void unpacks_data()
    {
        QTest::addColumn<QByteArray>("packed");
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray bytes = someBytes(200'000);
        QTest::newRow("gzip") << gzip(bytes) << bytes;
        QTest::newRow("zlib") << zlib(bytes) << bytes;
        QTest::newRow("nothing") << gzip("") << QByteArray("");
        QTest::newRow("one output piece") << gzip(bytes.first(65536)) << bytes.first(65536);
        QTest::newRow("two parts") << gzip(bytes) + gzip("b") << bytes + "b";
        QTest::newRow("an empty part") << gzip("a") + gzip("") << QByteArray("a");
    }

    void unpacks()
    {
        QFETCH(const QByteArray, packed);
        QFETCH(const QByteArray, bytes);
        for (const qsizetype size : { 1, 2, 1000, 1 << 30 }) {
            const Unpacked unpacked = unpack(cut(packed, size), noLimit);
            QCOMPARE(unpacked.error, UnpackingError::none);
            QCOMPARE(unpacked.bytes, bytes);
        }
    }

    void refusesWhatIsDamaged()
    {
        const QByteArray packed = gzip(someBytes(10'000));
        QList<QList<QByteArray>> damaged { {}, { "" }, { "hello" }, { packed, "hello" },
            { packed, packed.chopped(1) } };
        for (qsizetype size = 0; size < packed.size(); size += 97)
            damaged << cut(packed.first(size), 50);
        for (qsizetype place = 10; place < packed.size(); place += 97) {
            QByteArray bytes = packed;
            bytes[place] = static_cast<char>(~bytes[place]);
            damaged << QList<QByteArray> { bytes };
        }
        for (const QList<QByteArray> &pieces : damaged) {
            const Unpacked unpacked = unpack(pieces, noLimit);
            QCOMPARE(unpacked.error, UnpackingError::damaged);
            QVERIFY(unpacked.bytes.isEmpty());
        }
    }

    void stopsAtTheLimit()
    {
        const QByteArray packed = gzip(QByteArray(1'000'000, ' '));
        QCOMPARE(unpack({ packed }, 1'000'000).bytes.size(), 1'000'000);
        const Unpacked unpacked = unpack({ packed }, 999'999);
        QCOMPARE(unpacked.error, UnpackingError::tooLarge);
        QVERIFY(unpacked.bytes.isEmpty());
        // What follows is not even looked at.
        QCOMPARE(unpack({ packed, "damaged" }, 1000).error, UnpackingError::tooLarge);
    }
};

QTEST_GUILESS_MAIN(UnpackingTest)
#include "tst_unpacking.moc"
