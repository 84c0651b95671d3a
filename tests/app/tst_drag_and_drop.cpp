// Files dropped on the built program's window by another program.
#include "Player.h"

#include <QTemporaryDir>
#include <QUrl>

namespace {

/// Another program's window, out of which the mouse drags.
class DragSource {
public:
    explicit DragSource(const QStringList &arguments)
    {
        m_process.start(qEnvironmentVariable("ZEPH_DRAG_SOURCE"), arguments);
        m_process.waitForStarted();
    }
    ~DragSource()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// Out of the player's way, in the corner of the screen.
    bool isInPlace()
    {
        m_window = XWindow(xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
            QStringLiteral("--name"), QStringLiteral("^Drag source$") }));
        if (m_window.isNull())
            return false;
        xdotool({ QStringLiteral("windowmove"), m_window.id(), QStringLiteral("0"),
            QStringLiteral("0") });
        return m_window.frame().bottom() < 300;
    }
    void drag(const QPoint &to) const { pressAndMove(m_window.contents().center(), to); }
    /// What the source says next: whether it would be taken there, and what became of it.
    QString answer()
    {
        (void)QTest::qWaitFor([this] { return m_process.canReadLine(); }, patience);
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    /// Drags it there, and lets it go once it is welcome. Whether it was taken.
    bool dropOn(const QPoint &to)
    {
        drag(to);
        const bool isWelcome = answer() == QStringLiteral("welcome");
        releaseMouse();
        return isWelcome && answer() == QStringLiteral("taken");
    }

private:
    QProcess m_process;
    XWindow m_window;
};

QString address(const QString &path)
{
    return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
}

} // namespace

class DragAndDropTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void playsTheFirstFile_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::newRow("one") << QStringList { clip("colours.mp4") };
        QTest::newRow("several") << QStringList { clip("colours.mp4"), clip("long.mp4"),
            clip("clip.mkv") };
    }
    void playsTheFirstFile()
    {
        QFETCH(QStringList, files);
        QStringList addresses;
        for (const QString &file : std::as_const(files))
            addresses << address(file);
        const Player player(m_bus);
        QTRY_VERIFY(player.isInPlace());
        DragSource source(addresses);
        QTRY_VERIFY(source.isInPlace());
        QVERIFY(source.dropOn(player.picturePart().center()));
        QTRY_COMPARE(player.title(), QFileInfo(files.constFirst()).fileName());
        QVERIFY(player.await(Role::Button, pauseButton));
    }

    void takesAFileWithAnOddName()
    {
        const QTemporaryDir folder;
        const QString name = QStringLiteral("50% #1 – ünïcode שלום.mp4");
        QVERIFY(QFile::copy(clip("colours.mp4"), folder.filePath(name)));
        const Player player(m_bus);
        QTRY_VERIFY(player.isInPlace());
        DragSource source({ address(folder.filePath(name)) });
        QTRY_VERIFY(source.isInPlace());
        QVERIFY(source.dropOn(player.picturePart().center()));
        QTRY_COMPARE(player.title(), name);
        QVERIFY(player.await(Role::Button, pauseButton));
    }

    void replacesWhatPlays()
    {
        const Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        DragSource source({ address(clip("colours.mp4")) });
        QTRY_VERIFY(source.isInPlace());
        // On the controls it is dropped on the window, too.
        QVERIFY(source.dropOn(player.await(Role::Slider, positionSlider).rectangle().center()));
        QTRY_COMPARE(player.title(), QStringLiteral("colours.mp4"));
    }

    void refusesWhatIsNoFile_data()
    {
        QTest::addColumn<QStringList>("dragged");
        QTest::newRow("a text") << QStringList { QStringLiteral("--text"), QStringLiteral("a") };
        QTest::newRow("a web page") << QStringList { QStringLiteral("http://127.0.0.1:9/a.mp4") };
        QTest::newRow("a web page and a file")
            << QStringList { QStringLiteral("http://127.0.0.1:9/"), address(clip("colours.mp4")) };
    }
    void refusesWhatIsNoFile()
    {
        QFETCH(QStringList, dragged);
        Player player(m_bus);
        QTRY_VERIFY(player.isInPlace());
        DragSource source(dragged);
        QTRY_VERIFY(source.isInPlace());
        source.drag(player.picturePart().center());
        releaseMouse();
        QCOMPARE(source.answer(), QStringLiteral("refused"));
        QVERIFY(player.shows(Role::Button, QStringLiteral("Open Media")));
        QCOMPARE(player.title(), QStringLiteral("Zeph Player"));
        QVERIFY(player.isRunning());
    }

private:
    AccessibilityBus m_bus;
};

QTEST_MAIN(DragAndDropTest)
#include "tst_drag_and_drop.moc"
