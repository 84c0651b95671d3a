#include "ContentWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QQmlExtensionPlugin>

#include <clocale>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_LibraryPlugin)

int runWindowTest(QObject &test, int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QAccessible::setActive(true);
    return QTest::qExec(&test, argc, argv);
}
