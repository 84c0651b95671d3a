// The soak's user: lists of channels.
#include "SoakUser.h"
#include "SoakWays.h"

bool SoakUser::switchChannel()
{
    const QList<AccessibleObject> rows = channels(anyOf(sections));
    return !rows.isEmpty() && anyOf(rows).press();
}

bool SoakUser::scrollChannels()
{
    const QList<AccessibleObject> rows = channels(anyOf(sections));
    if (rows.isEmpty())
        return false;
    moveMouse(rows.constFirst().rectangle().center());
    const char *down = below(3) != 0 ? "5" : "4";
    for (int i = below(10); i >= 0; --i)
        click(down);
    return true;
}

bool SoakUser::search()
{
    const QStringList texts { QStringLiteral("channel 1"), QStringLiteral("99"),
        QStringLiteral("nothing"), QStringLiteral("news"), QStringLiteral("7"), QString() };
    const QString text = anyOf(texts);
    for (const QString &name :
        { QStringLiteral("Search channels"), QStringLiteral("Search local M3U8 links") }) {
        if (const AccessibleObject field = m_player.find(Role::TextField, name))
            return field.setText(text);
    }
    return false;
}

bool SoakUser::filter()
{
    const QStringList descriptions { QStringLiteral("Show the channels of one country"),
        QStringLiteral("Show the channels of one category") };
    const QString description = anyOf(descriptions);
    const QList<AccessibleObject> buttons = m_player.findAll(Role::Button);
    const auto isMenu = [&](const AccessibleObject &button) {
        return button.description() == description;
    };
    const auto menu = std::find_if(buttons.cbegin(), buttons.cend(), isMenu);
    return menu != buttons.cend() && menu->press() && chooseAnyMenuItem();
}

bool SoakUser::changeSection()
{
    return showSection(anyOf(sections));
}

QList<AccessibleObject> SoakUser::channels(const QString &section)
{
    return showSection(section) ? m_player.findAll(Role::ListItem) : QList<AccessibleObject>();
}

bool SoakUser::pressInAnyRow(const QString &section, const QString &button)
{
    const QList<AccessibleObject> rows = channels(section);
    if (rows.isEmpty())
        return false;
    const QList<AccessibleObject> parts = anyOf(rows).children();
    return std::any_of(parts.cbegin(), parts.cend(), [&](const AccessibleObject &part) {
        return part.role() == Role::Button && part.name() == button && part.press();
    });
}
