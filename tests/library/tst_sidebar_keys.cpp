// Where the keys go when the fields of the sidebar come and go.
#include "NetworkPanel.h"

using namespace zeph;

class SidebarKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol|QML"))); }

    void aHeldKeyOpensNothing()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.type(QStringLiteral("ftp://h"));
        for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter })
            QTest::simulateEvent(test.window, true, key, {}, QStringLiteral("\r"), true);
        QVERIFY(test.model.errorMessage().isEmpty());
        test.key(Qt::Key_Return);
        QVERIFY(!test.model.errorMessage().isEmpty());
    }

    void theKeysComeBack()
    {
        Panel test;
        QVERIFY(test.isUp());
        QWindow other;
        other.resize(100, 100);
        other.show();
        other.requestActivate();
        QTRY_VERIFY(QGuiApplication::focusWindow() == &other);
        QTRY_VERIFY(!test.view.isStreamAddressFocused());
        test.window->requestActivate();
        QTRY_COMPARE(test.user.focused(), addressField);
        QVERIFY(test.view.isStreamAddressFocused());
        // Just as after a menu.
        test.user.click(QStringLiteral("Video display mode"));
        QTRY_VERIFY(!test.view.isStreamAddressFocused());
        test.key(Qt::Key_Escape);
        QTRY_COMPARE(test.user.focused(), addressField);
    }

    void aSectionThatIsLeftHasNoKeys()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(!test.model.isLoading());
        const QString address = test.view.address();
        test.user.click(QStringLiteral("Local M3U"));
        QTRY_VERIFY(!test.user.shows(addressField));
        test.key(Qt::Key_Return);
        test.type(QStringLiteral("x"));
        QVERIFY(!test.model.isLoading());
        QCOMPARE(test.view.address(), address);
        test.key(Qt::Key_Space); // Which is the player's again.
        QVERIFY(!test.model.toastMessage().isEmpty());
    }

    void aSidebarThatIsClosedHasNoKeys()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(searchField));
        test.user.click(searchField);
        QCOMPARE(test.user.focused(), searchField);
        QTest::mouseClick(test.window, Qt::LeftButton, {}, { 780, 20 });
        QVERIFY(!test.view.showSidebar());
        test.key(Qt::Key_Space);
        QVERIFY(!test.model.toastMessage().isEmpty());
        QCOMPARE(test.view.channels()->channelSearch(), QString());
    }

    void aNameFieldThatIsHiddenHasNoKeys()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.user.click(addName);
        QTRY_VERIFY(test.user.shows(nameField));
        test.user.click(nameField);
        test.type(QStringLiteral("Mine"));
        QCOMPARE(test.view.movieName(), QStringLiteral("Mine"));
        test.user.click(hideName);
        QTRY_VERIFY(!test.user.shows(nameField));
        test.key(Qt::Key_Space);
        QVERIFY(!test.model.toastMessage().isEmpty());
        QCOMPARE(test.view.movieName(), QStringLiteral("Mine"));
    }
};

int main(int argc, char *argv[])
{
    SidebarKeysTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_sidebar_keys.moc"
