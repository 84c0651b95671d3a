// Who hears of what is posted.
#include "platform/PlayerNotifications.h"

#include <QQuickWindow>
#include <QTest>

#include <memory>

using namespace zeph;

class TestNotificationCenter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names();
    void observersGetTheirOwnNotificationsOnly();
    void withoutAnObject();
    void ofAnObjectThatIsMore();
    void observersEndWithTheirContext();
    void observersCanBeTakenOff();
    void observersMayPost();
    void oneForTheWholeProgram();
};

void TestNotificationCenter::names()
{
    QCOMPARE(playerSurfaceClicked.name, QLatin1StringView("ZephPlayer.playerSurfaceClicked"));
    QCOMPARE(playerMouseMoved.name, QLatin1StringView("ZephPlayer.playerMouseMoved"));
}

void TestNotificationCenter::observersGetTheirOwnNotificationsOnly()
{
    NotificationCenter center;
    QWindow window;
    QList<QWindow *> clicked;
    QList<QWindow *> moved;
    center.observe(playerSurfaceClicked, this, [&](QWindow *of) { clicked << of; });
    center.observe(playerMouseMoved, this, [&](QWindow *of) { moved << of; });

    center.post(playerSurfaceClicked, &window);
    QCOMPARE(clicked, QList<QWindow *> { &window });
    QVERIFY(moved.isEmpty());
    center.post(playerMouseMoved, &window);
    center.post(playerMouseMoved, &window);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(moved.size(), 2);
}

void TestNotificationCenter::withoutAnObject()
{
    NotificationCenter center;
    QList<QWindow *> clicked;
    center.observe(playerSurfaceClicked, this, [&](QWindow *of) { clicked << of; });
    center.post(playerSurfaceClicked, nullptr);
    QCOMPARE(clicked, QList<QWindow *> { nullptr });
}

void TestNotificationCenter::ofAnObjectThatIsMore()
{
    NotificationCenter center;
    QQuickWindow window;
    QWindow *clicked = nullptr;
    center.observe(playerSurfaceClicked, this, [&](QWindow *of) { clicked = of; });
    center.post(playerSurfaceClicked, &window);
    QCOMPARE(clicked, &window);
}

void TestNotificationCenter::observersEndWithTheirContext()
{
    NotificationCenter center;
    int calls = 0;
    auto context = std::make_unique<QObject>();
    center.observe(playerMouseMoved, context.get(), [&](QWindow *) { ++calls; });
    center.post(playerMouseMoved, nullptr);
    context.reset();
    center.post(playerMouseMoved, nullptr);
    QCOMPARE(calls, 1);
}

void TestNotificationCenter::observersCanBeTakenOff()
{
    NotificationCenter center;
    int calls = 0;
    const auto observing = center.observe(playerMouseMoved, this, [&](QWindow *) { ++calls; });
    center.post(playerMouseMoved, nullptr);
    QVERIFY(disconnect(observing));
    center.post(playerMouseMoved, nullptr);
    QCOMPARE(calls, 1);
}

void TestNotificationCenter::observersMayPost()
{
    NotificationCenter center;
    int moved = 0;
    center.observe(
        playerSurfaceClicked, this, [&](QWindow *of) { center.post(playerMouseMoved, of); });
    center.observe(playerMouseMoved, this, [&](QWindow *) { ++moved; });
    center.post(playerSurfaceClicked, nullptr);
    QCOMPARE(moved, 1);
}

void TestNotificationCenter::oneForTheWholeProgram()
{
    QCOMPARE(&NotificationCenter::defaultCenter(), &NotificationCenter::defaultCenter());
}

QTEST_MAIN(TestNotificationCenter)
#include "tst_notification_center.moc"
