// The mouse of a real display, as the model tells of it.
#include "platform/PlayerNotifications.h"
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QProcess>
#include <QRasterWindow>
#include <QSignalSpy>

using namespace zeph;

namespace {

void xdotool(const QString &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments.split(u' '));
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("xdotool fails");
}

class Window : public QRasterWindow {
public:
    explicit Window(QPoint position)
    {
        setFlag(Qt::FramelessWindowHint);
        setGeometry(QRect(position, QSize(200, 200)));
        show();
    }

    int moves = 0;
    int drags = 0;
    int releases = 0;

protected:
    void mouseMoveEvent(QMouseEvent *event) override
    {
        ++(event->buttons() == Qt::NoButton ? moves : drags);
    }
    void mouseReleaseEvent(QMouseEvent *) override { ++releases; }
};

} // namespace

class MouseMovesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsOfMovesAndOfTheirWindow()
    {
        Window first(QPoint(100, 100));
        Window second(QPoint(500, 100));
        QVERIFY(QTest::qWaitForWindowExposed(&first, patience));
        QVERIFY(QTest::qWaitForWindowExposed(&second, patience));
        StandInPanels panels;
        std::optional<PlayerModel> model(std::in_place, panels);
        model->installKeyboardShortcuts();
        model->installKeyboardShortcuts();
        QSignalSpy posted(&NotificationCenter::defaultCenter(), &NotificationCenter::posted);
        const auto lastWindow = [&posted] { return posted.constLast()[1].value<QObject *>(); };

        xdotool(QStringLiteral("mousemove 150 150 mousemove 160 160 mousemove 170 170"));
        QTRY_VERIFY(first.moves > 0);
        QTRY_COMPARE(QCursor::pos(), QPoint(170, 170));
        QCoreApplication::processEvents();
        QCOMPARE(posted.size(), first.moves); // once each, and passed on
        QCOMPARE(posted[0][0].value<QLatin1StringView>(), playerMouseMoved.name);
        QCOMPARE(lastWindow(), &first);

        xdotool(QStringLiteral("mousemove 600 150 mousemove 610 150"));
        QTRY_VERIFY(second.moves > 0);
        QCOMPARE(lastWindow(), &second);

        // A drag is no move.
        QCoreApplication::processEvents();
        posted.clear();
        xdotool(QStringLiteral("mousedown 1 mousemove 620 160 mousemove 630 170 mouseup 1"));
        QTRY_COMPARE(second.releases, 1);
        QVERIFY(second.drags > 0);
        QCOMPARE(posted.size(), 0);

        model.reset();
        const int before = second.moves;
        xdotool(QStringLiteral("mousemove 600 150 mousemove 610 150"));
        QTRY_VERIFY(second.moves > before);
        QCOMPARE(posted.size(), 0);
    }
};

QTEST_MAIN(MouseMovesTest)
#include "tst_mouse_moves.moc"
