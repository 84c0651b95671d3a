#include "Canvases.h"

#include <QTest>

void canvases()
{
    QTest::addColumn<QByteArray>("canvas");
    QTest::newRow("drawn on the CPU") << QByteArray("software");
    QTest::newRow("drawn with OpenGL") << QByteArray("opengl");
}

void canvasesAndClips(const QStringList &clips)
{
    QTest::addColumn<QByteArray>("canvas");
    QTest::addColumn<QString>("clip");
    for (const char *canvas : { "software", "opengl" }) {
        for (const QString &clip : clips)
            QTest::addRow("%s %s", qPrintable(clip), canvas) << QByteArray(canvas) << clip;
    }
}

void useCanvas()
{
    QFETCH(QByteArray, canvas);
    qputenv("ZEPH_VIDEO_CANVAS", canvas);
}
