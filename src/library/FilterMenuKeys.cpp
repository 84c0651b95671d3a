#include "library/FilterMenuKeys.h"

#include "library/TypedText.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

using namespace std::chrono_literals;

/// After this, letters begin anew.
constexpr auto pause = 1s;

} // namespace

void FilterMenuKeys::setChoices(FilterChoices *choices)
{
    if (std::exchange(m_choices, QPointer(choices)) != choices)
        Q_EMIT choicesChanged();
}

void FilterMenuKeys::setList(QQuickItem *list)
{
    if (m_list == list)
        return;
    if (m_list)
        m_list->removeEventFilter(this);
    m_list = list;
    if (list)
        list->installEventFilter(this);
    Q_EMIT listChanged();
}

void FilterMenuKeys::setRowsPerPage(int rows)
{
    if (std::exchange(m_rowsPerPage, rows) != rows)
        Q_EMIT rowsPerPageChanged();
}

bool FilterMenuKeys::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !m_choices)
        return false;
    return handle(static_cast<const QKeyEvent &>(*event));
}

bool FilterMenuKeys::handle(const QKeyEvent &press)
{
    const int row = m_list->property("currentIndex").toInt();
    const int last = m_choices->rowCount() - 1;
    const auto moveTo = [&](int next) {
        m_list->setProperty("currentIndex", std::clamp(next, 0, last));
        return true;
    };
    switch (press.key()) {
    case Qt::Key_Home:
        return moveTo(0);
    case Qt::Key_End:
        return moveTo(last);
    case Qt::Key_PageUp:
        return moveTo(row - m_rowsPerPage);
    case Qt::Key_PageDown:
        return moveTo(row + m_rowsPerPage);
    default:
        break;
    }
    if (!isTypedText(press))
        return false;
    lookFor(press.text());
    return true;
}

void FilterMenuKeys::lookFor(const QString &text)
{
    const bool isRepeated = m_typed == text;
    if (!isRepeated)
        m_typed += text;
    m_forgetting.start(pause, [this] { m_typed.clear(); });
    // More letters may go with the row that the first ones led to.
    const bool goesOn = m_typed.size() > text.size();
    const int row = m_list->property("currentIndex").toInt();
    const int found = m_choices->rowBeginningWith(m_typed, goesOn ? row : row + 1);
    if (found >= 0)
        m_list->setProperty("currentIndex", found);
}

} // namespace zeph
