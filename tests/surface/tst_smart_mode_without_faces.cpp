// The column goes to the middle when the module that finds faces cannot be loaded.
#include "CalculatedNumbers.h"
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/RunTimeModules.h"

#include <QDir>

using namespace zeph;
using Mode = PortraitDisplayMode;

class SmartModeWithoutFacesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goesToTheMiddle()
    {
        QVERIFY(QDir(runTimeModulesFolder()).isEmpty());
        VideoWindow video({ 1000, 500 });
        QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
        const PlayerHostingView &view = video.hostingView();
        video.view().setDisplayMode(Mode::Manual);
        QTest::mousePress(&video.window(), Qt::LeftButton, {}, { 500, 250 });
        QTest::mouseMove(&video.window(), { 850, 250 });
        QTest::mouseRelease(&video.window(), Qt::LeftButton, {}, { 850, 250 });
        QCOMPARE(view.horizontalPan(), 1.0);

        // Paused, there is one picture to look at.
        video.open(QStringLiteral("face.mkv"));
        video.view().setDisplayMode(Mode::Smart);
        QTRY_VERIFY(view.horizontalPan() < 1);
        QVERIFY(isSame(view.horizontalPan(), 0.65));
    }
};

int main(int argc, char *argv[])
{
    SmartModeWithoutFacesTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_smart_mode_without_faces.moc"
