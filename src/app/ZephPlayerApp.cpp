#include "app/ZephPlayerApp.h"

#include "app/AddressArgument.h"
#include "platform/FreedMemory.h"
#include "platform/PromptDrawing.h"
#include "platform/RunTimeModules.h"

#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QQmlComponent>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QThreadPool>

#include <clocale>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_Sources_WebPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_AppPlugin)

namespace zeph {

int ZephPlayerApp::run(int argc, char *argv[])
{
    keepNoFreedMemory();

    QCoreApplication::setApplicationName(QStringLiteral("Zeph Player"));
    QCoreApplication::setOrganizationName(QStringLiteral("ZephPlayer"));
    QGuiApplication::setDesktopFileName(QStringLiteral("zeph-player"));
    // The picture is drawn with OpenGL, so the window has to be, too.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    // So do the pages of the web players, in threads of their own.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    drawPromptly();

    QApplication application(argc, argv);
    // The application object takes over the user's locale; libmpv reads numbers as in C.
    std::setlocale(LC_NUMERIC, "C");

    // Looking through the fonts of the system takes a while, which is there while QML files are
    // loaded.
    QThreadPool::globalInstance()->start([] { QFontDatabase::hasFamily({}); });

    const QString argument = QCoreApplication::arguments().value(1);
    ZephPlayerApp app;
    if (!argument.isEmpty())
        app.preparePlayer();
    if (!app.showMainWindow())
        return EXIT_FAILURE;
    app.m_appearance.follow();
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/zeph-player.svg")));
    if (!argument.isEmpty())
        app.openUrl(addressFromArgument(argument));
    return QApplication::exec();
}

ZephPlayerApp::ZephPlayerApp()
{
    QApplication::setQuitOnLastWindowClosed(
        m_appDelegate.applicationShouldTerminateAfterLastWindowClosed());
    m_appDelegate.applicationDidFinishLaunching();
    QObject::connect(&m_player, &PlayerModel::isPlayingChanged, &m_sleepInhibitor,
        [this] { m_sleepInhibitor.setInhibiting(m_player.isPlaying()); });
    for (const auto change : { &PlayerModel::currentURLChanged, &PlayerModel::playlistChanged,
             &PlayerModel::youtubeContentChanged, &PlayerModel::okVideoContentChanged })
        QObject::connect(&m_player, change, &m_view, [this] { tidyUpWhenSettled(); });
}

void ZephPlayerApp::tidyUpWhenSettled()
{
    m_tidying.start(std::chrono::seconds(1), [this] {
        // Meanwhile nobody else gets memory, for tens of milliseconds: what plays would stutter.
        if (!m_player.hasSource())
            returnScatteredMemory();
    });
}

void ZephPlayerApp::preparePlayer()
{
    m_player.player()->prepare();
}

bool ZephPlayerApp::showMainWindow()
{
    m_engine.addImportPath(runTimeModulesFolder() + QStringLiteral("/qml"));
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    // Not by a QQmlApplicationEngine, which looks for a variant of every file for this system.
    QQmlComponent window(&m_engine, QUrl(QStringLiteral("qrc:/qt/qml/ZephPlayer/App/Main.qml")));
    m_window.reset(window.createWithInitialProperties({
        { QStringLiteral("view"), QVariant::fromValue(&m_view) },
        { QStringLiteral("commands"), QVariant::fromValue(&m_commands) },
    }));
    if (!m_window) {
        qCritical().noquote() << window.errorString();
        return false;
    }
    // Unless somebody listens, Qt aborts.
    QObject::connect(
        qobject_cast<QQuickWindow *>(m_window.get()), &QQuickWindow::sceneGraphError, &m_view,
        [this](QQuickWindow::SceneGraphError, const QString &reason) {
            tellThatNothingCanBeDrawn(reason);
        },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    return true;
}

void ZephPlayerApp::tellThatNothingCanBeDrawn(const QString &reason)
{
    qCritical("The window cannot be drawn: %s", qPrintable(reason));
    m_panels.showWarning({ QCoreApplication::translate(
                               "ZephPlayerApp", "The window cannot be drawn without OpenGL."),
        reason });
    QCoreApplication::exit(EXIT_FAILURE);
}

void ZephPlayerApp::openUrl(const QUrl &url)
{
    m_view.openFromDesktop(url);
}

} // namespace zeph
