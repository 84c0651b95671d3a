// One line of a menu.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QQmlEngine>

#include <functional>

namespace zeph {

/// A command with a title that tells what choosing it would do, or a divider between commands.
/// Main thread only.
class MenuCommand : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Menus draw the commands of the application.")

    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    /// Empty when the command has no key of its own.
    Q_PROPERTY(QString shortcut READ shortcut CONSTANT)
    Q_PROPERTY(bool isDivider READ isDivider CONSTANT)

public:
    /// A divider.
    explicit MenuCommand(QObject *parent);
    MenuCommand(QString title, const QKeySequence &keyEquivalent, std::function<void()> action,
        QObject *parent);

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    QString shortcut() const { return m_keyEquivalent.toString(QKeySequence::PortableText); }
    bool isDivider() const { return !m_action; }

    Q_INVOKABLE void trigger();

Q_SIGNALS:
    void titleChanged();

private:
    QString m_title;
    const QKeySequence m_keyEquivalent;
    const std::function<void()> m_action;
};

} // namespace zeph
