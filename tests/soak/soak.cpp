// Uses the built program for a long time, and tells whether what it holds stays flat:
// soak MINUTES ACTIONS FILE [SEED]. ZEPH_PLAYER says which program it is; FILE takes the figures.
// See tests/soak/run-soak.
#include "SoakRecord.h"
#include "SoakUser.h"

#include <QElapsedTimer>

#include <cstdio>

namespace {

constexpr qint64 millisecondsOfAMinute = 60'000;
/// Milliseconds at the end of each minute to come to rest in.
constexpr qint64 restTime = 8000;
/// Milliseconds that the program gets to clear away what was closed.
constexpr int settlingTime = 2000;
constexpr int actionsBetweenSamples = 10;

void say(const QString &text)
{
    std::fprintf(stdout, "%s\n", qPrintable(text));
    std::fflush(stdout);
}

class Soak {
public:
    Soak(AccessibilityBus &bus, const SoakMedia &media, const QString &file, quint32 seed)
        : m_record(file)
        , m_picture(file + QStringLiteral(".png"))
        , m_player(bus, { clip("colours.mp4") })
        , m_user(m_player, bus, media, seed)
    {
    }

    bool run(int minutes, int actions)
    {
        if (!m_player.await(Role::Button, pauseButton))
            return fail(QStringLiteral("the program does not start"));
        m_frame = m_player.findAll(Role::Frame).value(0);
        m_clock.start();
        for (int minute = 0; minute < minutes; ++minute) {
            const int first = static_cast<int>(qint64(actions) * minute / minutes);
            const int last = static_cast<int>(qint64(actions) * (minute + 1) / minutes);
            for (int action = first; action < last; ++action) {
                waitUntil(minute * millisecondsOfAMinute
                    + (millisecondsOfAMinute - restTime) * (action - first) / (last - first));
                if (!act())
                    return false;
            }
            waitUntil((minute + 1) * millisecondsOfAMinute - restTime);
            if (const QString step = m_user.rest(); !step.isEmpty())
                return fail(
                    QStringLiteral("the program cannot be brought to rest: cannot ") + step);
            QTest::qWait(settlingTime);
            sample(true);
        }
        return quit();
    }

    void report(int minutes) const
    {
        say(m_record.table());
        say(m_record.verdicts(minutes));
        for (auto count = m_user.counts().cbegin(); count != m_user.counts().cend(); ++count)
            say(QStringLiteral("%1 × %2").arg(count.value(), 5).arg(count.key()));
        say(QStringLiteral("The slowest answer took %1 ms.").arg(m_slowestAnswer));
    }

    bool isFlat(int minutes) const { return m_record.isFlat(minutes); }

private:
    bool act()
    {
        const QString action = m_user.act();
        QElapsedTimer answer;
        answer.start();
        if (!m_player.isRunning())
            return fail(QStringLiteral("the program ended during: ") + action);
        if (action.isEmpty() || !m_frame.has(State::Visible))
            return fail(QStringLiteral("the program does not answer after: ") + action);
        m_slowestAnswer = qMax(m_slowestAnswer, answer.elapsed());
        if (++m_actions % actionsBetweenSamples == 0)
            sample(false);
        return true;
    }

    void sample(bool atRest)
    {
        m_record.add({ static_cast<double>(m_clock.elapsed()) / millisecondsOfAMinute, m_actions,
            atRest, figuresOf(m_player.id()), figuresOfDescendants(m_player.id()) });
    }

    bool quit()
    {
        m_player.window().press(QStringLiteral("ctrl+q"));
        if (!QTest::qWaitFor([this] { return !m_player.isRunning(); }, patience))
            return fail(QStringLiteral("the program does not quit"));
        return m_player.endedWell() || fail(QStringLiteral("the program ends badly"));
    }

    bool fail(const QString &reason) const
    {
        say(QStringLiteral("Minute %1, after %2 actions: %3")
                .arg(m_clock.elapsed() / millisecondsOfAMinute)
                .arg(m_actions)
                .arg(reason));
        m_player.window().picture().save(m_picture);
        return false;
    }

    void waitUntil(qint64 time) const
    {
        if (const qint64 left = time - m_clock.elapsed(); left > 0)
            QTest::qWait(static_cast<int>(left));
    }

    SoakRecord m_record;
    const QString m_picture; ///< Shows the window when something fails.
    SidebarPlayer m_player;
    SoakUser m_user;
    AccessibleObject m_frame;
    QElapsedTimer m_clock;
    qint64 m_slowestAnswer = 0;
    int m_actions = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    const SoakMedia media;
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int minutes = arguments.value(1).toInt();
    const int actions = arguments.value(2).toInt();
    if (minutes < 1 || actions < minutes || arguments.size() < 4) {
        say(QStringLiteral("soak MINUTES ACTIONS FILE [SEED]"));
        return 2;
    }
    const quint32 seed =
        arguments.size() > 4 ? arguments[4].toUInt() : QRandomGenerator::global()->generate();
    say(QStringLiteral("Seed: %1").arg(seed));
    const OwnSettings settings;
    AccessibilityBus bus;
    Soak soak(bus, media, arguments[3], seed);
    const bool lasted = soak.run(minutes, actions);
    soak.report(minutes);
    return lasted && soak.isFlat(minutes) ? 0 : 1;
}
