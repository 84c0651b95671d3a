// Tells single clicks from double ones.
#pragma once

#include <QPointF>

class QMouseEvent;

namespace zeph {

/// Counts presses that follow one another quickly and in one place, as the desktop's settings have
/// it. Qt's own events do not tell: the second press of a double click comes as an ordinary one,
/// too.
class ClickCounter {
public:
    /// 1 for a press on its own, 2 for the second press of a double click, and so on.
    int count(const QMouseEvent &press);

private:
    int m_count = 0;
    quint64 m_time = 0; ///< Milliseconds.
    QPointF m_place;
};

} // namespace zeph
