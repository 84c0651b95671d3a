// On the screen at hand, the built program's window and all that is in it can be seen as a whole.
// ZEPH_SCALE says how many pixels a point has, if more than one.
#include "Player.h"

namespace {

/// What a user reads or uses, none of which may cover another.
QList<AccessibleObject> contentsOf(const Player &player)
{
    QList<AccessibleObject> contents = player.findAll();
    contents.removeIf([](const AccessibleObject &object) {
        static const QSet<Role> roles { Role::Button, Role::Label, Role::RadioButton, Role::Slider,
            Role::TextField };
        return !roles.contains(object.role());
    });
    return contents;
}

/// Whether the controls have followed the width of the window.
bool isLaidOut(const Player &player)
{
    const QRect row = player.find(Role::ToolBar, controls).rectangle();
    const QRect last = player.find(Role::Button, QStringLiteral("Enter full screen")).rectangle();
    const QRect window = player.findAll(Role::Frame).value(0).rectangle();
    return !row.isEmpty() && row.right() == window.right() && row.right() - last.right() == 10;
}

QString textOf(const QRect &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

/// What is wrong with the layout; empty when nothing is.
QStringList faultsOf(const Player &player)
{
    QStringList faults;
    if (!QGuiApplication::primaryScreen()->availableGeometry().contains(player.window().frame()))
        faults << QStringLiteral("the window leaves the screen");

    const QList<AccessibleObject> contents = contentsOf(player);
    const QRect window = player.findAll(Role::Frame).value(0).rectangle();
    if (contents.size() < 12)
        faults << QStringLiteral("controls are missing");
    for (const AccessibleObject &object : contents) {
        const QRect place = object.rectangle();
        if (place.isEmpty() || !window.contains(place)) {
            faults << QStringLiteral("%1 (%2) is not within the window (%3)")
                          .arg(object.name(), textOf(place), textOf(window));
        }
        for (const AccessibleObject &other : contents) {
            if (&other != &object && other.rectangle().intersects(place))
                faults << QStringLiteral("%1 covers %2").arg(object.name(), other.name());
        }
    }
    return faults;
}

} // namespace

#define COMPARE_FAULTS(player) QCOMPARE(faultsOf(player).join(u'\n'), QString())

class ScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowFits_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("empty") << QStringList();
        QTest::newRow("21:9") << QStringList { clip("colours-21x9.mp4") };
        QTest::newRow("9:16") << QStringList { clip("colours-9x16.mp4") };
        QTest::newRow("50:1") << QStringList { clip("colours-50x1.mp4") };
    }
    void theWindowFits()
    {
        QFETCH(QStringList, arguments);
        const QString scale = qEnvironmentVariable("ZEPH_SCALE", QStringLiteral("1"));
        const Player player(m_bus, arguments, { QStringLiteral("QT_SCALE_FACTOR=") + scale });
        QVERIFY(player.await(Role::Button, arguments.isEmpty() ? playButton : pauseButton));
        // None of the pictures leaves the window at its first width.
        QTRY_VERIFY(
            arguments.isEmpty() || player.window().contents().width() != 700 * scale.toInt());
        QTRY_VERIFY(isLaidOut(player));
        COMPARE_FAULTS(player);

        QVERIFY(player.pressButton(sidebarButton));
        QVERIFY(player.await(Role::Panel, sidebar));
        QTRY_COMPARE(player.focused().name(), QStringLiteral("Stream address"));
        QTRY_VERIFY(isLaidOut(player));
        COMPARE_FAULTS(player);
        QVERIFY(player.press(Role::RadioButton, QStringLiteral("Local M3U")));
        QVERIFY(player.await(Role::Button, QStringLiteral("Add M3U8 Link")));
        QTRY_VERIFY(isLaidOut(player));
        COMPARE_FAULTS(player);
    }

private:
    AccessibilityBus m_bus;
};

QTEST_MAIN(ScreensTest)
#include "tst_screens.moc"
