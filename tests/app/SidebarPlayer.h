// The built program with its sidebar.
#pragma once

#include "OwnSettings.h"
#include "Player.h"
#include "support/TestServer.h"

#include <algorithm>

inline const QString addressField = QStringLiteral("Stream address");
inline const QString networkSection = QStringLiteral("Network");
inline const QString localSection = QStringLiteral("Local M3U");

/// The line above the channels of the network.
inline QString networkCount(int shown, int total)
{
    return QStringLiteral("IPTV CHANNELS  \u00b7  %1 / %2").arg(shown).arg(total);
}
/// The line above the saved links.
inline QString localCount(int shown, int total)
{
    return QStringLiteral("CHANNELS  \u00b7  %1 / %2").arg(shown).arg(total);
}

/// Types a text where the keys go.
inline void type(const QString &text)
{
    xdotool({ QStringLiteral("type"), QStringLiteral("--"), text });
}

class SidebarPlayer : public Player {
public:
    using Player::Player;

    /// Opens the sidebar, which gives the keys to the address field.
    bool showSidebar() const { return pressButton(sidebarButton) && awaitFocus(addressField); }
    bool showSection(const QString &name) const { return press(Role::RadioButton, name); }

    bool awaitFocus(const QString &name) const
    {
        return QTest::qWaitFor([&] { return focused().name() == name; }, patience);
    }
    /// Gives the keys to a field, and types in it, in place of what is there.
    bool typeInto(const QString &field, const QString &text) const
    {
        if (!await(Role::TextField, field).focus() || !awaitFocus(field))
            return false;
        window().press(QStringLiteral("ctrl+a"));
        type(text);
        return QTest::qWaitFor([&] { return focused().text() == text; }, patience);
    }
    /// Types an address, which opens by itself.
    bool open(const QUrl &address) const { return typeInto(addressField, address.toString()); }

    AccessibleObject awaitHeading(const QString &text) const { return await(Role::Heading, text); }
    AccessibleObject awaitChannel(const QString &name) const
    {
        return await(Role::ListItem, QStringLiteral("Play ") + name);
    }
    bool showsChannel(const QString &name) const
    {
        return shows(Role::ListItem, QStringLiteral("Play ") + name);
    }
    /// Presses a button in the row of a channel, once it is there.
    bool pressButtonOf(const QString &channel, const QString &button) const
    {
        const auto isPressed = [&] {
            const QList<AccessibleObject> children = awaitChannel(channel).children();
            return std::any_of(
                children.cbegin(), children.cend(), [&button](const AccessibleObject &child) {
                    return child.role() == Role::Button && child.name() == button && child.press();
                });
        };
        return QTest::qWaitFor(isPressed, patience);
    }

    /// Whether the quarters of the picture have the colours of the colours clips.
    bool showsColours() const
    {
        const QImage image = picture();
        const QPoint middle = picturePart().center() - window().contents().topLeft();
        const QPoint part(60, 40);
        if (!image.rect().contains(QRect(middle - part, middle + part)))
            return false;
        const QColor red = image.pixelColor(middle - part);
        const QColor green = image.pixelColor(middle + QPoint(part.x(), -part.y()));
        const QColor blue = image.pixelColor(middle + QPoint(-part.x(), part.y()));
        return red.red() > 200 && red.green() < 50 && green.green() > 200 && green.red() < 50
            && blue.blue() > 200 && blue.green() < 50;
    }

    /// The same, sooner or later: while the window takes the size of the picture, it may be
    /// elsewhere.
    bool awaitColours() const
    {
        return QTest::qWaitFor([this] { return showsColours(); }, patience);
    }

    /// Types a path into the panel of this title, and Return.
    bool answerPanel(const QString &title, const QString &path) const
    {
        const auto panel = [&title] {
            return XWindow(xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                QStringLiteral("--name"), QStringLiteral("^%1$").arg(title) }));
        };
        if (!QTest::qWaitFor([&] { return !panel().isNull(); }, patience)
            || !QTest::qWaitFor([&] { return focused().role() == Role::TextField; }, patience))
            return false;
        panel().press(QStringLiteral("ctrl+a"));
        type(path);
        if (!QTest::qWaitFor([&] { return focused().text() == path; }, patience))
            return false;
        panel().press(QStringLiteral("Return"));
        return QTest::qWaitFor([&] { return panel().isNull(); }, patience);
    }
};
