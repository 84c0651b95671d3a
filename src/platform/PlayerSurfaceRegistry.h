// Where the picture is.
#pragma once

#include <QPointer>
#include <QQuickItem>

namespace zeph {

/// Knows the item that presents video now, native or a web page's, without keeping it alive. An
/// item that goes takes itself out only if it is still the one: another may have taken its place.
/// Main thread only.
class PlayerSurfaceRegistry {
public:
    static PlayerSurfaceRegistry &shared();

    QQuickItem *view() const { return m_view; }
    /// Null when nothing presents video any more.
    void setView(QQuickItem *view) { m_view = view; }

private:
    QPointer<QQuickItem> m_view;
};

} // namespace zeph
