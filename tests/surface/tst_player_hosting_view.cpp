// What the native video surface does with its player, its mode and its size.
#include "CalculatedNumbers.h"
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/MediaItemVideoOutput.h"
#include "platform/PlayerSurfaceRegistry.h"
#include "platform/VideoLayer.h"

#include <QTimer>

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

constexpr QSize size(1000, 500);
constexpr double columnWidth = 281.25;
constexpr double overflow = 500.0 * 16 / 9 - columnWidth; ///< Of a picture of 16:9.
constexpr double growth = 0.12999999999999989;

QRectF frame(const QQuickItem &item)
{
    return { item.position(), item.size() };
}

QRectF grown(const QRectF &frame)
{
    return { frame.x() - frame.width() * growth / 2, frame.y() - frame.height() * growth / 2,
        frame.width() * (1 + growth), frame.height() * (1 + growth) };
}

void drag(VideoWindow &video, int dx)
{
    const QPoint from(500, 250);
    const QPoint to = from + QPoint(dx, 0);
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&video.window(), to);
    QTest::mouseRelease(&video.window(), Qt::LeftButton, {}, to);
}

std::unique_ptr<MediaItem> gridItem()
{
    const QString clip = clipPath(QStringLiteral("grid.mkv"));
    return std::make_unique<MediaItem>(QUrl::fromLocalFile(clip));
}

void openAndWait(VideoWindow &video, const char *clip, QSizeF pictureSize)
{
    video.open(QString::fromLatin1(clip));
    QTRY_COMPARE(video.player().currentItem()->presentationSize(), pictureSize);
}

} // namespace

class PlayerHostingViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void asItBegins();
    void fill();
    void rotateAndBack();
    void manual();
    void manualBeforeTheSizeIsKnown();
    void portraitPicture();
    void sameModeAgain();
    void panFromModeToMode_data();
    void panFromModeToMode();
    void fillScreenChangesNoFrame();
    void resized();

    void timerOnlyInSmart();
    void freshTapForEachItem();
    void sameItemKeepsItsTap();
    void destroyedViewDetachesItsTap();
    void anotherViewsTapIsLeftAlone();

    void registryHoldsTheView();
    void registryIsLeftToAnotherView();
};

void PlayerHostingViewTest::asItBegins()
{
    const PlayerHostingView view;
    QVERIFY(!view.player());
    QCOMPARE(view.displayMode(), Mode::Normal);
    QVERIFY(!view.fillScreen());
    QCOMPARE(view.horizontalPan(), 0.0);
    QVERIFY(!view.smartTimer().isActive());
    QVERIFY(!view.videoOutput());
    QCOMPARE(view.playerLayer().gravity(), VideoGravity::ResizeAspect);
    QVERIFY(view.clip());
    QCOMPARE(view.cropLayer().parentItem(), &view);
    QCOMPARE(view.playerLayer().parentItem(), &view.cropLayer());
}

void PlayerHostingViewTest::fill()
{
    PlayerHostingView view;
    view.setSize(size);
    QVERIFY(isSame(frame(view.cropLayer()), { 0, 0, 1000, 500 }));
    QVERIFY(!view.cropLayer().clip());

    view.setDisplayMode(Mode::Fill);
    QVERIFY(isSame(frame(view.cropLayer()), { 359.375, 0, 281.25, 500 }));
    QVERIFY(isSame(frame(view.playerLayer()), { -18.28125, -32.5, 317.8125, 565 }));
    QVERIFY(view.cropLayer().clip());
    QCOMPARE(view.playerLayer().gravity(), VideoGravity::ResizeAspectFill);
}

void PlayerHostingViewTest::rotateAndBack()
{
    PlayerHostingView view;
    view.setSize(size);
    view.setDisplayMode(Mode::Rotate);
    QVERIFY(isSame(frame(view.cropLayer()), { 359.375, 0, 281.25, 500 }));
    // Turned about its middle, which is the column's.
    QVERIFY(isSame(frame(view.playerLayer()), { -109.375, 109.375, 500, 281.25 }));
    QCOMPARE(view.playerLayer().rotation(), 90.0);
    QCOMPARE(view.playerLayer().transformOrigin(), QQuickItem::Center);

    view.setDisplayMode(Mode::Normal);
    QVERIFY(isSame(frame(view.playerLayer()), { 0, 0, 1000, 500 }));
    QCOMPARE(view.playerLayer().rotation(), 0.0);
    QVERIFY(!view.cropLayer().clip());
    QCOMPARE(view.playerLayer().gravity(), VideoGravity::ResizeAspect);
}

