// Panels and alerts whose user is the test.
#pragma once

#include "platform/FilePanels.h"

#include <QList>

#include <functional>

class StandInPanels final : public zeph::FilePanels {
public:
    /// What the next panels answer; nothing is a cancelled panel.
    std::optional<QUrl> answer;
    /// Happens while the next files are chosen.
    std::function<void()> meanwhile = [] {};
    QList<zeph::OpenPanel> shown;
    QList<zeph::SavePanel> shownSavePanels;
    QList<zeph::WarningAlert> warnings;

    std::optional<QUrl> chooseFile(const zeph::OpenPanel &panel) override
    {
        shown << panel;
        meanwhile();
        return answer;
    }
    std::optional<QUrl> chooseSaveFile(const zeph::SavePanel &panel) override
    {
        shownSavePanels << panel;
        return answer;
    }
    void showWarning(const zeph::WarningAlert &alert) override { warnings << alert; }
};
