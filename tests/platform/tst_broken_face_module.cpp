// The module that finds faces cannot be loaded.
#include "platform/FaceDetector.h"
#include "platform/RunTimeModules.h"
#include "support/Patience.h"

#include <QDir>
#include <QMutex>

using namespace zeph;

namespace {

QMutex warningsMutex;
QStringList warnings; // Guarded by it.

// The module is loaded in another thread.
void keepWarning(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const QMutexLocker lock(&warningsMutex);
    warnings += message;
}

QStringList warningsSoFar()
{
    const QMutexLocker lock(&warningsMutex);
    return warnings;
}

} // namespace

class BrokenFaceModuleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isToldOnceWithItsReason()
    {
        const QDir modules(runTimeModulesFolder());
        QVERIFY(modules.exists(QStringLiteral("zeph-face-finder.so")));
        const QtMessageHandler others = qInstallMessageHandler(keepWarning);
        const auto restore = qScopeGuard([others] { qInstallMessageHandler(others); });
        // One that is made after the last is gone tries to load it again.
        for (int i = 0; i < 2; ++i) {
            const auto detector = FaceDetector::shared();
            // Nobody waits for it in vain.
            QTRY_VERIFY(detector->isReady());
            QCOMPARE(warningsSoFar().size(), 1);
            QCOMPARE(detector->faces(QImage(FaceDetector::pictureSize, QImage::Format_RGB32)),
                QList<QRectF>());
        }
        const QString warning = warningsSoFar().constFirst();
        QVERIFY2(warning.startsWith(QStringLiteral("No faces are found: ")), qPrintable(warning));
        QVERIFY2(warning.contains(QStringLiteral("zeph-face-finder.so")), qPrintable(warning));
    }
};

QTEST_GUILESS_MAIN(BrokenFaceModuleTest)
#include "tst_broken_face_module.moc"
