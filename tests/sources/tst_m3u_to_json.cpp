// The program m3u-to-json, as it is run.
#include "sources/PlaylistEntryJson.h"

#include <QProcess>
#include <QTest>

using namespace zeph;

namespace {

struct Outcome {
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome run(const QStringList &arguments, const QByteArray &input = {})
{
    QProcess program;
    program.start(QStringLiteral(ZEPH_M3U_TO_JSON), arguments);
    program.write(input);
    program.closeWriteChannel();
    Outcome outcome;
    if (program.waitForFinished() && program.exitStatus() == QProcess::NormalExit)
        outcome.status = program.exitCode();
    outcome.output = program.readAllStandardOutput();
    outcome.errors = program.readAllStandardError();
    return outcome;
}

const QStringList base(QStringLiteral("http://h/list/p.m3u"));

} // namespace

class M3uToJsonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsTheEntries();
    void printsManyEntries();
    void printsNoEntries();
    void refusesABadBase_data();
    void refusesABadBase();
    void failsWhenItsOutputIsFull();
};

void M3uToJsonTest::printsTheEntries()
{
    const Outcome outcome =
        run(base, "#EXTINF:-1 group-title=\"G\",\"A\" \u0416\nhttp://x/a\n1.m3u8");
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, "");
    const auto entries = playlistFromJson(outcome.output);
    QVERIFY(entries);
    QCOMPARE(entries->size(), 2);
    QCOMPARE(entries->at(0).name(), QStringLiteral("\"A\" \u0416"));
    QCOMPARE(entries->at(0).groupTitle(), QStringLiteral("G"));
    QCOMPARE(entries->at(1).address(), QLatin1StringView("http://h/list/1.m3u8"));
}

void M3uToJsonTest::printsManyEntries()
{
    constexpr int count = 20'000;
    const Outcome outcome = run(base, QByteArray("live/1.m3u8\n").repeated(count));
    QCOMPARE(outcome.status, 0);
    const auto entries = playlistFromJson(outcome.output);
    QVERIFY(entries);
    QCOMPARE(entries->size(), count);
}

void M3uToJsonTest::printsNoEntries()
{
    const Outcome outcome = run(base, "#EXTM3U\n");
    QCOMPARE(outcome.status, 0);
    QCOMPARE(playlistFromJson(outcome.output), QList<PlaylistEntry>());
}

void M3uToJsonTest::refusesABadBase_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("none") << QStringList() << QByteArray("usage");
    QTest::newRow("two") << QStringList(2, base[0]) << QByteArray("usage");
    for (const char *text : { "", "p.m3u", "/list/p.m3u", "http://a b/", "http://h:x/" })
        QTest::newRow(text) << QStringList(QString::fromUtf8(text))
                            << QByteArray("not an absolute address: ") + text;
}

void M3uToJsonTest::refusesABadBase()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    const Outcome outcome = run(arguments, "http://x/a\n");
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.output, "");
    QVERIFY2(outcome.errors.contains(complaint), outcome.errors);
}

void M3uToJsonTest::failsWhenItsOutputIsFull()
{
    QProcess program;
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    program.start(QStringLiteral(ZEPH_M3U_TO_JSON), base);
    program.write("http://x/a\n");
    program.closeWriteChannel();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(program.readAllStandardError().startsWith("m3u-to-json: "));
}

QTEST_GUILESS_MAIN(M3uToJsonTest)
#include "tst_m3u_to_json.moc"
