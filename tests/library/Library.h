// A store of saved links over a settings file.
#pragma once

#include "library/LocalM3UStore.h"
#include "player/PlayerModel.h"
#include "support/Files.h"
#include "support/StandInPanels.h"

struct Library {
    explicit Library(const QString &file) : defaults(file) { }

    QStringList names() const
    {
        QStringList names;
        for (const zeph::PlaylistEntry &entry : store.entries())
            names << entry.name();
        return names;
    }

    zeph::UserDefaults defaults;
    StandInPanels panels;
    zeph::PlayerModel model { panels };
    zeph::LocalM3UStore store { defaults, model, panels };
};
