// The application, as the desktop's media controls see it.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>

namespace zeph {

class ContentView;

/// The interface org.mpris.MediaPlayer2. Main thread only.
class MprisRoot : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")

    Q_PROPERTY(bool CanQuit READ yes CONSTANT)
    Q_PROPERTY(bool CanRaise READ yes CONSTANT)
    Q_PROPERTY(bool CanSetFullscreen READ yes CONSTANT)
    Q_PROPERTY(bool Fullscreen READ isFullScreen WRITE setFullScreen)
    Q_PROPERTY(bool HasTrackList READ no CONSTANT)
    Q_PROPERTY(QString Identity READ identity CONSTANT)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry CONSTANT)
    Q_PROPERTY(QStringList SupportedUriSchemes READ uriSchemes CONSTANT)
    Q_PROPERTY(QStringList SupportedMimeTypes READ mimeTypes CONSTANT)

public:
    /// `view` outlives the adaptor.
    MprisRoot(ContentView &view, QObject *parent);

    bool yes() const { return true; }
    bool no() const { return false; }
    bool isFullScreen() const;
    void setFullScreen(bool fullScreen);
    QString identity() const;
    QString desktopEntry() const;
    QStringList uriSchemes() const;
    QStringList mimeTypes() const;

public Q_SLOTS:
    void Raise();
    void Quit();

private:
    ContentView &m_view;
};

} // namespace zeph
