#include "PlayerWindow.h"

#include "platform/RunTimeModules.h"
#include "support/Patience.h"

#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutex>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QTest>

#include <clocale>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_Sources_WebPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)

using namespace zeph;

namespace {

// Only QML gets the answers of a page.
constexpr auto questioner = R"(import QtQml
QtObject {
    property string answer
    function ask(view, script) {
        answer = "";
        view.runJavaScript(script, value => answer = value ?? "{}");
    }
})";

// Of a class or one derived from it.
QQuickItem *descendant(const QQuickItem &item, const char *className)
{
    for (QQuickItem *child : item.childItems()) {
        if (child->inherits(className))
            return child;
        if (QQuickItem *found = descendant(*child, className))
            return found;
    }
    return nullptr;
}

QMutex warningsMutex;
QStringList warnings; // Guarded by it.
QtMessageHandler otherMessages;

void keepWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    otherMessages(type, context, message);
    const bool isQtsOwn =
        message.contains(QLatin1StringView("is neither a QObject, nor default- and copy-"));
    if (isQtsOwn || (type != QtWarningMsg && type != QtCriticalMsg))
        return;
    const QMutexLocker lock(&warningsMutex);
    warnings += message;
}

} // namespace

int PlayerWindow::run(int argc, char *argv[], const std::function<int()> &body)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return body();
}

QStringList PlayerWindow::takeWarnings()
{
    const QMutexLocker lock(&warningsMutex);
    return std::exchange(warnings, {});
}

PlayerWindow::PlayerWindow()
{
    // Qt Test has put in its own by now.
    if (!otherMessages)
        otherMessages = qInstallMessageHandler(keepWarnings);
    m_window.engine()->addImportPath(runTimeModulesFolder() + QStringLiteral("/qml"));
    m_window.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_window.setInitialProperties({ { QStringLiteral("model"), QVariant::fromValue(&m_model) } });
    m_window.setResizeMode(QQuickView::SizeRootObjectToView);
    m_window.setSource(QUrl(QStringLiteral("qrc:/qt/qml/ZephPlayer/Surface/PlayerSurface.qml")));
    m_window.resize(640, 360);
    m_window.show();
    m_window.requestActivate();

    QQmlComponent component(m_window.engine());
    component.setData(questioner, {});
    m_questioner.reset(component.create());
}

QQuickItem *PlayerWindow::item(const char *className) const
{
    return descendant(*m_window.contentItem(), className);
}

WebPlayerView *PlayerWindow::playerView() const
{
    return static_cast<WebPlayerView *>(item("zeph::WebPlayerView"));
}

QQuickItem *PlayerWindow::webView() const
{
    return item("QQuickWebEngineView");
}

QJsonValue PlayerWindow::videoValue(const char *name)
{
    const auto expression = m_model.youtubeContent()
        ? QStringLiteral("(window.stub || { frame: {} }).frame.%1")
        : QStringLiteral("(document.querySelector('video') || {}).%1");
    return valueInPage(expression.arg(QLatin1StringView(name)));
}

bool PlayerWindow::plays()
{
    return videoValue("currentTime").toDouble() > 0.1 && videoValue("paused") == false;
}

QJsonValue PlayerWindow::valueInPage(const QString &expression)
{
    QQuickItem *view = webView();
    if (!view)
        return {};
    const QString script = QStringLiteral("JSON.stringify({ value: %1 })").arg(expression);
    QMetaObject::invokeMethod(m_questioner.get(), "ask", Q_ARG(QVariant, QVariant::fromValue(view)),
        Q_ARG(QVariant, script));
    const auto answer = [this] { return m_questioner->property("answer").toString(); };
    (void)QTest::qWaitFor([&answer] { return !answer().isEmpty(); }, patience);
    return QJsonDocument::fromJson(answer().toUtf8()).object().value(QLatin1StringView("value"));
}

void PlayerWindow::click(Qt::MouseButton button)
{
    QTest::mouseClick(&m_window, button, {}, middle());
}

void PlayerWindow::doubleClick()
{
    QTest::mouseDClick(&m_window, Qt::LeftButton, {}, middle());
}

void PlayerWindow::clickRetry()
{
    const QQuickItem *button = item("QQuickButton");
    QVERIFY(button && button->isVisible());
    const QPointF centre { button->width() / 2, button->height() / 2 };
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, button->mapToScene(centre).toPoint());
}

void PlayerWindow::press(const QString &key)
{
    QProcess::execute(QStringLiteral("xdotool"), { QStringLiteral("key"), key });
}

QPoint PlayerWindow::middle() const
{
    return { m_window.width() / 2, m_window.height() / 2 };
}
