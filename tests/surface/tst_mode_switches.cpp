// A thousand changes of the display mode leave nothing behind.
#include "Canvases.h"
#include "support/FrameCount.h"
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/FaceDetector.h"

#include <QDir>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSignalSpy>
#include <QTimer>

#include <atomic>

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

/// Counts the objects of the render thread's OpenGL context. Names are given out from 1 upwards,
/// and again once they are free.
class OpenGLObjects : public QObject {
public:
    explicit OpenGLObjects(QQuickWindow &window) : m_window(window)
    {
        connect(
            &window, &QQuickWindow::beforeRendering, this, [this] { count(); },
            Qt::DirectConnection);
    }

    /// After the window was drawn anew.
    int textures()
    {
        draw();
        return m_textures;
    }
    int framebuffers()
    {
        draw();
        return m_framebuffers;
    }

private:
    void count()
    {
        constexpr GLuint names = 8192;
        QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
        int textures = 0;
        int framebuffers = 0;
        for (GLuint name = 1; name < names; ++name) {
            textures += gl->glIsTexture(name) ? 1 : 0;
            framebuffers += gl->glIsFramebuffer(name) ? 1 : 0;
        }
        m_textures = textures;
        m_framebuffers = framebuffers;
    }

    void draw()
    {
        const FrameCount drawn(m_window);
        m_window.update();
        (void)drawn.waitForNext();
    }

    QQuickWindow &m_window;
    std::atomic<int> m_textures = 0;
    std::atomic<int> m_framebuffers = 0;
};

struct Held {
    int objects;
    int files;
    int threads;
    int textures;
    int framebuffers;
};

int entries(const char *folder)
{
    return int(QDir(QString::fromLatin1(folder))
                   .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                   .count());
}

} // namespace

class ModeSwitchesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leaveNothingBehind_data();
    void leaveNothingBehind();
};

void ModeSwitchesTest::leaveNothingBehind_data()
{
    canvases();
}

void ModeSwitchesTest::leaveNothingBehind()
{
    useCanvas();
    const std::shared_ptr<FaceDetector> detector = FaceDetector::shared();
    QTRY_VERIFY(detector->isReady());
    VideoWindow video({ 400, 200 });
    video.open(QStringLiteral("numbered-25.mp4"));
    video.player().play();
    QTRY_COMPARE(video.player().timeControlStatus(), MediaPlayer::TimeControlStatus::Playing);
    OpenGLObjects openGL(video.window());

    // Some are drawn, most are not; in some the smart mode takes a step.
    const auto switchModes = [&](int times) {
        const FrameCount drawn(video.window());
        for (int i = 0; i < times; ++i) {
            video.view().setDisplayMode(allPortraitDisplayModes[size_t(i) % 5]);
            if (i % 10 == i / 10 % 10) {
                video.window().update();
                QVERIFY(drawn.waitForNext());
            }
            if (i % 250 == 4) {
                QSignalSpy fired(&video.hostingView().smartTimer(), &QTimer::timeout);
                QTRY_VERIFY(!fired.isEmpty());
            }
            // So that the clip does not end.
            if (i % 100 == 0)
                video.player().seek(0);
        }
    };
    const auto held = [&] {
        video.view().setDisplayMode(Mode::Normal);
        QTest::qWait(0);
        return Held { .objects = int(video.window().findChildren<QObject *>().count()
                          + video.view().findChildren<QObject *>().count()
                          + video.player().findChildren<QObject *>().count()),
            .files = entries("/proc/self/fd"),
            .threads = entries("/proc/self/task"),
            .textures = openGL.textures(),
            .framebuffers = openGL.framebuffers() };
    };

    switchModes(50);
    const Held before = held();
    QVERIFY(before.textures > 0);
    switchModes(1000);
    const Held after = held();
    QCOMPARE(after.objects, before.objects);
    QVERIFY2(after.files <= before.files + 2, qPrintable(QString::number(after.files)));
    QVERIFY2(after.threads <= before.threads + 4, qPrintable(QString::number(after.threads)));
    QVERIFY2(after.textures <= before.textures + 4, qPrintable(QString::number(after.textures)));
    QVERIFY2(after.framebuffers <= before.framebuffers + 2,
        qPrintable(QString::number(after.framebuffers)));
    qInfo("%d objects, %d → %d files, %d → %d threads, %d → %d textures, %d → %d framebuffers",
        after.objects, before.files, after.files, before.threads, after.threads, before.textures,
        after.textures, before.framebuffers, after.framebuffers);
}

int main(int argc, char *argv[])
{
    ModeSwitchesTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_mode_switches.moc"
