// The arithmetic of the window's sizes.
#include "app/WindowFit.h"

#include <QTest>

using namespace zeph;

class WindowFitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void contentWidth_data()
    {
        QTest::addColumn<double>("aspectRatio");
        QTest::addColumn<double>("contentHeight");
        QTest::addColumn<bool>("sidebarVisible");
        QTest::addColumn<double>("width");
        QTest::newRow("16:9") << 16.0 / 9 << 464.0 << false << 430 * 16.0 / 9;
        QTest::newRow("16:9 with sidebar") << 16.0 / 9 << 464.0 << true << 246 + 430 * 16.0 / 9;
        QTest::newRow("9:16") << 9.0 / 16 << 464.0 << false << 520.0;
        QTest::newRow("9:16 with sidebar") << 9.0 / 16 << 464.0 << true << 780.0;
        QTest::newRow("21:9") << 21.0 / 9 << 634.0 << false << 1400.0;
        QTest::newRow("lower than the control bar") << 1000.0 << 20.0 << false << 1000.0;
    }
    void contentWidth()
    {
        QFETCH(double, aspectRatio);
        QFETCH(double, contentHeight);
        QFETCH(bool, sidebarVisible);
        QFETCH(double, width);
        QCOMPARE(fittedContentWidth(aspectRatio, contentHeight, sidebarVisible), width);
    }

    void frame_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<double>("width");
        QTest::addColumn<QRect>("fitted");
        QTest::newRow("grows to the right")
            << QRect(200, 100, 702, 455) << 764.4 << QRect(200, 100, 766, 455);
        QTest::newRow("shrinks from the right")
            << QRect(200, 100, 902, 455) << 520.0 << QRect(200, 100, 522, 455);
        QTest::newRow("moves left to stay on the screen")
            << QRect(1000, 100, 702, 455) << 1000.0 << QRect(598, 100, 1002, 455);
        QTest::newRow("as wide as the screen")
            << QRect(1000, 100, 702, 455) << 5000.0 << QRect(50, 100, 1550, 455);
        QTest::newRow("comes back from the left")
            << QRect(-300, 100, 702, 455) << 600.0 << QRect(50, 100, 602, 455);
        QTest::newRow("comes back from below")
            << QRect(200, 800, 702, 455) << 600.0 << QRect(200, 425, 602, 455);
        QTest::newRow("higher than the screen")
            << QRect(200, 100, 702, 1000) << 600.0 << QRect(200, -120, 602, 1000);
    }
    void frame()
    {
        QFETCH(QRect, frame);
        QFETCH(double, width);
        QFETCH(QRect, fitted);
        const QRect available(50, 20, 1550, 860);
        QCOMPARE(fittedFrame(frame, QMargins(1, 20, 1, 5), width, available), fitted);
    }

    void theMiddle()
    {
        QCOMPARE(centred(QSize(700, 430), QRect(100, 0, 1700, 1030)), QRect(600, 300, 700, 430));
    }
};

QTEST_GUILESS_MAIN(WindowFitTest)
#include "tst_window_fit.moc"
