// Steps of the volume, and what is shown of them.
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QSignalSpy>

#include <clocale>
#include <limits>

using namespace zeph;

class VolumeStepsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    void steps_data()
    {
        QTest::addColumn<double>("before");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("after");
        QTest::addColumn<QString>("toast");
        const auto row = [](double before, double step, double after, const char *toast) {
            QTest::addRow("%g%+g", before, step)
                << before << step << after << QString::fromLatin1(toast);
        };
        row(0.97, 0.05, 1.0, "Volume: 100%");
        row(0.03, -0.05, 0.0, "Volume: 0% (Muted)");
        row(0.5, -0.01, 0.49, "Volume: 49%");
        row(0.4, 0.05, 0.45, "Volume: 45%");
        row(0.5, 0.1, 0.6, "Volume: 60%");
        row(0.5, -0.2, 0.3, "Volume: 30%");
        row(0.05, -0.05, 0.0, "Volume: 0% (Muted)");
        row(0.0, 0.01, 0.01, "Volume: 1%");
        row(1.0, 0.2, 1.0, "Volume: 100%");
        row(0.0, -0.2, 0.0, "Volume: 0% (Muted)");
        // Parts of a per cent are cut off.
        row(0.499, 0.05, 0.54, "Volume: 54%");
        row(0.019, -0.01, 0.0, "Volume: 0% (Muted)");
        // None is lost to binary fractions: 0.95 - 0.05 is a little less than 0.9 in them.
        row(0.95, -0.05, 0.9, "Volume: 90%");
        row(0.28, 0.01, 0.29, "Volume: 29%");
        row(0.3, -0.01, 0.29, "Volume: 29%");
        row(0.5, std::numeric_limits<double>::infinity(), 1.0, "Volume: 100%");
        row(0.5, -std::numeric_limits<double>::infinity(), 0.0, "Volume: 0% (Muted)");
        row(0.5, std::numeric_limits<double>::quiet_NaN(), 0.5, "");
    }

    void steps()
    {
        QFETCH(const double, before);
        QFETCH(const double, step);
        QFETCH(const double, after);
        PlayerModel model(m_panels);
        model.setVolume(before);
        model.adjustVolume(step);
        QCOMPARE(model.volume(), after);
        QCOMPARE(model.isMuted(), after == 0);
        QCOMPARE(model.player()->volume(), after);
        QTEST(model.toastMessage(), "toast");
    }

    void thereAndBackAgain()
    {
        PlayerModel model(m_panels);
        for (int percent = 99; percent >= 0; --percent) {
            model.adjustVolume(-0.01);
            QCOMPARE(model.volume(), percent / 100.0);
        }
        for (int percent = 5; percent <= 100; percent += 5) {
            model.adjustVolume(0.05);
            QCOMPARE(model.volume(), percent / 100.0);
            QCOMPARE(model.toastMessage(), QStringLiteral("Volume: %1%").arg(percent));
        }
    }

    void aStepUnmutes()
    {
        PlayerModel model(m_panels);
        model.toggleMute();
        model.adjustVolume(-0.05);
        QVERIFY(!model.isMuted());
        QCOMPARE(model.volume(), 0.95);
    }

    // The toast of a volume is shorter than the one that says there is nothing to play.
    void toastsGoAway()
    {
        PlayerModel model(m_panels);
        QElapsedTimer shown;
        shown.start();
        model.adjustVolume(-0.05);
        QTRY_COMPARE(model.toastMessage(), QString());
        QVERIFY(shown.elapsed() >= 1190);
        shown.start();
        model.togglePlayback();
        QTRY_COMPARE(model.toastMessage(), QString());
        QVERIFY(shown.elapsed() >= 2790);
    }

    void aStepRestartsTheTimeOfItsToast()
    {
        PlayerModel model(m_panels);
        QSignalSpy changed(&model, &PlayerModel::toastMessageChanged);
        model.adjustVolume(-0.05);
        QTest::qWait(500);
        QElapsedTimer shown;
        shown.start();
        model.adjustVolume(0.05);
        QTRY_COMPARE(model.toastMessage(), QString());
        QVERIFY(shown.elapsed() >= 1190);
        QCOMPARE(changed.size(), 3);
    }

    void aToastMayOutliveItsModel()
    {
        std::optional<PlayerModel> model(std::in_place, m_panels);
        model->showToast(QStringLiteral("Hello"), 1'000'000);
        model.reset();
        QTest::qWait(20);
    }

private:
    StandInPanels m_panels;
};

QTEST_GUILESS_MAIN(VolumeStepsTest)
#include "tst_volume_steps.moc"
