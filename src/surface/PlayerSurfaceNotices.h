// What the surface says besides the picture.
#pragma once

#include "player/PlayerModel.h"

#include <QQmlEngine>

namespace zeph {

/// Which of its notices the surface shows. Main thread only.
class PlayerSurfaceNotices : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(zeph::PlayerModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    /// There is nothing to show: the user is invited to open something.
    Q_PROPERTY(bool invitesToOpen READ invitesToOpen NOTIFY changed)
    /// A live stream has stalled. What ends sooner or later does not say so.
    Q_PROPERTY(bool tellsOfBuffering READ tellsOfBuffering NOTIFY changed)

public:
    using QObject::QObject;

    PlayerModel *model() const { return m_model; }
    /// To be set once; outlives this object.
    void setModel(PlayerModel *model);

    bool invitesToOpen() const;
    bool tellsOfBuffering() const;

Q_SIGNALS:
    void modelChanged();
    void changed();

private:
    PlayerModel *m_model = nullptr;
};

} // namespace zeph
