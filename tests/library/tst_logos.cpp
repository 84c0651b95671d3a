// The logos in a list of channels.
#include "ContentWindow.h"
#include "library/LogoImage.h"
#include "support/TestServer.h"

#include <QBuffer>

using namespace zeph;

namespace {

QByteArray picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return buffer.data();
}

void collectLogos(QQuickItem &item, QList<LogoImage *> &logos)
{
    if (auto *logo = qobject_cast<LogoImage *>(&item); logo && item.isVisible())
        logos << logo;
    for (QQuickItem *child : item.childItems())
        collectLogos(*child, logos);
}

struct Logos : ContentWindow {
    TestServer server { folder.path() };
    Driver user = driver();

    QString path(int link) const { return QStringLiteral("/%1.png").arg(link); }
    /// Saves links with these logos, and opens their panel.
    void save(const QList<QUrl> &logos)
    {
        QList<PlaylistEntry> links;
        for (const QUrl &logo : logos) {
            auto fields = savedLinkFields(QStringLiteral("Link %1").arg(links.size()));
            fields.logoURL = AddressText::fromUrl(logo);
            links << PlaylistEntry(fields);
        }
        view.localM3UStore()->replaceEntries(links);
        view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        view.controlBar()->toggleSidebar();
    }
    QList<LogoImage *> shown() const
    {
        QList<LogoImage *> logos;
        collectLogos(*window->contentItem(), logos);
        return logos;
    }
    /// How many logos of links from `first` to before `end` were asked for.
    int requests(int first, int end) const
    {
        int count = 0;
        for (int link = first; link < end; ++link)
            count += server.requestCount(path(link));
        return count;
    }
    QQuickItem *flickable() const
    {
        return user.find(QStringLiteral("Play Link 0"))->parentItem()->parentItem();
    }
    QColor colorIn(const QQuickItem *item) const
    {
        return colorAt(item, { item->width() / 2, item->height() / 2 });
    }
    QColor colorAt(const QQuickItem *item, QPointF point) const
    {
        return window->grabWindow().pixelColor(
            (item->mapToScene(point) * window->effectiveDevicePixelRatio()).toPoint());
    }
};

} // namespace

class LogosTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol|QML"))); }

    void aLogoIsShown()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.server.serve(test.path(0), picture({ 200, 200 }));
        test.save({ test.server.url(test.path(0)) });
        QTRY_COMPARE(test.shown().size(), 1);
        QTRY_VERIFY(test.shown().constFirst()->hasImage());
        QTRY_VERIFY(test.shown().constFirst()->mapToScene({}).x() > 0);
        QTRY_COMPARE(test.colorIn(test.shown().constFirst()), QColor(Qt::red));
    }

    void aSmallLogoFillsItsFrame()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.server.serve(test.path(0), picture({ 8, 4 }));
        test.save({ test.server.url(test.path(0)) });
        QTRY_COMPARE(test.shown().size(), 1);
        const LogoImage *logo = test.shown().constFirst();
        QTRY_VERIFY(logo->hasImage());
        QTRY_COMPARE(test.user.pointIn(QStringLiteral("Add M3U8 Link"), 0).x(), 10.0);
        QCOMPARE(logo->size(), QSizeF(24, 24));
        const QColor red(Qt::red);
        QTRY_COMPARE(test.colorAt(logo, { 1, 12 }), red);
        QCOMPARE(test.colorAt(logo, { 22, 12 }), red);
        QCOMPARE(test.colorAt(logo, { 12, 7 }), red);
        QCOMPARE(test.colorAt(logo, { 12, 16 }), red);
        QVERIFY(test.colorAt(logo, { 12, 4 }) != red);
        QVERIFY(test.colorAt(logo, { 12, 20 }) != red);
    }

    void aFileIsShownAtOnce()
    {
        Logos test;
        QVERIFY(test.isUp());
        const QString path = test.folder.filePath(QStringLiteral("logo.png"));
        QVERIFY(QImage::fromData(picture({ 64, 32 })).save(path));
        test.save({ QUrl::fromLocalFile(path) });
        QTRY_COMPARE(test.shown().size(), 1);
        QVERIFY(test.shown().constFirst()->hasImage());
    }

    void otherwiseASymbolIs()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.server.serve(test.path(1), "<svg xmlns='http://www.w3.org/2000/svg'/>");
        test.save({ {}, test.server.url(test.path(1)), test.server.url(QStringLiteral("/missing")),
            QUrl::fromLocalFile(test.folder.path()), QUrl(QStringLiteral("ftp://h/logo.png")) });
        QTRY_COMPARE(test.shown().size(), 5);
        QTRY_COMPARE(test.server.answeredCount(QStringLiteral("/missing")), 1);
        QTRY_COMPARE(test.view.logos()->downloadCount(), 0);
        for (const LogoImage *logo : test.shown()) {
            QVERIFY(!logo->hasImage());
            QQuickItem *symbol = nullptr;
            for (QQuickItem *sibling : logo->parentItem()->childItems()) {
                if (sibling->property("name") == QStringLiteral("tv"))
                    symbol = sibling;
            }
            QVERIFY(symbol && symbol->isVisible());
        }
    }

    void onlyThoseOnScreenAreFetched()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.window->setHeight(900);
        QList<QUrl> logos;
        for (int link = 0; link < 300; ++link) {
            test.server.serve(test.path(link), picture({ 8, 8 }));
            test.server.hold(test.path(link));
            logos << test.server.url(test.path(link));
        }
        test.save(logos);
        QTRY_VERIFY(test.shown().size() > 10);
        QTRY_COMPARE(test.requests(0, 300), 6);
        const int onScreen = static_cast<int>(test.shown().size());
        QCOMPARE(test.requests(0, onScreen), 6);
        QCOMPARE(test.view.logos()->downloadCount(), 6);

        // Those that leave make room, and nobody asks for those that fly past.
        QQuickItem *flickable = test.flickable();
        for (int link = 0; link <= 200; ++link) {
            flickable->setProperty("contentY", 44 * link);
            QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
        }
        for (int link = 0; link < 200; ++link)
            test.server.letGo(test.path(link));
        QTRY_COMPARE(test.requests(200, 201 + onScreen), 6);
        QCOMPARE(test.view.logos()->downloadCount(), 6);
        for (int link = 0; link < 300; ++link)
            test.server.letGo(test.path(link));
        for (const LogoImage *logo : test.shown())
            QTRY_VERIFY(logo->hasImage());
        QVERIFY(test.requests(0, 300) < 60);
    }

    void whatIsHiddenIsNotFetched()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.server.hang(test.path(0));
        test.save({ test.server.url(test.path(0)) });
        QTRY_COMPARE(test.server.requestCount(test.path(0)), 1);
        QCOMPARE(test.view.logos()->downloadCount(), 1);
        test.view.setSelectedSidebarSection(PlayerSidebarSection::Network);
        QTRY_COMPARE(test.view.logos()->downloadCount(), 0);
        test.view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        QTRY_COMPARE(test.server.requestCount(test.path(0)), 2);
        test.view.controlBar()->toggleSidebar();
        QTRY_COMPARE(test.view.logos()->downloadCount(), 0);
        test.server.release();
    }

    void anotherLogoTakesItsPlace()
    {
        Logos test;
        QVERIFY(test.isUp());
        test.server.serve(test.path(0), picture({ 8, 8 }));
        test.save({ test.server.url(test.path(0)) });
        QTRY_COMPARE(test.shown().size(), 1);
        LogoImage *logo = test.shown().constFirst();
        QTRY_VERIFY(logo->hasImage());
        test.server.hang(QStringLiteral("/slow"));
        logo->setUrl(test.server.url(QStringLiteral("/slow")));
        QVERIFY(!logo->hasImage());
        logo->setUrl(test.server.url(test.path(0)));
        QVERIFY(logo->hasImage()); // It is remembered.
        test.server.release();
    }
};

int main(int argc, char *argv[])
{
    LogosTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_logos.moc"
