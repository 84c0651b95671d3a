// Takes pictures of the built program's window in all its states: take-screenshots CLIP FOLDER.
// ZEPH_PLAYER says which program it is. See tools/take-documentation-screenshots.
#include "Player.h"
#include "support/TestServer.h"

#include <QBuffer>
#include <QDBusVariant>
#include <QDir>
#include <QFileInfo>
#include <QPainter>

using namespace zeph;

namespace {

/// The desktop's settings, which make the window dark.
class DarkDesktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public Q_SLOTS:
    QDBusVariant Read(const QString &, const QString &)
    {
        constexpr uint dark = 1;
        return QDBusVariant(QVariant::fromValue(QDBusVariant(dark)));
    }
};

QByteArray logo(int hue)
{
    QImage image(96, 96, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(hue, 130, 190));
    painter.drawRoundedRect(image.rect(), 20, 20);
    painter.setBrush(Qt::white);
    painter.drawEllipse(image.rect().center(), 22, 22);
    painter.end();
    QBuffer png;
    image.save(&png, "PNG");
    return png.data();
}

/// A list of channels that all show the clip.
class Channels {
public:
    explicit Channels(const QFileInfo &clip) : m_server(clip.path())
    {
        const QByteArray clipPath = '/' + clip.fileName().toUtf8().toPercentEncoding();
        const QList<QByteArrayList> channels {
            { "Aurora News", "NO", "News" },
            { "Bergfunk", "AT", "Regional" },
            { "Cinéma du Lac", "CH", "Movies" },
            { "Delta Sport 1", "NL", "Sports" },
            { "Delta Sport 2", "NL", "Sports" },
            { "Evening Hills", "GB", "Nature" },
            { "Fjordglimt", "NO", "Nature" },
            { "Gondola Opera", "IT", "Music" },
            { "Hafenradio", "DE", "Music" },
            { "İzmir Sahil", "TR", "Regional" },
            { "Jardim Infantil", "PT", "Children" },
            { "קול הגליל", "IL", "News" },
        };
        QByteArray list = "#EXTM3U\n";
        for (qsizetype i = 0; i < channels.size(); ++i) {
            const QByteArrayList &channel = channels[i];
            const QByteArray logoPath = "/logo" + QByteArray::number(i) + ".png";
            list += "#EXTINF:-1 tvg-logo=\""
                + m_server.url(QString::fromLatin1(logoPath)).toEncoded() + "\" tvg-country=\""
                + channel[1] + "\" group-title=\"" + channel[2] + "\"," + channel[0] + '\n'
                + clipPath + "?channel=" + QByteArray::number(i) + "\n";
            // Some channels have none.
            if (i % 4 != 3)
                m_server.serve(QString::fromLatin1(logoPath), logo(static_cast<int>(i * 67 % 360)),
                    "image/png");
        }
        m_server.serve(QStringLiteral("/channels.m3u"), list, "audio/x-mpegurl");
    }

    QString address() const { return m_server.url(QStringLiteral("/channels.m3u")).toString(); }

private:
    TestServer m_server;
};

class Photographer {
public:
    Photographer(const AccessibilityBus &bus, const QString &clip, const QDir &folder)
        : m_bus(bus), m_clip(clip), m_folder(folder)
    {
    }

    /// Of the same states again, while the desktop is dark.
    void dark() { m_ending = QStringLiteral("-dark"); }

    void empty() const
    {
        const Player player(m_bus);
        if (!QTest::qWaitFor([&] { return player.isInPlace(); }, patience))
            qFatal("The window does not open");
        take(player, "empty");
        player.window().press(QStringLiteral("space"));
        await(player, Role::Alert,
            QStringLiteral("No media or URL is available. Open a file or enter a stream URL."));
        take(player, "toast");
        player.window().press(QStringLiteral("alt+p"));
        await(player, Role::MenuItem, playButton);
        take(player, "menu");
    }

    void playing() const
    {
        const Player player(m_bus, { m_clip });
        awaitFitted(player);
        take(player, "playing");
        press(player, Role::Button, pauseButton);
        await(player, Role::Button, playButton);
        take(player, "paused");
        press(player, Role::Button, modeButton);
        await(player, Role::MenuItem, QStringLiteral("Normal"));
        take(player, "display-modes");
        press(player, Role::MenuItem, QStringLiteral("Normal"));
        press(player, Role::Button, sidebarButton);
        awaitAddressField(player);
        take(player, "playing-with-sidebar");
    }

    void displayModes() const
    {
        const QList<std::pair<QString, const char *>> modes {
            { QStringLiteral("Portrait Fill"), "portrait-fill" },
            { QStringLiteral("Portrait Rotate 90°"), "portrait-rotate" },
            { QStringLiteral("Manual Reframe"), "manual-reframe" },
            { QStringLiteral("Smart Reframe"), "smart-reframe" },
        };
        const Player player(m_bus, { m_clip });
        awaitFitted(player);
        for (const auto &[title, name] : modes) {
            press(player, Role::Button, modeButton);
            press(player, Role::MenuItem, title);
            (void)QTest::qWaitFor(
                [&, title = title] { return !player.shows(Role::MenuItem, title); }, patience);
            take(player, name);
        }
    }

