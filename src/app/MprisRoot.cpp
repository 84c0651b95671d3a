#include "app/MprisRoot.h"

#include "library/ContentView.h"
#include "player/MediaFileTypes.h"

#include <QGuiApplication>
#include <QMimeDatabase>

namespace zeph {

MprisRoot::MprisRoot(ContentView &view, QObject *parent)
    : QDBusAbstractAdaptor(parent), m_view(view)
{
}

bool MprisRoot::isFullScreen() const
{
    return m_view.isFullScreen();
}

void MprisRoot::setFullScreen(bool fullScreen)
{
    if (fullScreen != m_view.isFullScreen())
        m_view.toggleFullScreen();
}

QString MprisRoot::identity() const
{
    return QCoreApplication::applicationName();
}

QString MprisRoot::desktopEntry() const
{
    return QGuiApplication::desktopFileName();
}

QStringList MprisRoot::uriSchemes() const
{
    return { QStringLiteral("file"), QStringLiteral("http"), QStringLiteral("https") };
}

QStringList MprisRoot::mimeTypes() const
{
    QStringList names;
    const QMimeDatabase types;
    for (const QString &extension : mediaFileExtensions())
        names << types
                     .mimeTypeForFile(
                         QStringLiteral("x.") + extension, QMimeDatabase::MatchExtension)
                     .name();
    names.removeDuplicates();
    return names;
}

void MprisRoot::Raise()
{
    m_view.raise();
}

void MprisRoot::Quit()
{
    QCoreApplication::quit();
}

} // namespace zeph
