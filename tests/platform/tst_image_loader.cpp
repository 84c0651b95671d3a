// Pictures from a real server and from files, honest and hostile ones.
#include "platform/ImageDecoding.h"
#include "platform/ImageLoader.h"
#include "support/Patience.h"
#include "support/TestServer.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtEndian>

#include <sys/stat.h>

#include <zlib.h>

using namespace std::chrono_literals;
using namespace zeph;

namespace {

constexpr QSize bounds(56, 56);

QByteArray picture(QSize size, const char *format = "png", QColor color = Qt::red)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, format).write(image);
    return buffer.data();
}

/// Says that it has this size, whatever its pixels are.
QByteArray pngThatClaims(quint32 width, quint32 height)
{
    constexpr int header = 12; // After the signature and the length.
    QByteArray png = picture({ 1, 1 });
    auto *bytes = reinterpret_cast<uchar *>(png.data());
    qToBigEndian(width, bytes + header + 4);
    qToBigEndian(height, bytes + header + 8);
    qToBigEndian(quint32(crc32(0, bytes + header, 17)), bytes + header + 17);
    return png;
}

struct Loading {
    QTemporaryDir folder;
    TestServer server { folder.path() };
    ImageLoader loader;

    /// The picture that the server has at `path`; null when it is none.
    QImage load(const QString &path)
    {
        ImageRequest request(loader, server.url(path), bounds);
        if (!QTest::qWaitFor([&] { return request.isFinished(); }, patience))
            qFatal("The request did not end.");
        return request.image();
    }
    QImage load(const QByteArray &bytes)
    {
        server.serve(QStringLiteral("/picture"), bytes);
        return load(QStringLiteral("/picture"));
    }
    /// The picture in a file, which is there at once.
    QImage read(const QUrl &url)
    {
        const ImageRequest request(loader, url, bounds);
        if (!request.isFinished())
            qFatal("A file was not read at once.");
        return request.image();
    }
    QUrl file(const QString &name) const { return QUrl::fromLocalFile(folder.filePath(name)); }
    QUrl write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("The file could not be written.");
        return QUrl::fromLocalFile(file.fileName());
    }
    int requests(const QStringList &paths) const
    {
        int count = 0;
        for (const QString &path : paths)
            count += server.requestCount(path);
        return count;
    }
};

QStringList paths(int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << QStringLiteral("/%1.png").arg(i);
    return paths;
}

} // namespace

class ImageLoaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPictureIsLoaded()
    {
        Loading test;
        const QImage image = test.load(picture({ 20, 10 }));
        QCOMPARE(image.size(), QSize(20, 10));
        QCOMPARE(image.pixelColor(5, 5), QColor(Qt::red));
    }

    void formats_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : { "png", "jpeg", "bmp", "webp", "ico" })
            QTest::newRow(format) << QByteArray(format);
    }
    void formats()
    {
        QFETCH(QByteArray, format);
        Loading test;
        const QImage image = test.load(picture({ 32, 16 }, format));
        QCOMPARE(image.size(), QSize(32, 16));
        QVERIFY(image.pixelColor(16, 8).red() > 240);
    }

    void aGif()
    {
        Loading test;
        const QByteArray gif = QByteArray::fromHex("47494638396101000100800000ff0000ffffff21f904000"
                                                   "00000002c00000000010001000002024401003b");
        QCOMPARE(test.load(gif).pixelColor(0, 0), QColor(Qt::red));
    }

    void itIsScaledDown_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("scaled");
        QTest::newRow("wide") << QByteArray("png") << QSize(560, 280) << QSize(56, 28);
        QTest::newRow("high") << QByteArray("png") << QSize(100, 1000) << QSize(5, 56);
        QTest::newRow("a line") << QByteArray("png") << QSize(4000, 1) << QSize(56, 1);
        QTest::newRow("large") << QByteArray("png") << QSize(4096, 4096) << QSize(56, 56);
        QTest::newRow("photograph") << QByteArray("jpeg") << QSize(4000, 3000) << QSize(56, 42);
    }
    void itIsScaledDown()
    {
        QFETCH(QByteArray, format);
        QFETCH(QSize, size);
        QFETCH(QSize, scaled);
        Loading test;
        QCOMPARE(test.load(picture(size, format)).size(), scaled);
    }

    void whatIsNoPicture_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray png = picture({ 200, 200 });
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a page") << QByteArray("<html><body>Not found</body></html>");
        QTest::newRow("a drawing") << QByteArray(
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' "
            "height='9'/></svg>");
        QTest::newRow("a drawing with a declaration")
            << QByteArray("<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg'/>");
        QTest::newRow("another format") << QByteArray("P6 1 1 255 \xff\xff\xff");
        QTest::newRow("only a signature") << png.left(8);
        QTest::newRow("noise") << QByteArray("\x89PNG\r\n\x1a\n") + QByteArray(1000, 'x');
        QTest::newRow("huge") << pngThatClaims(100'000, 100'000);
        QTest::newRow("too wide") << pngThatClaims(imageSideLimit + 1, 1);
        QTest::newRow("beyond all numbers") << pngThatClaims(0xffff'ffff, 0xffff'ffff);
        QTest::newRow("without area") << pngThatClaims(0, 10);
        QTest::newRow("more than a file holds") << png + QByteArray(imageFileSizeLimit, '\0');
    }
    void whatIsNoPicture()
    {
        QFETCH(QByteArray, bytes);
        Loading test;
        QVERIFY(test.load(bytes).isNull());
        QCOMPARE(test.loader.downloadCount(), 0);
    }

    void aPictureMayBeSaidToBeSomethingElse()
    {
        Loading test;
        test.server.serve(QStringLiteral("/page.html"), picture({ 4, 4 }), "text/html");
        QVERIFY(!test.load(QStringLiteral("/page.html")).isNull());
    }

    void brokenDownloads()
    {
        Loading test;
        QVERIFY(test.load(QStringLiteral("/missing")).isNull());
        test.server.serveStatus(QStringLiteral("/error"), 500);
        QVERIFY(test.load(QStringLiteral("/error")).isNull());
        test.server.serveCutOff(QStringLiteral("/short"), picture({ 300, 300 }), 50);
        QVERIFY(test.load(QStringLiteral("/short")).isNull());
        test.server.serveEndlessly(QStringLiteral("/endless"), QByteArray(1 << 16, 'x'));
        QVERIFY(test.load(QStringLiteral("/endless")).isNull());
    }

    void redirects()
    {
        Loading test;
        test.write(QStringLiteral("there.png"), picture({ 4, 4 }));
        test.server.redirect(QStringLiteral("/here"), "/there.png");
        QVERIFY(!test.load(QStringLiteral("/here")).isNull());
        test.server.redirect(
            QStringLiteral("/file"), test.file(QStringLiteral("there.png")).toEncoded());
        QVERIFY(test.load(QStringLiteral("/file")).isNull());
    }

    void otherAddresses()
    {
        Loading test;
        for (const auto *address : { "ftp://127.0.0.1/a.png", "a.png", "",
                 "data:image/gif;base64,R0lGODlhAQABAIAAAAAAAP///"
                 "yH5BAEAAAAALAAAAAABAAEAAAIBRAA7" }) {
            ImageRequest request(test.loader, QUrl(QString::fromLatin1(address)), bounds);
            QTRY_VERIFY(request.isFinished());
            QVERIFY(request.image().isNull());
        }
    }

    void aDownloadThatDoesNotEndIsGivenUp()
    {
        Loading test;
        ImageLoader loader(ImageLoader::Limits { .time = 200ms });
        test.server.hang(QStringLiteral("/silent"));
        ImageRequest request(loader, test.server.url(QStringLiteral("/silent")), bounds);
        QTRY_VERIFY(request.isFinished());
        QVERIFY(request.image().isNull());
        QCOMPARE(loader.downloadCount(), 0);
        test.server.release();
    }

    void sixAtOnce()
    {
        Loading test;
        const QStringList all = paths(10);
        std::vector<std::unique_ptr<ImageRequest>> requests;
        for (const QString &path : all) {
            test.server.serve(path, picture({ 4, 4 }));
            test.server.hold(path);
            requests.push_back(
                std::make_unique<ImageRequest>(test.loader, test.server.url(path), bounds));
        }
        QTRY_COMPARE(test.requests(all), 6);
        QCOMPARE(test.loader.downloadCount(), 6);
        test.server.letGo(all.at(3));
        QTRY_COMPARE(test.requests(all), 7);
        QVERIFY(requests[3]->isFinished());
        QCOMPARE(test.loader.downloadCount(), 6);
        QCOMPARE(test.server.requestCount(all.at(7)), 0);
        for (const QString &path : all)
            test.server.letGo(path);
        for (const auto &request : requests) {
            QTRY_VERIFY(request->isFinished());
            QCOMPARE(request->image().size(), QSize(4, 4));
        }
        QCOMPARE(test.loader.downloadCount(), 0);
    }

    void whoLeavesCancels()
    {
        Loading test;
        const QStringList all = paths(9);
        for (const QString &path : all.first(6))
            test.server.hold(path);
        std::vector<std::unique_ptr<ImageRequest>> requests;
        for (const QString &path : all) {
            test.server.serve(path, picture({ 4, 4 }));
            requests.push_back(
                std::make_unique<ImageRequest>(test.loader, test.server.url(path), bounds));
        }
        QTRY_COMPARE(test.requests(all), 6);
        requests[7] = nullptr; // Waits.
        requests[0] = nullptr; // Is under way, and makes room for another.
        QTRY_VERIFY(requests[6]->isFinished());
        QTRY_VERIFY(requests[8]->isFinished());
        QCOMPARE(test.server.requestCount(all.at(7)), 0);
        QCOMPARE(test.loader.downloadCount(), 5);
        requests.clear();
        QCOMPARE(test.loader.downloadCount(), 0);
        for (const QString &path : all)
            test.server.letGo(path);
    }

    void whoAsksForTheSameSharesIt()
    {
        Loading test;
        const QString path = QStringLiteral("/a.png");
        test.server.serve(path, picture({ 4, 4 }));
        test.server.hold(path);
        ImageRequest one(test.loader, test.server.url(path), bounds);
        ImageRequest two(test.loader, test.server.url(path), bounds);
        {
            ImageRequest three(test.loader, test.server.url(path), bounds);
        }
        QTRY_COMPARE(test.server.requestCount(path), 1);
        test.server.letGo(path);
        QTRY_VERIFY(one.isFinished() && two.isFinished());
        QCOMPARE(one.image(), two.image());
        QCOMPARE(test.server.requestCount(path), 1);
    }

    void whoIsToldMayLeave()
    {
        Loading test;
        const QString path = QStringLiteral("/a.png");
        test.server.serve(path, picture({ 4, 4 }));
        auto *one = new ImageRequest(test.loader, test.server.url(path), bounds);
        auto *two = new ImageRequest(test.loader, test.server.url(path), bounds);
        int told = 0;
        for (ImageRequest *request : { one, two }) {
            connect(request, &ImageRequest::finished, this, [&, one, two] {
                ++told;
                delete one;
                delete two;
            });
        }
        QTRY_COMPARE(told, 1);
    }

    void picturesAreRemembered()
    {
        Loading test;
        const QString path = QStringLiteral("/a.png");
        test.server.serve(path, picture({ 4, 4 }));
        QVERIFY(!test.load(path).isNull());
        const ImageRequest again(test.loader, test.server.url(path), bounds);
        QVERIFY(again.isFinished());
        QCOMPARE(again.image().size(), QSize(4, 4));
        QCOMPARE(test.server.requestCount(path), 1);
        const ImageRequest larger(test.loader, test.server.url(path), bounds * 2);
        QVERIFY(!larger.isFinished());
    }

    void failuresAreRemembered()
    {
        Loading test;
        const QString path = QStringLiteral("/missing");
        QVERIFY(test.load(path).isNull());
        QVERIFY(test.load(path).isNull());
        QCOMPARE(test.server.requestCount(path), 1);
    }

    void onlySoMuchIsRemembered()
    {
        Loading test;
        constexpr qsizetype limit = 100'000;
        ImageLoader loader(ImageLoader::Limits { .cache = limit });
        const QStringList all = paths(20);
        for (const QString &path : all) {
            test.server.serve(path, picture({ 56, 56 })); // 12.5 kB each.
            ImageRequest request(loader, test.server.url(path), bounds);
            QTRY_VERIFY(request.isFinished());
            QVERIFY(loader.cachedBytes() <= limit);
            // Which keeps it.
            const ImageRequest first(loader, test.server.url(all.constFirst()), bounds);
            QVERIFY(first.isFinished());
        }
        QVERIFY(loader.cachedBytes() > limit / 2);
        const ImageRequest last(loader, test.server.url(all.constLast()), bounds);
        QVERIFY(last.isFinished());
        const ImageRequest early(loader, test.server.url(all.at(3)), bounds);
        QVERIFY(!early.isFinished());
    }

    void aPictureThatIsTooLargeToRememberIsShown()
    {
        Loading test;
        ImageLoader loader(ImageLoader::Limits { .cache = 1000 });
        const ImageRequest request(
            loader, test.write(QStringLiteral("a.png"), picture({ 56, 56 })), bounds);
        QVERIFY(!request.image().isNull());
        QCOMPARE(loader.cachedBytes(), 0);
    }

    void filesAreReadAtOnce()
    {
        Loading test;
        QCOMPARE(test.read(test.write(QStringLiteral("a b%.png"), picture({ 90, 45 }))).size(),
            QSize(56, 28));
        const QString link = test.folder.filePath(QStringLiteral("link.png"));
        QVERIFY(QFile::link(test.folder.filePath(QStringLiteral("a b%.png")), link));
        QVERIFY(!test.read(QUrl::fromLocalFile(link)).isNull());
    }

    void whatIsNoFile()
    {
        Loading test;
        QVERIFY(test.read(test.file(QStringLiteral("missing"))).isNull());
        QVERIFY(test.read(test.file({})).isNull());
        QVERIFY(test.read(QUrl(QStringLiteral("file:"))).isNull());
        QVERIFY(test.read(QUrl(QStringLiteral("file:///a%00b"))).isNull());
        QVERIFY(test.read(QUrl(QStringLiteral("file:///dev/zero"))).isNull());
        const QUrl pipe = test.file(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(qPrintable(pipe.toLocalFile()), 0600), 0);
        QVERIFY(test.read(pipe).isNull());
    }

    void filesThatAreNoPictures()
    {
        Loading test;
        QVERIFY(test.read(test.write(QStringLiteral("empty"), {})).isNull());
        QVERIFY(test.read(test.write(QStringLiteral("text.png"), "Hello")).isNull());
        QVERIFY(test.read(test.write(QStringLiteral("huge.png"), pngThatClaims(1 << 20, 1 << 20)))
                    .isNull());
        QFile sparse(test.folder.filePath(QStringLiteral("sparse.png")));
        QVERIFY(sparse.open(QIODevice::WriteOnly));
        QVERIFY(sparse.write(picture({ 4, 4 })) > 0);
        QVERIFY(sparse.resize(qint64 { 1 } << 40));
        QVERIFY(test.read(QUrl::fromLocalFile(sparse.fileName())).isNull());
    }

    void aRequestUnderWayIsDestroyed()
    {
        Loading test;
        const QString path = QStringLiteral("/a.png");
        test.server.hang(path);
        {
            ImageLoader loader;
            ImageRequest waiting(loader, test.server.url(path), bounds);
            QTRY_COMPARE(test.server.requestCount(path), 1);
        }
        test.server.release();
    }
};

QTEST_GUILESS_MAIN(ImageLoaderTest)
#include "tst_image_loader.moc"