    void sidebars() const
    {
        const Player player(m_bus);
        await(player, Role::Button, playButton);
        press(player, Role::Button, sidebarButton);
        awaitAddressField(player);
        take(player, "sidebar-network");
        press(player, Role::RadioButton, QStringLiteral("Local M3U"));
        await(player, Role::Button, QStringLiteral("Add M3U8 Link"));
        take(player, "sidebar-local");
        press(player, Role::Button, QStringLiteral("Add M3U8 Link"));
        const QStringList texts { QStringLiteral("Channel or video name"),
            QStringLiteral("Evening News"), QStringLiteral("M3U8 URL"),
            QStringLiteral("https://example.org/news/live.m3u8"),
            QStringLiteral("Category (optional)"), QStringLiteral("News") };
        for (int i = 0; i < texts.size(); i += 2)
            player.await(Role::TextField, texts[i]).setText(texts[i + 1]);
        take(player, "edit-sheet");
    }

    void channels() const
    {
        const Channels list { QFileInfo(m_clip) };
        const Player player(m_bus);
        await(player, Role::Button, playButton);
        press(player, Role::Button, sidebarButton);
        awaitAddressField(player);
        xdotool({ QStringLiteral("type"), list.address() });
        await(player, Role::ListItem, QStringLiteral("Play Aurora News"));
        press(player, Role::ListItem, QStringLiteral("Play Bergfunk"));
        await(player, Role::Button, pauseButton);
        take(player, "channels");
        for (int i = 0; i < 3; ++i)
            press(player, Role::Button, QStringLiteral("Save to Local M3U"));
        press(player, Role::RadioButton, QStringLiteral("Local M3U"));
        await(player, Role::Button, QStringLiteral("Export"));
        take(player, "saved-links");
        press(player, Role::Button, QStringLiteral("Clear"));
        await(player, Role::Button, QStringLiteral("Delete Permanently"));
        take(player, "alert");
        press(player, Role::Button, QStringLiteral("Delete Permanently"));
        (void)QTest::qWaitFor(
            [&] { return !player.shows(Role::Button, QStringLiteral("Delete Permanently")); },
            patience);
    }

    void fullScreen() const
    {
        const Player player(m_bus, { m_clip });
        awaitFitted(player);
        press(player, Role::Button, pauseButton);
        player.window().press(QStringLiteral("F11"));
        (void)QTest::qWaitFor([&] { return player.fillsScreen(); }, patience);
        (void)QTest::qWaitFor([&] { return !player.shows(Role::ToolBar, controls); }, patience);
        moveMouse({ 400, 300 });
        await(player, Role::ToolBar, controls);
        take(player, "full-screen");
    }

private:
    static void await(const Player &player, Role role, const QString &name)
    {
        if (!player.await(role, name))
            qFatal("%s does not show", qPrintable(name));
    }
    static void press(const Player &player, Role role, const QString &name)
    {
        if (!player.press(role, name))
            qFatal("%s cannot be pressed", qPrintable(name));
    }
    static void awaitFitted(const Player &player)
    {
        await(player, Role::Button, pauseButton);
        if (!QTest::qWaitFor([&] { return player.isFittedTo(16.0 / 9); }, patience))
            qFatal("The window does not fit the picture");
    }
    static void awaitAddressField(const Player &player)
    {
        const auto isFocused = [&] {
            return player.focused().name() == QStringLiteral("Stream address");
        };
        if (!QTest::qWaitFor(isFocused, patience))
            qFatal("The address field does not get the keys");
    }

    /// Once nothing moves any more.
    void take(const Player &player, const char *name) const
    {
        constexpr int interval = 100; // Milliseconds.
        constexpr int stillIntervals = 5;
        QImage image = player.picture();
        int still = 0;
        for (int tries = 0; tries < 50 && still < stillIntervals; ++tries) {
            QTest::qWait(interval);
            const QImage last = std::exchange(image, player.picture());
            still = image == last ? still + 1 : 0;
        }
        const QString path =
            m_folder.filePath(QLatin1StringView(name) + m_ending + QStringLiteral(".png"));
        if (!image.convertToFormat(QImage::Format_RGB888).save(path, "PNG", 0))
            qFatal("%s cannot be written", qPrintable(path));
    }

    const AccessibilityBus &m_bus;
    const QString m_clip;
    const QDir m_folder;
    QString m_ending;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    AccessibilityBus bus;
    Photographer photographer(bus, arguments.value(1), QDir(arguments.value(2)));
    photographer.empty();
    photographer.playing();
    photographer.displayModes();
    photographer.sidebars();
    photographer.channels();
    photographer.fullScreen();

    DarkDesktop settings;
    QDBusConnection desktop = bus.sessionBus().connectAs(QStringLiteral("desktop"));
    desktop.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &settings,
        QDBusConnection::ExportAllSlots);
    desktop.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    photographer.dark();
    photographer.empty();
    photographer.playing();
    photographer.sidebars();
    photographer.channels();
    photographer.fullScreen();
}

#include "take-screenshots.moc"
