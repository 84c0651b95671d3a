#include "support/XWindow.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>

namespace {

QString number(int value)
{
    return QString::number(value);
}

} // namespace

QString answerOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString xdotool(const QStringList &arguments)
{
    return answerOf(QStringLiteral("xdotool"), arguments);
}

void moveMouse(const QPoint &point)
{
    xdotool({ QStringLiteral("mousemove"), number(point.x() + 1), number(point.y()),
        QStringLiteral("mousemove"), number(point.x()), number(point.y()) });
}

void pressAndMove(const QPoint &from, const QPoint &to)
{
    constexpr int steps = 8;
    moveMouse(from);
    QStringList moves { QStringLiteral("mousedown"), QStringLiteral("1") };
    for (int step = 1; step <= steps; ++step) {
        const QPoint point = from + (to - from) * step / steps;
        moves << QStringLiteral("mousemove") << number(point.x()) << number(point.y());
        moves << QStringLiteral("sleep") << QStringLiteral("0.02");
    }
    xdotool(moves);
}

void releaseMouse()
{
    xdotool({ QStringLiteral("mouseup"), QStringLiteral("1") });
}

QString XWindow::title() const
{
    return isNull() ? QString() : xdotool({ QStringLiteral("getwindowname"), m_id });
}

QRect XWindow::contents() const
{
    // Without a window the program would have the mouse choose one.
    if (isNull())
        return {};
    const QString info = answerOf(QStringLiteral("xwininfo"), { QStringLiteral("-id"), m_id });
    const auto value = [&info](const char *label) {
        const QRegularExpression line(QLatin1StringView(label) + QStringLiteral(":\\s*(-?\\d+)"));
        return line.match(info).captured(1).toInt();
    };
    return { value("Absolute upper-left X"), value("Absolute upper-left Y"), value("Width"),
        value("Height") };
}

QRect XWindow::frame() const
{
    if (isNull())
        return {};
    const QString extents = answerOf(QStringLiteral("xprop"),
        { QStringLiteral("-id"), m_id, QStringLiteral("_NET_FRAME_EXTENTS") });
    const QStringList sides = extents.section(QStringLiteral("= "), 1).split(QStringLiteral(", "));
    const auto side = [&sides](int index) { return sides.value(index).toInt(); };
    return contents() + QMargins(side(0), side(2), side(1), side(3));
}

QImage XWindow::picture() const
{
    return QGuiApplication::primaryScreen()->grabWindow(m_id.toULongLong()).toImage();
}

bool XWindow::hasIcon() const
{
    const QStringList pixels { QStringLiteral("-id"), m_id, QStringLiteral("-notype"),
        QStringLiteral("32x"), QStringLiteral("_NET_WM_ICON") };
    // Ours begin with the smallest. A window without any is given a larger one by openbox.
    const QString sixteenBySixteen = QStringLiteral("= 0x10, 0x10,");
    return !isNull() && answerOf(QStringLiteral("xprop"), pixels).contains(sixteenBySixteen);
}

void XWindow::press(const QString &keys) const
{
    xdotool({ QStringLiteral("windowfocus"), QStringLiteral("--sync"), m_id, QStringLiteral("key"),
        keys });
}