void PlayerHostingViewTest::manual()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    openAndWait(video, "grid.mkv", { 1280, 720 });
    const PlayerHostingView &view = video.hostingView();
    const auto isPanned = [&view](double x) {
        return isSame(frame(view.cropLayer()), { 359.375, 0, columnWidth, 500 })
            && isSame(frame(view.playerLayer()), grown({ x, 0, columnWidth + overflow, 500 }));
    };
    QVERIFY(isPanned(-overflow / 2));
    drag(video, 350);
    QCOMPARE(view.horizontalPan(), 1.0);
    QVERIFY(isPanned(0));
    drag(video, -350);
    QVERIFY(isPanned(-overflow / 2));
    drag(video, -350);
    QCOMPARE(view.horizontalPan(), -1.0);
    QVERIFY(isPanned(-overflow));
}

void PlayerHostingViewTest::manualBeforeTheSizeIsKnown()
{
    MediaPlayer player;
    PlayerHostingView view;
    view.setSize(size);
    view.setPlayer(&player);
    for (Mode mode : { Mode::Manual, Mode::Smart }) {
        view.setDisplayMode(mode);
        QVERIFY(isSame(frame(view.playerLayer()), grown({ 0, 0, 281.25, 500 })));
    }
    player.replaceCurrentItem(gridItem());
    view.setPlayer(&player);
    QCOMPARE(player.currentItem()->presentationSize(), QSizeF(0, 0));
    QVERIFY(isSame(frame(view.playerLayer()), grown({ 0, 0, 281.25, 500 })));
}

void PlayerHostingViewTest::portraitPicture()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    openAndWait(video, "grid-tall.mkv", { 540, 1200 });
    const PlayerHostingView &view = video.hostingView();
    const double height = columnWidth * 1200 / 540;
    const QRectF expected = grown({ 0, -(height - 500) / 2, columnWidth, height });
    QVERIFY(isSame(frame(view.playerLayer()), expected));
    drag(video, 175);
    QCOMPARE(view.horizontalPan(), 0.5);
    QVERIFY(isSame(frame(view.playerLayer()), expected));
}

void PlayerHostingViewTest::sameModeAgain()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    view.setDisplayMode(Mode::Manual);
    drag(video, 175);
    view.setDisplayMode(Mode::Smart);
    // Gravity and frame as if somebody else had changed them.
    auto *layer = view.findChild<VideoLayer *>();
    layer->setGravity(VideoGravity::ResizeAspect);
    layer->setSize({ 1, 1 });
    const int halfway = view.smartTimer().interval() / 2;
    QTRY_VERIFY(view.smartTimer().remainingTime() < halfway);

    view.setDisplayMode(Mode::Smart);
    QVERIFY(view.smartTimer().remainingTime() < halfway);
    QCOMPARE(view.horizontalPan(), 0.5);
    QCOMPARE(layer->gravity(), VideoGravity::ResizeAspectFill);
    QVERIFY(isSame(frame(*layer), grown({ 0, 0, 281.25, 500 })));
}

void PlayerHostingViewTest::panFromModeToMode_data()
{
    QTest::addColumn<Mode>("between");
    QTest::addColumn<double>("pan");
    QTest::newRow("normal") << Mode::Normal << 0.5;
    QTest::newRow("fill") << Mode::Fill << 0.0;
    QTest::newRow("rotate") << Mode::Rotate << 0.0;
    QTest::newRow("smart") << Mode::Smart << 0.5;
}

void PlayerHostingViewTest::panFromModeToMode()
{
    QFETCH(Mode, between);
    QFETCH(double, pan);
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    drag(video, 175);
    QCOMPARE(video.hostingView().horizontalPan(), 0.5);
    video.view().setDisplayMode(between);
    QCOMPARE(video.hostingView().horizontalPan(), pan);
    video.view().setDisplayMode(Mode::Manual);
    QCOMPARE(video.hostingView().horizontalPan(), pan);
}

void PlayerHostingViewTest::fillScreenChangesNoFrame()
{
    for (Mode mode : allPortraitDisplayModes) {
        PlayerHostingView view;
        view.setSize(size);
        view.setDisplayMode(mode);
        const QRectF crop = frame(view.cropLayer());
        const QRectF player = frame(view.playerLayer());
        const VideoGravity gravity = view.playerLayer().gravity();
        for (bool fillScreen : { true, true, false }) {
            view.setFillScreen(fillScreen);
            QCOMPARE(view.fillScreen(), fillScreen);
            QCOMPARE(frame(view.cropLayer()), crop);
            QCOMPARE(frame(view.playerLayer()), player);
            QCOMPARE(view.playerLayer().gravity(), gravity);
        }
        // A change applies both again.
        view.findChild<VideoLayer *>()->setSize({ 1, 1 });
        view.setFillScreen(false);
        QCOMPARE(view.playerLayer().size(), QSizeF(1, 1));
        view.setFillScreen(true);
        QCOMPARE(frame(view.playerLayer()), player);
    }
}

