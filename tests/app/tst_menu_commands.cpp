// The menus: their lines, in order, and what their titles say.
#include "app/AddressArgument.h"
#include "app/MenuCommands.h"
#include "app/ZephApplicationDelegate.h"
#include "library/ContentView.h"
#include "sources/OKVideoContent.h"
#include "support/EngineTest.h"
#include "support/StandInPanels.h"

#include <QDir>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>

using namespace zeph;

namespace {

QStringList lines(const QList<MenuCommand *> &commands)
{
    QStringList lines;
    for (const MenuCommand *command : commands) {
        QString line = command->isDivider() ? QStringLiteral("-") : command->title();
        if (!command->shortcut().isEmpty())
            line += QStringLiteral(" (%1)").arg(command->shortcut());
        lines << line;
    }
    return lines;
}

} // namespace

class MenuCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void file()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        const QStringList expected { QStringLiteral("Open Media… (Ctrl+O)"), QStringLiteral("-"),
            QStringLiteral("Quit (Ctrl+Q)") };
        QCOMPARE(lines(menus.file()), expected);
        m_panels.shown.clear();
        menus.file()[0]->trigger();
        QCOMPARE(m_panels.shown.size(), 1);
    }

    void playback()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        const QStringList expected {
            QStringLiteral("Play"),
            QStringLiteral("Stop"),
            QStringLiteral("-"),
            QStringLiteral("Back 5 Seconds"),
            QStringLiteral("Forward 5 Seconds"),
            QStringLiteral("Back 20 Seconds"),
            QStringLiteral("Forward 20 Seconds"),
            QStringLiteral("Back 60 Seconds"),
            QStringLiteral("Forward 60 Seconds"),
            QStringLiteral("Mute (Ctrl+M)"),
        };
        QCOMPARE(lines(menus.playback()), expected);
        menus.playback()[2]->trigger(); // A divider does nothing.
    }

    void keys()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        const QStringList expected { QStringLiteral("Open Media… (Ctrl+O)"),
            QStringLiteral("Quit (Ctrl+Q)"), QStringLiteral("Mute (Ctrl+M)"),
            QStringLiteral("Enter Full Screen (F11)") };
        QCOMPARE(lines(menus.withKeys()), expected);
    }

    void fullScreen()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        QQuickWindow window;
        content.appear(&window);
        MenuCommand *command = menus.view().constFirst();
        command->trigger();
        QCOMPARE(window.windowStates(), Qt::WindowFullScreen);
        QCOMPARE(command->title(), QStringLiteral("Exit Full Screen"));
        command->trigger();
        QCOMPARE(window.windowStates(), Qt::WindowNoState);
        QCOMPARE(command->title(), QStringLiteral("Enter Full Screen"));
    }

    void playWithNothingLoadedShowsTheToast()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        QCOMPARE(menus.playback()[0]->title(), QStringLiteral("Play"));
        menus.playback()[0]->trigger();
        QCOMPARE(model.toastMessage(),
            QStringLiteral("No media or URL is available. Open a file or enter a stream URL."));
        QCOMPARE(menus.playback()[0]->title(), QStringLiteral("Play"));
    }

    void titlesFollowTheModel()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        MenuCommand *mute = menus.playback().constLast();
        QSignalSpy renamed(mute, &MenuCommand::titleChanged);
        mute->trigger();
        QCOMPARE(mute->title(), QStringLiteral("Unmute"));
        QVERIFY(model.isMuted());
        mute->trigger();
        QCOMPARE(mute->title(), QStringLiteral("Mute"));
        QCOMPARE(renamed.size(), 2);

        MenuCommand *play = menus.playback().constFirst();
        model.show(OKVideoContent { QStringLiteral("1") }, QString());
        QCOMPARE(play->title(), QStringLiteral("Pause"));
        play->trigger();
        QCOMPARE(play->title(), QStringLiteral("Play"));
        menus.playback()[1]->trigger();
        QVERIFY(!model.okVideoContent());
    }

    void skipCommandsSkip()
    {
        PlayerModel model(m_panels);
        ContentView content(model, m_defaults, m_panels);
        const MenuCommands menus(content);
        model.play(longClip(), {}, false);
        QTRY_VERIFY(model.duration() > 29);
        model.togglePlayback();
        const auto comesTo = [&model](double seconds) {
            return QTest::qWaitFor(
                [&] { return std::abs(model.currentTime() - seconds) < 1; }, patience);
        };
        struct Skip {
            QString title;
            double from;
            double to;
        };
        for (const Skip &skip : { Skip { QStringLiteral("Back 5 Seconds"), 25, 20 },
                 Skip { QStringLiteral("Forward 5 Seconds"), 5, 10 },
                 Skip { QStringLiteral("Back 20 Seconds"), 25, 5 },
                 Skip { QStringLiteral("Forward 20 Seconds"), 5, 25 },
                 Skip { QStringLiteral("Back 60 Seconds"), 25, 0 },
                 Skip { QStringLiteral("Forward 60 Seconds"), 5, model.duration() } }) {
            model.player()->seek(skip.from);
            QVERIFY(comesTo(skip.from));
            const QList<MenuCommand *> commands = menus.playback();
            const auto found = std::find_if(commands.begin(), commands.end(),
                [&skip](const MenuCommand *command) { return command->title() == skip.title; });
            QVERIFY(found != commands.end());
            (*found)->trigger();
            QVERIFY2(comesTo(skip.to), qPrintable(skip.title));
        }
    }

    void theLastWindowEndsTheApplication()
    {
        QVERIFY(ZephApplicationDelegate().applicationShouldTerminateAfterLastWindowClosed());
    }

    void addressArgument()
    {
        QTemporaryDir folder;
        QVERIFY(QDir::setCurrent(folder.path()));
        const auto inFolder = [](const QString &name) {
            return QUrl::fromLocalFile(QDir::currentPath() + u'/' + name);
        };
        QCOMPARE(addressFromArgument(QStringLiteral("a film.mkv")),
            inFolder(QStringLiteral("a film.mkv")));
        QCOMPARE(addressFromArgument(QStringLiteral("/a/b.mkv")),
            QUrl::fromLocalFile(QStringLiteral("/a/b.mkv")));
        QCOMPARE(addressFromArgument(QStringLiteral("file:///a/b%20c.mkv")),
            QUrl::fromLocalFile(QStringLiteral("/a/b c.mkv")));
        QCOMPARE(addressFromArgument(QStringLiteral("https://host.example/x?y=z")),
            QUrl(QStringLiteral("https://host.example/x?y=z")));
        QFile odd(QStringLiteral("100% #1.mp4"));
        QVERIFY(odd.open(QIODevice::WriteOnly));
        QCOMPARE(addressFromArgument(odd.fileName()), inFolder(odd.fileName()));
    }

private:
    QTemporaryDir m_folder;
    StandInPanels m_panels;
    UserDefaults m_defaults { m_folder.filePath(QStringLiteral("settings")) };
};

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    MenuCommandsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_menu_commands.moc"
