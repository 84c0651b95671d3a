// The form of a saved link: what it starts with, and what it lets through.
#include "library/LocalM3UItemEditView.h"
#include "SavedLinks.h"
#include "support/StandInPanels.h"

#include <QSignalSpy>
#include <QTest>

using namespace zeph;

namespace {

using Fields = PlaylistEntry::Fields;

const QString nameError = QStringLiteral("Enter a channel or video name.");
const QString addressError = QStringLiteral("Enter a valid HTTP or HTTPS M3U8 URL.");
const QString logoError = QStringLiteral("Enter a valid logo URL.");

struct Form {
    explicit Form(const std::optional<PlaylistEntry> &entry = {})
        : view(entry, panels, [this](const Fields &fields) { saved << fields; })
        , dismissals(&view, &LocalM3UItemEditView::dismissed)
    {
    }

    void type(const char *property, const QString &text) { view.setProperty(property, text); }
    QString text(const char *property) const { return view.property(property).toString(); }
    // Whether nothing came of saving but `error`.
    bool failsWith(const QString &error)
    {
        view.save();
        return view.errorMessage() == error && saved.isEmpty() && dismissals.isEmpty();
    }

    StandInPanels panels;
    QList<Fields> saved;
    LocalM3UItemEditView view;
    QSignalSpy dismissals;
};

PlaylistEntry fullEntry()
{
    return PlaylistEntry(Fields { QUuid::createUuid(), QStringLiteral("\u0416 TV"),
        address(QStringLiteral("HTTP://Host/a.m3u8")), address(QStringLiteral("file:///l%20o.png")),
        QStringLiteral("News"), QStringLiteral("tr") });
}

} // namespace

class ItemEditViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmptyWhenAdding()
    {
        const Form form;
        QCOMPARE(form.view.title(), QStringLiteral("Add M3U8 Link"));
        for (const char *property :
            { "name", "address", "logoAddress", "countryCode", "category", "errorMessage" })
            QVERIFY2(form.text(property).isEmpty(), property);
    }

    void startsWithTheEntry()
    {
        const Form form(fullEntry());
        QCOMPARE(form.view.title(), QStringLiteral("Edit M3U8 Link"));
        QCOMPARE(form.text("name"), QStringLiteral("\u0416 TV"));
        QCOMPARE(form.text("address"), QStringLiteral("HTTP://Host/a.m3u8"));
        QCOMPARE(form.text("logoAddress"), QStringLiteral("file:///l%20o.png"));
        QCOMPARE(form.text("countryCode"), QStringLiteral("tr"));
        QCOMPARE(form.text("category"), QStringLiteral("News"));

        const Form bare(savedLink(QStringLiteral("a")));
        QCOMPARE(bare.text("logoAddress"), QString());
        QCOMPARE(bare.text("countryCode"), QString());
        QCOMPARE(bare.text("category"), QString());
    }

    void savesCleanedValues()
    {
        Form form;
        // With the byte-order mark that comes along with text out of a file.
        form.type("name", QStringLiteral("\ufeff\t A TV\u2003\n"));
        form.type("address", QStringLiteral("\ufeff http://h/a.m3u8\n"));
        form.type("logoAddress", QStringLiteral(" http://x/l.png "));
        form.type("countryCode", QStringLiteral(" tr "));
        form.type("category", QStringLiteral(" Local News "));
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        const Fields saved = form.saved.constFirst();
        QVERIFY(saved.id.isNull());
        QCOMPARE(saved.name, QStringLiteral("A TV"));
        QCOMPARE(saved.url, address(QStringLiteral("http://h/a.m3u8")));
        QCOMPARE(saved.logoURL, address(QStringLiteral("http://x/l.png")));
        QCOMPARE(saved.countryCode, QStringLiteral("TR"));
        QCOMPARE(saved.groupTitle, QStringLiteral("Local News"));
        QCOMPARE(form.dismissals.size(), 1);
    }

    void savesWhatIsBlankAsAbsent()
    {
        Form form;
        form.type("name", QStringLiteral("a"));
        form.type("address", QStringLiteral("http://h/a"));
        for (const char *property : { "logoAddress", "countryCode", "category" })
            form.type(property, QStringLiteral(" \n\t"));
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        QVERIFY(!form.saved.constFirst().logoURL);
        QVERIFY(!form.saved.constFirst().countryCode);
        QVERIFY(!form.saved.constFirst().groupTitle);
    }

    void savesTheEditedEntryUnderItsId()
    {
        const PlaylistEntry entry = fullEntry();
        Form form(entry);
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        Fields saved = form.saved.constFirst();
        QCOMPARE(saved.countryCode, QStringLiteral("TR"));
        saved.countryCode = QStringLiteral("tr");
        QCOMPARE(PlaylistEntry(saved), entry);
    }

    void refusesABlankNameFirst()
    {
        Form form;
        QVERIFY(form.failsWith(nameError));
        form.type("name", QStringLiteral("   "));
        form.type("address", QStringLiteral("http://h/a.m3u8"));
        QVERIFY(form.failsWith(nameError));
        form.type("address", QStringLiteral("nothing"));
        form.type("logoAddress", QStringLiteral("a b"));
        QVERIFY(form.failsWith(nameError));
        // Step by step, and what was typed stays.
        form.type("name", QStringLiteral("a"));
        QVERIFY(form.failsWith(addressError));
        form.type("address", QStringLiteral("http://h/a.m3u8"));
        QVERIFY(form.failsWith(logoError));
        QCOMPARE(form.text("logoAddress"), QStringLiteral("a b"));
        form.type("logoAddress", QString());
        form.view.save();
        QCOMPARE(form.view.errorMessage(), QString());
        QCOMPARE(form.saved.size(), 1);
    }

    void takesHttpAddressesOnly_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("isTaken");
        const auto row = [](const char *url, bool isTaken) {
            QTest::newRow(url) << QString::fromUtf8(url) << isTaken;
        };
        row("http://h/a.m3u8", true);
        row("https://h", true);
        row("HTTPS://host/live.m3u8", true);
        row("hTTp://host/watch?v=1", true);
        row("http://h/\u0416", true);
        row("http://[::1]:8080/a", true);
        row("rtmp://h/a", false);
        row("ftp://h/a.m3u8", false);
        row("file:///a.m3u8", false);
        row("httpx://h/a", false);
        row("javascript:alert(1)", false);
        row("host/x.m3u8", false);
        row("//host/x.m3u8", false);
        row("http", false);
        row("", false);
        row("http://h/a b", false);
        row("http://h/a\nhttp://h/b", false);
        row("http://h/%", false);
        row("http://[::1/a", false);
        row("http://h:port/a", false);
    }

    void takesHttpAddressesOnly()
    {
        QFETCH(QString, url);
        QFETCH(bool, isTaken);
        Form form;
        form.type("name", QStringLiteral("a"));
        form.type("address", url);
        if (!isTaken) {
            QVERIFY(form.failsWith(addressError));
            return;
        }
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        QCOMPARE(form.saved.constFirst().url, address(url));
    }

    void takesLogosOfAnyScheme_data()
    {
        QTest::addColumn<QString>("logo");
        QTest::addColumn<bool>("isTaken");
        const auto row = [](const char *logo, bool isTaken) {
            QTest::newRow(logo) << QString::fromUtf8(logo) << isTaken;
        };
        row("http://x/l.png", true);
        row("file:///home/me/l.png", true);
        row("data:image/png;base64,AAAA", true);
        row("l.png", true);
        row("my logo.png", false);
        row("http://x/{l}.png", false);
        row("%", false);
    }

    void takesLogosOfAnyScheme()
    {
        QFETCH(QString, logo);
        QFETCH(bool, isTaken);
        Form form;
        form.type("name", QStringLiteral("a"));
        form.type("address", QStringLiteral("http://h/a"));
        form.type("logoAddress", logo);
        if (!isTaken) {
            QVERIFY(form.failsWith(logoError));
            return;
        }
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        QCOMPARE(form.saved.constFirst().logoURL, address(logo));
    }

    void takesAnyCountryCode_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("code");
        QTest::newRow("blanks") << QStringLiteral(" tr ") << QStringLiteral("TR");
        QTest::newRow("three") << QStringLiteral("usa") << QStringLiteral("USA");
        QTest::newRow("words") << QStringLiteral("t\u00fcrkiye 1")
                               << QStringLiteral("T\u00dcRKIYE 1");
        QTest::newRow("sharp s") << QStringLiteral("\u00df") << QStringLiteral("SS");
    }

    void takesAnyCountryCode()
    {
        QFETCH(QString, typed);
        QFETCH(QString, code);
        Form form(savedLink(QStringLiteral("a")));
        form.type("countryCode", typed);
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        QCOMPARE(form.saved.constFirst().countryCode, code);
    }

    void takesAnyText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("long") << QString(1'000'000, u'x');
        QTest::newRow("zero") << QString(QChar(u'\0'));
        QTest::newRow("half a pair") << QString(QChar(0xd83d));
        QTest::newRow("odd") << QStringLiteral("\u202e\u0301\u200d\ufffe<b>\"%1");
    }

    void takesAnyText()
    {
        QFETCH(QString, text);
        Form form(savedLink(QStringLiteral("a")));
        for (const char *property : { "name", "countryCode", "category" })
            form.type(property, text);
        form.view.save();
        QCOMPARE(form.saved.size(), 1);
        QCOMPARE(form.saved.constFirst().name, text);
        for (const char *property : { "address", "logoAddress" }) {
            form.type(property, text);
            form.view.save();
        }
        QVERIFY(form.saved.size() <= 3);
    }

    void cancelsWithoutSaving()
    {
        Form form(fullEntry());
        form.view.cancel();
        QCOMPARE(form.dismissals.size(), 1);
        QVERIFY(form.saved.isEmpty());
    }

    void savesBeforeItIsDismissed()
    {
        StandInPanels panels;
        QStringList order;
        LocalM3UItemEditView view(savedLink(QStringLiteral("a")), panels,
            [&](const Fields &) { order << QStringLiteral("saved"); });
        connect(&view, &LocalM3UItemEditView::dismissed, &view,
            [&] { order << QStringLiteral("dismissed"); });
        view.save();
        QCOMPARE(order, QStringList({ QStringLiteral("saved"), QStringLiteral("dismissed") }));
    }

    void choosesALogo()
    {
        Form form;
        QSignalSpy changes(&form.view, &LocalM3UItemEditView::logoAddressChanged);
        form.panels.answer = QUrl::fromLocalFile(QStringLiteral("/home/me/\u0416 %1#.png"));
        form.view.chooseLogoFile();
        QCOMPARE(form.panels.shown.size(), 1);
        const OpenPanel panel = form.panels.shown.constFirst();
        QCOMPARE(panel.title, QStringLiteral("Choose TV Logo"));
        QCOMPARE(panel.extensions,
            QStringList({ QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
                QStringLiteral("webp"), QStringLiteral("gif") }));
        QCOMPARE(form.text("logoAddress"), QStringLiteral("file:///home/me/%D0%96%20%251%23.png"));
        QCOMPARE(changes.size(), 1);
        form.type("name", QStringLiteral("a"));
        form.type("address", QStringLiteral("http://h/a"));
        form.view.save();
        QCOMPARE(PlaylistEntry(form.saved.value(0)).logoURL(), form.panels.answer);
    }

    void keepsTheLogoWhenNoneIsChosen()
    {
        Form form(fullEntry());
        form.view.chooseLogoFile();
        QCOMPARE(form.text("logoAddress"), QStringLiteral("file:///l%20o.png"));
    }

    // The sanitizer tells what is wrong.
    void mayGoWhileALogoIsChosen()
    {
        StandInPanels panels;
        panels.answer = QUrl(QStringLiteral("file:///logo.png"));
        auto form =
            std::make_unique<LocalM3UItemEditView>(std::nullopt, panels, [](const Fields &) {});
        panels.meanwhile = [&form] { form.reset(); };
        form->chooseLogoFile();
        QCOMPARE(panels.shown.size(), 1);
        QVERIFY(!form);
    }

    void removesTheLogo()
    {
        Form form(fullEntry());
        QSignalSpy changes(&form.view, &LocalM3UItemEditView::logoAddressChanged);
        form.view.removeLogo();
        QCOMPARE(form.text("logoAddress"), QString());
        QCOMPARE(changes.size(), 1);
        form.view.save();
        QVERIFY(!form.saved.value(0).logoURL);
    }
};

QTEST_GUILESS_MAIN(ItemEditViewTest)
#include "tst_item_edit_view.moc"
