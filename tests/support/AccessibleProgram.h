// Drives the built program through its accessibility tree, as a screen reader does.
//
// A test makes one AccessibilityBus for its whole run, and starts programs on it:
//
//     AccessibilityBus bus;
//     const AccessibleProgram player(bus, { clip });
//     QVERIFY(player.press(Role::Button, QStringLiteral("Pause")));
//     QTRY_VERIFY(player.find(Role::Button, QStringLiteral("Play")));
//
// Roles and states are those of AccessibleObject. Only what is shown is found. The programs keep
// settings and saved links where XDG_CONFIG_HOME and XDG_DATA_HOME say: a test that changes some
// sets these to a folder of its own.
#pragma once

#include "support/AccessibilityBus.h"
#include "support/AccessibleObject.h"
#include "support/PlayerProgram.h"

#include <functional>

class AccessibleProgram : public PlayerProgram {
public:
    using Role = AccessibleObject::Role;
    using State = AccessibleObject::State;

    /// `bus` outlives the program.
    explicit AccessibleProgram(const AccessibilityBus &bus, const QStringList &arguments = {},
        const QStringList &environment = {});

    /// The first that is shown of this role and name; false when there is none now.
    AccessibleObject find(Role role, const QString &name) const;
    /// All that are shown of this role, or of any, in the order of the tree.
    QList<AccessibleObject> findAll(Role role) const;
    QList<AccessibleObject> findAll() const;
    /// What the keys go to.
    AccessibleObject focused() const;

    /// Waits until it is shown, as long as tests wait at most; false when it never is.
    AccessibleObject await(Role role, const QString &name) const;
    /// Waits until it is shown, and presses it.
    bool press(Role role, const QString &name) const { return await(role, name).press(); }
    using PlayerProgram::press;

private:
    using Matcher = std::function<bool(const AccessibleObject &)>;
    void search(const AccessibleObject &under, const Matcher &matches, qsizetype most,
        QList<AccessibleObject> &found) const;
    QList<AccessibleObject> search(const Matcher &matches, qsizetype most) const;

    const AccessibilityBus &m_bus;
    mutable QString m_service;
};
