// What becomes of the text in the address field.
#include "library/ContentView.h"
#include "support/EngineTest.h"
#include "support/StandInPanels.h"
#include "support/TestServer.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace zeph;

namespace {

const QString list = QStringLiteral("/list.m3u");
const QByteArray channels = "#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n#EXTINF:-1,Two\nhttp://h/2\n";
const QString addressError = QStringLiteral("Enter a valid HTTP or HTTPS address.");

struct Field {
    QTemporaryDir folder;
    StandInPanels panels;
    PlayerModel model { panels };
    UserDefaults defaults { folder.filePath(QStringLiteral("settings")) };
    ContentView view { model, defaults, panels };
    TestServer server { folder.path() };

    Field() { server.serve(list, channels); }

    QString listAddress() const { return server.url(list).toString(); }
    bool showsChannels() const { return view.networkPlaylist().size() == 2; }
};

} // namespace

class AddressFieldTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleaning_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("address");
        QTest::newRow("plain") << QStringLiteral("ftp://h") << QStringLiteral("ftp://h");
        QTest::newRow("line feed") << QStringLiteral("ftp://h\n") << QStringLiteral("ftp://h");
        QTest::newRow("both") << QStringLiteral("ftp://h\r\n") << QStringLiteral("ftp://h");
        QTest::newRow("within") << QStringLiteral("ftp:\r//\n\nh") << QStringLiteral("ftp://h");
        QTest::newRow("blanks") << QStringLiteral(" \t ftp://h \t") << QStringLiteral("ftp://h");
        QTest::newRow("blanks, then a line break")
            << QStringLiteral(" ftp://h \n ") << QStringLiteral("ftp://h");
        QTest::newRow("no-break space")
            << QStringLiteral("\u00a0ftp://h\u2003") << QStringLiteral("ftp://h");
        QTest::newRow("blank within") << QStringLiteral("a b") << QStringLiteral("a b");
        QTest::newRow("other line breaks are no blanks")
            << QStringLiteral("a\u2028") << QStringLiteral("a\u2028");
        QTest::newRow("nothing but blanks") << QStringLiteral(" \r\n ") << QString();
    }
    void cleaning()
    {
        QFETCH(QString, typed);
        QFETCH(QString, address);
        Field field;
        field.view.setAddress(typed);
        QCOMPARE(field.view.address(), address);
    }

    void aBlankThatIsTypedIsTakenBack()
    {
        Field field;
        field.view.setAddress(QStringLiteral("a"));
        QSignalSpy changed(&field.view, &ContentView::addressChanged);
        field.view.setAddress(QStringLiteral("a "));
        QCOMPARE(field.view.address(), QStringLiteral("a"));
        QVERIFY(!changed.isEmpty()); // Or the field would go on showing the blank.
    }

    void anAddressOpensByItself()
    {
        Field field;
        field.view.setMovieName(QStringLiteral(" My channels "));
        field.server.hold(list); // Or it might be there before it is seen to load.
        QElapsedTimer time;
        time.start();
        field.view.setAddress(field.listAddress() + QLatin1Char('\n'));
        QCOMPARE(field.view.address(), field.listAddress());
        QTRY_VERIFY(field.model.isLoading());
        QVERIFY(time.elapsed() >= 440);
        field.server.letGo(list);
        QTRY_VERIFY(field.showsChannels());
        QCOMPARE(field.model.title(), QStringLiteral("My channels"));
        QCOMPARE(field.server.requestCount(list), 1);
    }

    void aDecoratedAddressOpensByItself()
    {
        Field field;
        field.view.setAddress(QStringLiteral("[list](<%1>)").arg(field.listAddress()));
        QTRY_VERIFY(field.showsChannels());
    }

    void theSchemeMayBeInCapitals()
    {
        Field field;
        field.view.setAddress(
            field.listAddress().replace(QStringLiteral("http:"), QStringLiteral("HTTP:")));
        QTRY_VERIFY(field.showsChannels());
    }

    void eachKeystrokeStartsTheWaitAnew()
    {
        Field field;
        field.view.setAddress(field.listAddress() + QStringLiteral("?a"));
        Delay next;
        next.start(ContentView::automaticOpenDelay / 2,
            [&] { field.view.setAddress(field.listAddress() + QStringLiteral("?ab")); });
        QSignalSpy loading(&field.model, &PlayerModel::isLoadingChanged);
        QTRY_VERIFY(field.showsChannels());
        QCOMPARE(loading.size(), 2); // It began once, and ended.
    }

    void whatIsNoWebAddressDoesNotOpenByItself_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("ftp") << QStringLiteral("ftp://h/list.m3u");
        QTest::newRow("file") << QStringLiteral("file:///list.m3u");
        QTest::newRow("no scheme") << QStringLiteral("h/list.m3u");
        QTest::newRow("no address") << QStringLiteral("http://h h/");
        QTest::newRow("nothing") << QStringLiteral(" ");
    }
    void whatIsNoWebAddressDoesNotOpenByItself()
    {
        QFETCH(QString, address);
        Field field;
        field.view.setAddress(field.listAddress());
        field.view.setAddress(address); // Which also keeps the one before from opening.
        outwait(ContentView::automaticOpenDelay);
        QCOMPARE(field.server.requestCount(list), 0);
        QCOMPARE(field.model.errorMessage(), QString());
        QVERIFY(field.model.currentURL().isEmpty());
        field.view.openStream();
        QCOMPARE(field.model.errorMessage(), addressError);
    }

    void emptyingForgetsTheLastRemoteSource()
    {
        Field field;
        const QUrl stream = field.server.url(QStringLiteral("/nothing.m3u8"));
        field.view.setAddress(stream.toString());
        field.view.openStream();
        QCOMPARE(field.model.currentURL(), stream);
        field.model.stop();
        field.view.setAddress({});
        field.model.togglePlayback();
        QVERIFY(field.model.currentURL().isEmpty());
        QVERIFY(!field.model.toastMessage().isEmpty());
    }

    void emptyingKeepsALocalFile()
    {
        Field field;
        field.view.setAddress(QStringLiteral("a"));
        field.model.play(missingClip(), {}, false);
        field.model.stop();
        field.view.setAddress({});
        field.model.togglePlayback();
        QCOMPARE(field.model.currentURL(), missingClip());
    }

    void openingAtOnceOpensOnce()
    {
        Field field;
        field.view.setMovieName(QStringLiteral("Mine"));
        field.view.setAddress(field.listAddress());
        field.view.openStream();
        QVERIFY(field.model.isLoading());
        outwait(ContentView::automaticOpenDelay);
        QTRY_VERIFY(field.showsChannels());
        QCOMPARE(field.server.requestCount(list), 1);
        QCOMPARE(field.model.title(), QStringLiteral("Mine"));
    }

    void clearing()
    {
        Field field;
        field.view.setMovieName(QStringLiteral("Mine"));
        field.view.setAddress(field.listAddress());
        field.view.openStream();
        QTRY_VERIFY(field.showsChannels());
        field.model.play(field.server.url(QStringLiteral("/nothing.m3u8")), {}, true);
        field.view.setAddress(field.listAddress() + QStringLiteral("?again"));

        field.view.clearNetworkStream();
        QCOMPARE(field.view.address(), QString());
        QCOMPARE(field.view.movieName(), QString());
        QVERIFY(field.view.networkPlaylist().isEmpty());
        QVERIFY(field.model.currentURL().isEmpty());
        QVERIFY(field.view.isStreamAddressFocused());
        outwait(ContentView::automaticOpenDelay);
        QCOMPARE(field.server.requestCount(list), 1);
        field.model.togglePlayback();
        QVERIFY(field.model.currentURL().isEmpty());
    }

    void clearingWhileAListLoads()
    {
        Field field;
        field.server.hold(list);
        field.view.setAddress(field.listAddress());
        field.view.openStream();
        QTRY_COMPARE(field.server.requestCount(list), 1);
        field.view.clearNetworkStream();
        QVERIFY(!field.model.isLoading());
        field.server.letGo(list);
        QTRY_COMPARE(field.server.answeredCount(list), 1);
        outwait(ContentView::automaticOpenDelay);
        QVERIFY(field.view.networkPlaylist().isEmpty());
    }

    void theNameFieldIsOffered()
    {
        Field field;
        QVERIFY(!field.view.showMovieName());
        QCOMPARE(field.view.movieNameToggleHelp(),
            QStringLiteral("Add an optional movie or playlist name"));
        field.view.setShowMovieName(true);
        QCOMPARE(field.view.movieNameToggleHelp(), QStringLiteral("Hide movie or playlist name"));
        field.view.setMovieName(QStringLiteral("Mine"));
        field.view.setShowMovieName(false);
        QCOMPARE(field.view.movieName(), QStringLiteral("Mine"));
    }
};

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    AddressFieldTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_address_field.moc"
