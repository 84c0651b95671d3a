// The built program as its user meets it: on a screen, with a keyboard.
#include "support/Patience.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>

#include <csignal>
#include <cstdlib>

namespace {

QString clipPath(const QString &name)
{
    return qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name;
}

/// What xdotool answers; empty when it fails.
QString xdotool(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

class Program {
public:
    explicit Program(const QStringList &arguments = {})
    {
        // Out of the way, so that nothing shows a tool tip.
        xdotool({ QStringLiteral("mousemove"), QStringLiteral("0"), QStringLiteral("0") });
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(qEnvironmentVariable("ZEPH_PLAYER"), arguments);
        m_process.waitForStarted();
    }

    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool isRunning()
    {
        m_process.waitForFinished(0);
        return m_process.state() != QProcess::NotRunning;
    }
    bool endedWell() const
    {
        return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }
    qint64 id() const { return m_process.processId(); }

    /// The number of its window; empty until it shows.
    QString window() const
    {
        if (!m_window.isEmpty())
            return m_window;
        const QStringList windows =
            xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                        QStringLiteral("--pid"), QString::number(id()) })
                .split(u'\n', Qt::SkipEmptyParts);
        // Once found it stays the one, also while the window manager takes it in.
        if (!windows.isEmpty())
            m_window = windows.constLast();
        return m_window;
    }
    QString title() const { return xdotool({ QStringLiteral("getwindowname"), window() }); }

    void press(const QString &keys) const
    {
        xdotool({ QStringLiteral("windowfocus"), QStringLiteral("--sync"), window(),
            QStringLiteral("key"), keys });
    }

    QImage screen() const
    {
        return QGuiApplication::primaryScreen()->grabWindow(window().toULongLong()).toImage();
    }

    /// Whether the control bar is there, which lies at the lower edge.
    bool isDrawn() const
    {
        const QImage image = screen();
        return !image.isNull() && image.pixelColor(3, image.height() - 3).lightness() > 60;
    }

    /// Whether the quarters of the picture have the colours of the colours clip.
    bool showsColours() const
    {
        const QImage image = screen();
        const auto colour = [&image](double x, double y) {
            return image.pixelColor(int(x * image.width()), int(y * image.height()));
        };
        return !image.isNull() && colour(0.25, 0.35).red() > 200 && colour(0.25, 0.35).green() < 50
            && colour(0.75, 0.35).green() > 200 && colour(0.75, 0.35).red() < 50
            && colour(0.25, 0.8).blue() > 200 && colour(0.25, 0.8).green() < 50;
    }

private:
    QProcess m_process;
    mutable QString m_window;
};

// What is drawn again may be rounded otherwise, here and there.
bool looksLike(const QImage &image, const QImage &other)
{
    constexpr int rounding = 2;
    if (image.size() != other.size())
        return false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor a = image.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            if (std::abs(a.red() - b.red()) > rounding || std::abs(a.green() - b.green()) > rounding
                || std::abs(a.blue() - b.blue()) > rounding)
                return false;
        }
    }
    return true;
}

} // namespace

class ApplicationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensEmpty()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        QTRY_COMPARE(program.screen().size(), QSize(700, 430));
    }

    void playsAFile()
    {
        Program program({ clipPath(QStringLiteral("colours.mp4")) });
        QTRY_VERIFY(program.showsColours());
        QCOMPARE(program.title(), QStringLiteral("colours.mp4"));
    }

    void playsAnAddress()
    {
        Program program(
            { QUrl::fromLocalFile(clipPath(QStringLiteral("colours.mp4"))).toString() });
        QTRY_VERIFY(program.showsColours());
    }

    void aFileThatIsMissingLeavesAWorkingWindow()
    {
        Program program({ QStringLiteral("/nowhere/at all.mp4") });
        QTRY_COMPARE(program.title(), QStringLiteral("at all.mp4"));
        program.press(QStringLiteral("ctrl+q"));
        QTRY_VERIFY(!program.isRunning());
        QVERIFY(program.endedWell());
    }

    void closingTheWindowEndsTheProcess()
    {
        Program program({ clipPath(QStringLiteral("numbered-25.mp4")) });
        QTRY_COMPARE(program.title(), QStringLiteral("numbered-25.mp4"));
        program.press(QStringLiteral("alt+F4")); // The window manager's key.
        QTRY_VERIFY(!program.isRunning());
        QVERIFY(program.endedWell());
    }

    void theMenuOpensFromTheKeyboard()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        QTRY_VERIFY(program.isDrawn());
        // Below the menu bar, where some versions of Qt leave the title of the closed menu marked.
        const auto surface = [&program] { return program.screen().copy(0, 40, 700, 390); };
        const QImage before = surface();
        program.press(QStringLiteral("alt+p"));
        QTRY_VERIFY(!looksLike(surface(), before));
        program.press(QStringLiteral("Escape"));
        QTRY_VERIFY(looksLike(surface(), before));
    }

    void theKeysReachThePlayer()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        QTRY_VERIFY(program.isDrawn());
        const QImage before = program.screen();
        program.press(QStringLiteral("space"));
        // A message says that there is nothing to play, and goes away.
        QTRY_VERIFY(!looksLike(program.screen(), before));
        QTRY_VERIFY(looksLike(program.screen(), before));
    }

    void controlOOpensThePanelAndEscapeClosesIt()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        program.press(QStringLiteral("ctrl+o"));
        const QStringList search { QStringLiteral("search"), QStringLiteral("--onlyvisible"),
            QStringLiteral("--name"), QStringLiteral("Choose Media to Play") };
        QTRY_VERIFY(!xdotool(search).isEmpty());
        xdotool({ QStringLiteral("windowfocus"), QStringLiteral("--sync"), xdotool(search),
            QStringLiteral("key"), QStringLiteral("Escape") });
        QTRY_VERIFY(xdotool(search).isEmpty());
        QVERIFY(program.isRunning());
    }

    void theWindowTakesTheWidthOfThePicture()
    {
        Program program({ clipPath(QStringLiteral("numbered-25.mp4")) });
        QTRY_VERIFY(program.isDrawn() && program.screen().width() != 700);
        const QSize size = program.screen().size();
        QCOMPARE(size.height(), 430);
        const double menuBar = 430 - 34 - size.width() * 9.0 / 16;
        QVERIFY2(menuBar > 15 && menuBar < 50, qPrintable(QString::number(menuBar)));
    }

    void fullScreenAndBack()
    {
        Program program({ clipPath(QStringLiteral("colours.mp4")) });
        QTRY_VERIFY(program.showsColours());
        const QSize screen = QGuiApplication::primaryScreen()->size();
        for (const char *key : { "Escape", "F11", "f" }) {
            program.press(QStringLiteral("F11"));
            QTRY_COMPARE(program.screen().size(), screen);
            // Neither menu bar nor controls: the corners are the picture's, or black.
            QTRY_VERIFY(!program.isDrawn() || program.showsColours());
            program.press(QLatin1StringView(key));
            QTRY_COMPARE(program.screen().height(), 430);
        }
    }

    void aTerminationSignalEndsIt()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        ::kill(pid_t(program.id()), SIGTERM);
        QTRY_VERIFY(!program.isRunning());
    }
};

QTEST_MAIN(ApplicationTest)
#include "tst_application.moc"
