// The soak's user: the saved links.
#include "SoakUser.h"
#include "SoakWays.h"

bool SoakUser::saveChannel()
{
    return pressInAnyRow(networkSection, QStringLiteral("Save to Local M3U"));
}

bool SoakUser::addLink()
{
    const QString add = QStringLiteral("Add M3U8 Link");
    return showSection(localSection) && m_player.pressButton(add) && fillSheet();
}

bool SoakUser::editLink()
{
    return pressInAnyRow(localSection, QStringLiteral("Edit")) && fillSheet();
}

bool SoakUser::deleteLink()
{
    if (!pressInAnyRow(localSection, QStringLiteral("Delete")))
        return false;
    const QString heading = QStringLiteral("Delete Channel?");
    const QStringList answers { QStringLiteral("Cancel"), QStringLiteral("Delete") };
    if (!m_player.awaitHeading(heading) || !m_player.awaitFocus(answers[0]))
        return false;
    if (below(4) != 0)
        press("Tab");
    press("Return");
    return awaitThat([&] { return !m_player.shows(Role::Heading, heading); });
}

bool SoakUser::importLinks()
{
    if (!showSection(localSection))
        return false;
    const QList<AccessibleObject> buttons = m_player.findAll(Role::Button);
    const auto isImport = [](const AccessibleObject &button) {
        return button.name().endsWith(QStringLiteral("M3U File\u2026"));
    };
    const auto button = std::find_if(buttons.cbegin(), buttons.cend(), isImport);
    return button != buttons.cend() && button->press()
        && answerPanel(importPanel, m_media.linksFile());
}

bool SoakUser::exportLinks()
{
    QFile::remove(m_media.exportFile());
    return showSection(localSection) && !m_player.shows(Role::Label, noLinks)
        && m_player.pressButton(QStringLiteral("Export"))
        && answerPanel(exportPanel, m_media.exportFile());
}

bool SoakUser::fillSheet()
{
    const QString name = QStringLiteral("Channel or video name");
    const QStringList texts { name, QStringLiteral("Mine %1").arg(below(1000)),
        QStringLiteral("M3U8 URL"), anyOf(m_media.streams()),
        QStringLiteral("Country code (for example: TR, US)"), QStringLiteral("at"),
        QStringLiteral("Category (optional)"), QStringLiteral("Music") };
    for (qsizetype i = 0; i < texts.size(); i += 2) {
        if (!m_player.await(Role::TextField, texts[i]).setText(texts[i + 1]))
            return false;
    }
    m_player.pressButton(below(4) != 0 ? QStringLiteral("Save") : QStringLiteral("Cancel"));
    const auto isClosed = [&] { return !m_player.shows(Role::TextField, name); };
    if (!soon(isClosed))
        press("Escape");
    return awaitThat(isClosed);
}

bool SoakUser::deleteAllLinks()
{
    if (!showSection(localSection))
        return false;
    if (m_player.shows(Role::Label, noLinks))
        return true;
    return m_player.pressButton(QStringLiteral("Clear"))
        && m_player.pressButton(QStringLiteral("Delete Permanently"))
        && m_player.await(Role::Label, noLinks);
}
