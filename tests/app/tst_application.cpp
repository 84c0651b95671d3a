// The built program as its user meets it: on a screen, with a keyboard.
#include "support/Patience.h"
#include "support/PlayerProgram.h"

#include <QGuiApplication>
#include <QScreen>

#include <csignal>
#include <cstdlib>

namespace {

QString clipPath(const QString &name)
{
    return qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name;
}

class Program : public PlayerProgram {
public:
    using PlayerProgram::PlayerProgram;

    /// Whether the control bar is there, which lies at the lower edge.
    bool isDrawn() const
    {
        const QImage image = picture();
        return !image.isNull() && image.pixelColor(3, image.height() - 3).lightness() > 60;
    }

    /// Whether the quarters of the picture have the colours of the colours clip.
    bool showsColours() const
    {
        const QImage image = picture();
        const auto colour = [&image](double x, double y) {
            return image.pixelColor(int(x * image.width()), int(y * image.height()));
        };
        return !image.isNull() && colour(0.25, 0.35).red() > 200 && colour(0.25, 0.35).green() < 50
            && colour(0.75, 0.35).green() > 200 && colour(0.75, 0.35).red() < 50
            && colour(0.25, 0.8).blue() > 200 && colour(0.25, 0.8).green() < 50;
    }
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
        QTRY_COMPARE(program.picture().size(), QSize(700, 430));
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
        const auto surface = [&program] { return program.picture().copy(0, 40, 700, 390); };
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
        const QImage before = program.picture();
        program.press(QStringLiteral("space"));
        // A message says that there is nothing to play, and goes away.
        QTRY_VERIFY(!looksLike(program.picture(), before));
        QTRY_VERIFY(looksLike(program.picture(), before));
    }

    void controlOOpensThePanelAndEscapeClosesIt()
    {
        Program program;
        QTRY_COMPARE(program.title(), QStringLiteral("Zeph Player"));
        program.press(QStringLiteral("ctrl+o"));
        const QStringList search { QStringLiteral("search"), QStringLiteral("--onlyvisible"),
            QStringLiteral("--name"), QStringLiteral("Choose Media to Play") };
        QTRY_VERIFY(!xdotool(search).isEmpty());
        XWindow(xdotool(search)).press(QStringLiteral("Escape"));
        QTRY_VERIFY(xdotool(search).isEmpty());
        QVERIFY(program.isRunning());
    }

    void theWindowTakesTheWidthOfThePicture()
    {
        Program program({ clipPath(QStringLiteral("numbered-25.mp4")) });
        QTRY_VERIFY(program.isDrawn() && program.picture().width() != 700);
        const QSize size = program.picture().size();
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
            QTRY_COMPARE(program.picture().size(), screen);
            // Neither menu bar nor controls: the corners are the picture's, or black.
            QTRY_VERIFY(!program.isDrawn() || program.showsColours());
            program.press(QLatin1StringView(key));
            QTRY_COMPARE(program.picture().height(), 430);
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
