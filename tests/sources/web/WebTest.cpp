#include "WebTest.h"

void WebTest::eachService()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("YouTube") << video;
    QTest::newRow("OK") << okVideo;
}

void WebTest::cleanup()
{
    m_services.restore();
    QCOMPARE(PlayerWindow::takeWarnings(), QStringList());
}