void PlayerHostingViewTest::resized()
{
    PlayerHostingView view;
    view.setDisplayMode(Mode::Fill);
    QVERIFY(isSame(frame(view.playerLayer()), { 0, 0, 0, 0 }));
    view.setSize(size);
    QVERIFY(isSame(frame(view.playerLayer()), { -18.28125, -32.5, 317.8125, 565 }));
    view.setSize({ 100, 1000 });
    QVERIFY(isSame(frame(view.cropLayer()), { -231.25, 0, 562.5, 1000 }));
}

void PlayerHostingViewTest::timerOnlyInSmart()
{
    PlayerHostingView view;
    QCOMPARE(view.smartTimer().interval(), 450);
    QVERIFY(!view.smartTimer().isSingleShot());
    for (Mode mode : { Mode::Smart, Mode::Fill, Mode::Smart, Mode::Rotate, Mode::Manual,
             Mode::Smart, Mode::Normal }) {
        view.setDisplayMode(mode);
        QCOMPARE(view.smartTimer().isActive(), mode == Mode::Smart);
    }
}

void PlayerHostingViewTest::freshTapForEachItem()
{
    VideoWindow video(size);
    const PlayerHostingView &view = video.hostingView();
    // Nothing and nothing are the same: there is no tap yet.
    QVERIFY(!view.videoOutput());

    video.open(QStringLiteral("grid.mkv"));
    const QPointer<MediaItem> first = video.player().currentItem();
    const QPointer<const MediaItemVideoOutput> firstTap = view.videoOutput();
    QVERIFY(firstTap);
    QCOMPARE(first->videoOutput(), firstTap);

    video.open(QStringLiteral("grid-tall.mkv"));
    // The old item is still there, and is tapped no longer.
    QVERIFY(first);
    QVERIFY(!first->videoOutput());
    QVERIFY(!firstTap);
    const QPointer<const MediaItemVideoOutput> secondTap = view.videoOutput();
    QVERIFY(secondTap);
    QCOMPARE(video.player().currentItem()->videoOutput(), secondTap);

    // There is a fresh one even for no item at all.
    video.player().replaceCurrentItem(nullptr);
    QVERIFY(!secondTap);
    QVERIFY(view.videoOutput());
}

void PlayerHostingViewTest::sameItemKeepsItsTap()
{
    VideoWindow video(size);
    PlayerHostingView &view = video.hostingView();
    video.open(QStringLiteral("grid.mkv"));
    const QPointer<const MediaItemVideoOutput> tap = view.videoOutput();
    view.setPlayer(&video.player());
    video.view().setDisplayMode(Mode::Fill);
    QVERIFY(tap);
    QCOMPARE(view.videoOutput(), tap);
    QCOMPARE(video.player().currentItem()->videoOutput(), tap);

    video.player().replaceCurrentItem(nullptr);
    const QPointer<const MediaItemVideoOutput> idleTap = view.videoOutput();
    view.setPlayer(&video.player());
    QVERIFY(idleTap);
    QCOMPARE(view.videoOutput(), idleTap);
}

void PlayerHostingViewTest::destroyedViewDetachesItsTap()
{
    MediaPlayer player;
    player.replaceCurrentItem(gridItem());
    auto view = std::make_unique<PlayerHostingView>();
    view->setPlayer(&player);
    QVERIFY(player.currentItem()->videoOutput());
    view->setDisplayMode(Mode::Smart);
    const QPointer<const QTimer> timer = &view->smartTimer();
    view.reset();
    QVERIFY(!player.currentItem()->videoOutput());
    QVERIFY(timer.isNull());
}

void PlayerHostingViewTest::anotherViewsTapIsLeftAlone()
{
    MediaPlayer player;
    player.replaceCurrentItem(gridItem());
    auto first = std::make_unique<PlayerHostingView>();
    first->setPlayer(&player);
    MediaItemVideoOutput another({ 1, 1 });
    player.currentItem()->setVideoOutput(&another);
    first.reset();
    QCOMPARE(player.currentItem()->videoOutput(), &another);
}

void PlayerHostingViewTest::registryHoldsTheView()
{
    PlayerSurfaceRegistry &registry = PlayerSurfaceRegistry::shared();
    {
        PlayerLayerView view;
        QCOMPARE(registry.view(), &view.hostingView());
        // Each update stores it again.
        registry.setView(nullptr);
        view.setDisplayMode(Mode::Fill);
        QCOMPARE(registry.view(), &view.hostingView());
    }
    QVERIFY(!registry.view());
}

void PlayerHostingViewTest::registryIsLeftToAnotherView()
{
    PlayerSurfaceRegistry &registry = PlayerSurfaceRegistry::shared();
    QQuickItem webView;
    {
        const PlayerLayerView view;
        registry.setView(&webView);
    }
    QCOMPARE(registry.view(), &webView);
    registry.setView(nullptr);
}

int main(int argc, char *argv[])
{
    PlayerHostingViewTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_player_hosting_view.moc"
