// What a player core answers.
#include "platform/MpvClient.h"
#include "support/EngineTest.h"
#include "support/Patience.h"

#include <QSignalSpy>

using namespace zeph;

class TestMpvClient : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhetherACommandIsAccepted();
};

void TestMpvClient::tellsWhetherACommandIsAccepted()
{
    const std::shared_ptr<MpvHandle> handle = MpvHandle::create();
    QVERIFY(handle);
    MpvClient client(handle);
    QSignalSpy finished(&client, &MpvClient::commandFinished);
    // Nothing is open.
    client.command({ "seek", "5", "absolute" }, 1);
    client.command({ "stop" }, 2);
    QTRY_COMPARE(finished.count(), 2);
    const QVariantList refused { 1ULL, false, 0LL };
    const QVariantList accepted { 2ULL, true, 0LL };
    QCOMPARE(finished.at(0), refused);
    QCOMPARE(finished.at(1), accepted);
}

ZEPH_ENGINE_TEST_MAIN(TestMpvClient)
#include "tst_mpv_client.moc"
