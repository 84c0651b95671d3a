#include "support/PlayerProgram.h"

#include "support/Patience.h"

PlayerProgram::PlayerProgram(const QStringList &arguments, const QStringList &environment)
{
    // Out of the way, so that nothing shows a tool tip.
    moveMouse({ 0, 0 });
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.setEnvironment(QProcess::systemEnvironment() + environment);
    m_process.start(qEnvironmentVariable("ZEPH_PLAYER"), arguments);
    if (!m_process.waitForStarted())
        qFatal("ZEPH_PLAYER names no program");
}

PlayerProgram::~PlayerProgram()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool PlayerProgram::isRunning()
{
    m_process.waitForFinished(0);
    return m_process.state() != QProcess::NotRunning;
}

bool PlayerProgram::endedWith(int exitStatus) const
{
    return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == exitStatus;
}

XWindow PlayerProgram::window() const
{
    if (!m_window.isNull())
        return m_window;
    const QStringList windows = xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                            QStringLiteral("--pid"), QString::number(id()) })
                                    .split(u'\n', Qt::SkipEmptyParts);
    // Once found it stays the one, also while the window manager takes it in.
    for (const QString &id : windows) {
        if (const XWindow window(id); !window.title().isEmpty())
            return m_window = window;
    }
    return XWindow();
}

bool PlayerProgram::pictureMoves() const
{
    const auto middle = [this] {
        const QImage image = picture();
        const QSize half = image.size() / 2;
        return image.copy(half.width() / 2, half.height() / 2, half.width(), half.height());
    };
    // From black to a first picture, and on.
    constexpr int changes = 3;
    QImage last = middle();
    for (int change = 0; change < changes; ++change) {
        const QImage before = last;
        if (!QTest::qWaitFor([&] { return (last = middle()) != before; }, patience))
            return false;
    }
    return true;
}
