// Windows draw at once, unless the user says otherwise.
#include "platform/PromptDrawing.h"

#include <QTest>

class PromptDrawingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qunsetenv(variable); }

    void nothingIsWaitedFor()
    {
        zeph::drawPromptly();
        QCOMPARE(qgetenv(variable), QByteArray("0"));
    }

    void theUsersWaitIsKept()
    {
        qputenv(variable, "5");
        zeph::drawPromptly();
        QCOMPARE(qgetenv(variable), QByteArray("5"));
    }

private:
    static constexpr const char *variable = "QT_QPA_UPDATE_IDLE_TIME";
};

QTEST_GUILESS_MAIN(PromptDrawingTest)
#include "tst_prompt_drawing.moc"
