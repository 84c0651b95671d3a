// What the tests with web pages share.
#pragma once

#include "PlayerWindow.h"
#include "VideoServices.h"
#include "WebAddresses.h"

#include <QTest>

/// Lets no test end with a warning, and gives the next one the services as they were at first. Has
/// a ZEPH_WEB_TEST_MAIN.
class WebTest : public QObject {
    Q_OBJECT

public:
    /// The services outlive it.
    explicit WebTest(VideoServices &services) : m_services(services) { }

protected:
    /// Test data: an address of each service.
    static void eachService();

    VideoServices &m_services;

protected Q_SLOTS:
    void cleanup();
};

// Instead of QTEST_MAIN.
#define ZEPH_WEB_TEST_MAIN(TestClass)                                                              \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        VideoServices services;                                                                    \
        TestClass test(services);                                                                  \
        const auto runTest = [&] { return QTest::qExec(&test, argc, argv); };                      \
        return PlayerWindow::run(argc, argv, runTest);                                             \
    }
