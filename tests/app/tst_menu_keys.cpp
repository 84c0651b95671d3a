// The keys of the commands in the menus, in the main window.
#include "app/MenuCommands.h"
#include "library/ContentView.h"
#include "support/EngineTest.h"
#include "support/StandInPanels.h"

#include <QApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QTemporaryDir>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_Sources_WebPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_AppPlugin)

using namespace zeph;

class MenuKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aKeyThatIsHeldActsOnce()
    {
        const QTemporaryDir folder;
        StandInPanels panels;
        PlayerModel model(panels);
        UserDefaults defaults(folder.filePath(QStringLiteral("settings")));
        ContentView view(model, defaults, panels);
        MenuCommands commands(view);
        QQmlEngine engine;
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(
            &engine, QUrl(QStringLiteral("qrc:/qt/qml/ZephPlayer/App/Main.qml")));
        const std::unique_ptr<QObject> object(component.createWithInitialProperties({
            { QStringLiteral("view"), QVariant::fromValue(&view) },
            { QStringLiteral("commands"), QVariant::fromValue(&commands) },
        }));
        auto *window = qobject_cast<QQuickWindow *>(object.get());
        QVERIFY2(window, qPrintable(component.errorString()));
        QVERIFY(QTest::qWaitForWindowActive(window, patience));

        QTest::keyClick(window, Qt::Key_M, Qt::ControlModifier);
        QVERIFY(model.isMuted());
        QTest::simulateEvent(window, true, Qt::Key_M, Qt::ControlModifier, {}, true);
        QVERIFY(model.isMuted());
        QTest::keyClick(window, Qt::Key_M, Qt::ControlModifier);
        QVERIFY(!model.isMuted());
    }
};

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    MenuKeysTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_menu_keys.moc"
