#include "support/AccessibleProgram.h"

#include "support/Patience.h"

#include <limits>

namespace {

constexpr auto all = std::numeric_limits<qsizetype>::max();

} // namespace

AccessibleProgram::AccessibleProgram(
    const AccessibilityBus &bus, const QStringList &arguments, const QStringList &environment)
    : PlayerProgram(arguments, environment), m_bus(bus)
{
}

AccessibleObject AccessibleProgram::find(Role role, const QString &name) const
{
    const auto matches = [&](const AccessibleObject &object) {
        return object.role() == role && object.name() == name;
    };
    return search(matches, 1).value(0);
}

QList<AccessibleObject> AccessibleProgram::findAll(Role role) const
{
    return search([role](const AccessibleObject &object) { return object.role() == role; }, all);
}

QList<AccessibleObject> AccessibleProgram::findAll() const
{
    return search([](const AccessibleObject &) { return true; }, all);
}

AccessibleObject AccessibleProgram::focused() const
{
    // What is around it has the focus, too.
    const QList<AccessibleObject> found =
        search([](const AccessibleObject &object) { return object.has(State::Focused); }, all);
    return found.isEmpty() ? AccessibleObject() : found.constLast();
}

AccessibleObject AccessibleProgram::await(Role role, const QString &name) const
{
    AccessibleObject found;
    (void)QTest::qWaitFor([&] { return bool(found = find(role, name)); }, patience);
    return found;
}

void AccessibleProgram::search(const AccessibleObject &under, const Matcher &matches,
    qsizetype most, QList<AccessibleObject> &found) const
{
    const QList<AccessibleObject> children = under.children();
    for (const AccessibleObject &child : children) {
        if (found.size() >= most)
            return;
        if (!child.has(State::Showing))
            continue;
        if (matches(child))
            found.append(child);
        search(child, matches, most, found);
    }
}

QList<AccessibleObject> AccessibleProgram::search(const Matcher &matches, qsizetype most) const
{
    if (m_service.isEmpty())
        m_service = m_bus.serviceOf(id());
    QList<AccessibleObject> found;
    if (m_service.isEmpty())
        return found;
    search({ m_bus.connection(), m_service, QStringLiteral("/org/a11y/atspi/accessible/root") },
        matches, most, found);
    return found.mid(0, most);
}
