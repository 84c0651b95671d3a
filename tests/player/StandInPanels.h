// File panels whose user is the test.
#pragma once

#include "platform/FilePanels.h"

#include <QList>

class StandInPanels final : public zeph::FilePanels {
public:
    /// What the next panels answer; nothing is a cancelled panel.
    std::optional<QUrl> answer;
    QList<zeph::OpenPanel> shown;

    std::optional<QUrl> chooseFile(const zeph::OpenPanel &panel) override
    {
        shown << panel;
        return answer;
    }
};
