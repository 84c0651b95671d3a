// Faces are found in photographs, and only there.
#include "platform/FaceDetector.h"
#include "support/Patience.h"

#include <QFile>
#include <QRandomGenerator>

#include <algorithm>

using namespace zeph;

namespace {

/// One of the photographs of assets/npm.lock, and where its faces are: the middle of each, from the
/// left, as parts of the picture's width and height.
struct Photograph {
    const char *file;
    QList<QPointF> faces;
};
const Photograph photographs[] = {
    { "sample1.jpg", { { 0.264, 0.371 }, { 0.486, 0.422 }, { 0.818, 0.252 } } },
    { "sample2.jpg", { { 0.233, 0.196 }, { 0.507, 0.249 }, { 0.802, 0.203 } } },
    { "sample3.jpg", { { 0.359, 0.347 }, { 0.619, 0.257 }, { 0.830, 0.320 } } },
    { "sample4.jpg", { { 0.179, 0.222 }, { 0.394, 0.131 }, { 0.561, 0.210 }, { 0.702, 0.185 } } },
    { "sample5.jpg",
        { { 0.240, 0.734 }, { 0.358, 0.390 }, { 0.455, 0.158 }, { 0.623, 0.227 },
            { 0.782, 0.372 } } },
    { "sample6.jpg", { { 0.187, 0.405 }, { 0.397, 0.313 }, { 0.659, 0.290 }, { 0.828, 0.266 } } },
};
// Of the picture's width and height; a face is four times as large.
constexpr double tolerance = 0.025;

QImage read(const char *file)
{
    const QString folder = qEnvironmentVariable("ZEPH_PHOTOGRAPHS");
    const QImage image(folder + u'/' + QString::fromLatin1(file));
    return image.convertToFormat(QImage::Format_RGB32);
}

QList<QRectF> fromTheLeft(QList<QRectF> faces)
{
    std::ranges::sort(faces, {}, [](const QRectF &face) { return face.center().x(); });
    return faces;
}

bool isNear(QPointF a, QPointF b)
{
    return std::abs(a.x() - b.x()) < tolerance && std::abs(a.y() - b.y()) < tolerance;
}

bool isLoaded(QByteArrayView library)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QFile::ReadOnly) && maps.readAll().contains(library);
}

QImage filled(QColor colour)
{
    QImage image(640, 480, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QImage noise()
{
    QImage image(640, 480, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::generate_n(line, image.width(), [&] { return random.generate() | 0xff000000; });
    }
    return image;
}

} // namespace

class FaceDetectorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isLoadedWhenAskedForFirst();
    void isShared();
    void everyFaceOfAPhotograph_data() { eachPhotograph(); }
    void everyFaceOfAPhotograph();
    void largePhotographs();
    void mirrored_data() { eachPhotograph(); }
    void mirrored();
    void sameAgain();
    void facesAtTheEdge();
    void nothing_data();
    void nothing();
    void oddSizes_data();
    void oddSizes();

private:
    static void eachPhotograph();

    std::shared_ptr<FaceDetector> m_detector;
};

void FaceDetectorTest::isLoadedWhenAskedForFirst()
{
    QVERIFY(!isLoaded("opencv"));
    m_detector = FaceDetector::shared();
    QTRY_VERIFY(m_detector->isReady());
    QVERIFY(isLoaded("opencv"));
}

void FaceDetectorTest::isShared()
{
    QCOMPARE(FaceDetector::shared(), m_detector);
}

void FaceDetectorTest::eachPhotograph()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(photographs)); ++i)
        QTest::newRow(photographs[i].file) << i;
}

void FaceDetectorTest::everyFaceOfAPhotograph()
{
    QFETCH(int, index);
    const Photograph &photograph = photographs[index];
    const QList<QRectF> faces = fromTheLeft(m_detector->faces(read(photograph.file)));
    QCOMPARE(faces.count(), photograph.faces.count());
    for (int i = 0; i < faces.count(); ++i)
        QVERIFY2(isNear(faces[i].center(), photograph.faces[i]), qPrintable(QString::number(i)));
}

void FaceDetectorTest::largePhotographs()
{
    for (QSize size : { QSize(1280, 720), QSize(3840, 2160), FaceDetector::pictureSize }) {
        const QImage image =
            read("sample6.jpg").scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QList<QRectF> faces = fromTheLeft(m_detector->faces(image));
        QCOMPARE(faces.count(), photographs[5].faces.count());
        for (int i = 0; i < faces.count(); ++i)
            QVERIFY(isNear(faces[i].center(), photographs[5].faces[i]));
    }
}

void FaceDetectorTest::mirrored()
{
    QFETCH(int, index);
    const Photograph &photograph = photographs[index];
    const QImage image = read(photograph.file).mirrored(true, false);
    const QList<QRectF> faces = fromTheLeft(m_detector->faces(image));
    QCOMPARE(faces.count(), photograph.faces.count());
    for (int i = 0; i < faces.count(); ++i) {
        const QPointF face = photograph.faces[faces.count() - 1 - i];
        QVERIFY(isNear(faces[i].center(), { 1 - face.x(), face.y() }));
    }
}

void FaceDetectorTest::sameAgain()
{
    const QImage image = read("sample5.jpg");
    const QList<QRectF> faces = m_detector->faces(image);
    m_detector->faces(read("sample1.jpg"));
    QCOMPARE(m_detector->faces(image), faces);
}

void FaceDetectorTest::facesAtTheEdge()
{
    // The picture ends behind, within or before the face in the middle.
    const QImage image = read("sample3.jpg");
    for (double edge : { 0.68, 0.66, 0.64, 0.62, 0.60, 0.58 }) {
        const int width = int(edge * image.width());
        const QList<QRectF> faces = m_detector->faces(image.copy(0, 0, width, image.height()));
        QVERIFY(!faces.isEmpty());
        for (const QRectF &face : faces)
            QVERIFY(QRectF(0, 0, 1, 1).contains(face));
    }
}

void FaceDetectorTest::nothing_data()
{
    QTest::addColumn<QImage>("image");
    QTest::newRow("black") << filled(Qt::black);
    QTest::newRow("white") << filled(Qt::white);
    QTest::newRow("skin") << filled(QColor(224, 172, 105));
    QTest::newRow("noise") << noise();
    // Nothing but a railing.
    QTest::newRow("stairs") << read("sample5.jpg").copy(0, 0, 400, 800);
    QTest::newRow("no picture") << QImage();
}

void FaceDetectorTest::nothing()
{
    QFETCH(QImage, image);
    QVERIFY(m_detector->faces(image).isEmpty());
}

void FaceDetectorTest::oddSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1x1") << QSize(1, 1);
    QTest::newRow("3x4000") << QSize(3, 4000);
    QTest::newRow("4000x3") << QSize(4000, 3);
    QTest::newRow("641x1") << QSize(641, 1);
}

void FaceDetectorTest::oddSizes()
{
    QFETCH(QSize, size);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QVERIFY(m_detector->faces(image).isEmpty());
}

QTEST_GUILESS_MAIN(FaceDetectorTest)
#include "tst_face_detector.moc"
