// Watches what the user does anywhere in the application.
#pragma once

#include <QEvent>
#include <QObject>

#include <functional>

class QWindow;

namespace zeph {

/// Sees each event of one type that reaches any of the application's windows, once and before the
/// window does, for as long as it lives. Needs the application object. Main thread only.
class EventMonitor : public QObject {
public:
    /// Returns whether the event is consumed: nobody else gets it then.
    using Handler = std::function<bool(QWindow &window, QEvent &event)>;

    EventMonitor(QEvent::Type type, Handler handler);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QEvent::Type m_type;
    const Handler m_handler;
};

} // namespace zeph
