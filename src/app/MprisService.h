// Where the desktop's media keys and media widget find the player.
#pragma once

#include <QObject>
#include <QVariantMap>

namespace zeph {

class ContentView;

/// Offers the player on the session bus from the first time that something plays: a window that is
/// only open leaves the media keys to who uses them. Without a session bus nothing happens. Main
/// thread only.
class MprisService : public QObject {
    Q_OBJECT

public:
    /// `view` outlives the service.
    explicit MprisService(ContentView &view, QObject *parent = nullptr);
    ~MprisService() override;

private:
    void offer();
    void tell(const QString &interface, const QVariantMap &values) const;

    ContentView &m_view;
    QString m_name; ///< On the bus; empty while there is none.
};

} // namespace zeph
