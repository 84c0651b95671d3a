#include "platform/KeyboardFocus.h"

#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QQuickItem>
#include <QWindow>

namespace zeph {

namespace {

bool isMainWindow(const QWindow *window)
{
    return window && window->type() == Qt::Window && window->modality() == Qt::NonModal;
}

bool takesText(QObject *object)
{
    QInputMethodQueryEvent query(Qt::ImEnabled);
    return QCoreApplication::sendEvent(object, &query) && query.value(Qt::ImEnabled).toBool();
}

// Menus and dialogues within the window have the focus themselves.
bool isInPopup(QObject *object)
{
    for (auto *item = qobject_cast<QQuickItem *>(object); item; item = item->parentItem()) {
        if (item->inherits("QQuickPopupItem"))
            return true;
    }
    return false;
}

// A list that drops down leaves the focus with what it drops from.
bool hasPopupOpen(const QObject *object)
{
    const auto *popup = object->property("popup").value<QObject *>();
    return popup && popup->property("opened").toBool();
}

bool asksFor(QObject *object, const QKeyEvent &press)
{
    for (auto *item = qobject_cast<QQuickItem *>(object); item; item = item->parentItem()) {
        QKeyEvent question(QEvent::ShortcutOverride, press.key(), press.modifiers(), press.text(),
            press.isAutoRepeat());
        question.ignore();
        if (QCoreApplication::sendEvent(item, &question) && question.isAccepted())
            return true;
    }
    return false;
}

} // namespace

bool focusKeepsKey(const QKeyEvent &press)
{
    if (!isMainWindow(QGuiApplication::focusWindow()))
        return true;
    QObject *focus = QGuiApplication::focusObject();
    return focus
        && (takesText(focus) || isInPopup(focus) || hasPopupOpen(focus) || asksFor(focus, press));
}

} // namespace zeph
