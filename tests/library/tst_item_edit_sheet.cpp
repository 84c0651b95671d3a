// The sheet for a saved link, in a real window and with real keys.
#include "library/LocalM3UItemEditView.h"
#include "SavedLinks.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QAccessible>
#include <QApplication>
#include <QPalette>
#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_LibraryPlugin)

using namespace zeph;

namespace {

using Fields = PlaylistEntry::Fields;

QStringList warnings;

void noteWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        warnings << message;
}

class SheetWindow {
public:
    explicit SheetWindow(const std::optional<PlaylistEntry> &entry = {})
        : form(entry, panels, [this](const Fields &fields) { saved << fields; })
    {
        m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_engine.setInitialProperties({ { QStringLiteral("form"), QVariant::fromValue(&form) } });
        m_engine.load(QUrl::fromLocalFile(QStringLiteral(EDIT_SHEET_WINDOW)));
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    }

    bool isUp()
    {
        return m_window && QTest::qWaitForWindowActive(m_window, patience)
            && QTest::qWaitFor([this] { return sheet().property("opened").toBool(); }, patience);
    }

    QQuickWindow &window() { return *m_window; }
    QObject &sheet() { return *m_window->property("sheet").value<QObject *>(); }
    // What the keys go to, by the name that a screen reader says.
    QString focused() const { return nameOf(m_window->activeFocusItem()); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_window, key, modifiers);
    }
    void type(const QString &text)
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, m_window, Qt::Key_unknown, letter, {});
    }
    bool isClosed() { return !sheet().property("visible").toBool(); }

    // The visible thing of this name; null when there is none.
    QQuickItem *find(const QString &name) const
    {
        return find(
            m_window->contentItem(), [&](QQuickItem *item) { return nameOf(item) == name; });
    }
    bool shows(const QString &text) const
    {
        return find(m_window->contentItem(),
            [&](QQuickItem *item) { return item->property("text") == text; });
    }
    void click(const QString &name)
    {
        QQuickItem &item = *find(name);
        QTest::mouseClick(m_window, Qt::LeftButton, {},
            item.mapToScene(QPointF(item.width() / 2, item.height() / 2)).toPoint());
    }

    static QString nameOf(QQuickItem *item)
    {
        auto *const accessible = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        return accessible ? accessible->text(QAccessible::Name) : QString();
    }

    StandInPanels panels;
    QList<Fields> saved;
    LocalM3UItemEditView form;

private:
    using Condition = std::function<bool(QQuickItem *)>;

    static QQuickItem *find(QQuickItem *item, const Condition &condition)
    {
        if (!item->isVisible())
            return nullptr;
        if (condition(item))
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = find(child, condition))
                return found;
        }
        return nullptr;
    }

    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
};

const QString nameField = QStringLiteral("Channel or video name");
const QString addressField = QStringLiteral("M3U8 URL");
const QString logoField = QStringLiteral("Logo URL (optional)");
const QString countryField = QStringLiteral("Country code (for example: TR, US)");
const QString categoryField = QStringLiteral("Category (optional)");
const QString chooseLogo = QStringLiteral("Choose Logo File…");
const QString removeLogo = QStringLiteral("Remove Logo");
const QString cancelButton = QStringLiteral("Cancel");
const QString saveButton = QStringLiteral("Save");

PlaylistEntry fullEntry()
{
    return PlaylistEntry(Fields { QUuid::createUuid(), QStringLiteral("\u0416 TV"),
        address(QStringLiteral("http://h/a.m3u8")), address(QStringLiteral("http://x/l.png")),
        QStringLiteral("News"), QStringLiteral("TR") });
}

} // namespace

class ItemEditSheetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { warnings.clear(); }
    void cleanup() { QCOMPARE(warnings, QStringList()); }

    void addsALinkWithTheKeyboardAlone()
    {
        SheetWindow sheet;
        QVERIFY(sheet.isUp());
        QCOMPARE(sheet.focused(), nameField);
        sheet.type(QStringLiteral("A TV"));
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), addressField);
        sheet.type(QStringLiteral("http://h/a.m3u8"));
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), logoField);
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), countryField);
        sheet.type(QStringLiteral("tr"));
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), categoryField);
        sheet.type(QStringLiteral("News"));
        sheet.press(Qt::Key_Return);
        QCOMPARE(sheet.saved.size(), 1);
        const Fields saved = sheet.saved.constFirst();
        QCOMPARE(saved.name, QStringLiteral("A TV"));
        QCOMPARE(saved.url, address(QStringLiteral("http://h/a.m3u8")));
        QVERIFY(!saved.logoURL);
        QCOMPARE(saved.countryCode, QStringLiteral("TR"));
        QCOMPARE(saved.groupTitle, QStringLiteral("News"));
        QTRY_VERIFY(sheet.isClosed());
    }

    void goesAroundWithTab()
    {
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        const QStringList order { nameField, addressField, logoField, countryField, categoryField,
            chooseLogo, removeLogo, cancelButton, saveButton };
        for (const QString &name : order) {
            QCOMPARE(sheet.focused(), name);
            const bool isOtherButton =
                name == chooseLogo || name == removeLogo || name == cancelButton;
            QCOMPARE(sheet.find(saveButton)->property("highlighted").toBool(), !isOtherButton);
            sheet.press(Qt::Key_Tab);
        }
        QCOMPARE(sheet.focused(), nameField);
        for (auto name = order.rbegin(); name != order.rend(); ++name) {
            sheet.press(Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(sheet.focused(), *name);
        }
    }

    void cancelsWithEscape()
    {
        for (int tabs = 0; tabs < 9; ++tabs) {
            SheetWindow sheet(fullEntry());
            QVERIFY(sheet.isUp());
            for (int i = 0; i < tabs; ++i)
                sheet.press(Qt::Key_Tab);
            sheet.press(Qt::Key_Escape);
            QTRY_VERIFY(sheet.isClosed());
            QVERIFY(sheet.saved.isEmpty());
        }
    }

    void keysOnAButtonMeanTheButton_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Space") << Qt::Key_Space;
    }

    void keysOnAButtonMeanTheButton()
    {
        QFETCH(Qt::Key, key);
        SheetWindow sheet;
        QVERIFY(sheet.isUp());
        sheet.panels.answer = QUrl(QStringLiteral("file:///l.png"));
        sheet.find(chooseLogo)->forceActiveFocus();
        sheet.press(key);
        QCOMPARE(sheet.panels.shown.size(), 1);
        QCOMPARE(sheet.form.property("logoAddress"), QStringLiteral("file:///l.png"));
        QCOMPARE(sheet.find(logoField)->property("text"), QStringLiteral("file:///l.png"));
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), removeLogo);
        sheet.press(key);
        QCOMPARE(sheet.form.property("logoAddress"), QString());
        QVERIFY(!sheet.find(removeLogo));
        // The keys are not lost with the button.
        QCOMPARE(sheet.focused(), chooseLogo);
        sheet.press(Qt::Key_Tab);
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), saveButton);
        sheet.press(key);
        QCOMPARE(sheet.form.errorMessage(), QStringLiteral("Enter a channel or video name."));
        sheet.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(sheet.focused(), cancelButton);
        sheet.press(key);
        QTRY_VERIFY(sheet.isClosed());
        QVERIFY(sheet.saved.isEmpty());
    }

    void keysLeadToATextToReplaceIt()
    {
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        sheet.type(QStringLiteral("B"));
        QCOMPARE(sheet.form.property("name"), QStringLiteral("B"));
        sheet.press(Qt::Key_Tab);
        sheet.type(QStringLiteral("x"));
        QCOMPARE(sheet.form.property("address"), QStringLiteral("x"));
        sheet.press(Qt::Key_Backtab, Qt::ShiftModifier);
        sheet.type(QStringLiteral("C"));
        QCOMPARE(sheet.form.property("name"), QStringLiteral("C"));
        // The mouse leads to a place within it.
        sheet.click(logoField);
        QCOMPARE(sheet.focused(), logoField);
        sheet.type(QStringLiteral("x"));
        QCOMPARE(sheet.form.property("logoAddress").toString().size(),
            QStringLiteral("http://x/l.png").size() + 1);
    }

    void tellsTextsByTheirBeginning()
    {
        Fields fields = savedLinkFields(QStringLiteral("a"));
        fields.url = address(QStringLiteral("http://h/") + QString(500, u'x'));
        SheetWindow sheet { PlaylistEntry(fields) };
        QVERIFY(sheet.isUp());
        const auto cursor = [&] {
            return sheet.find(addressField)->property("cursorPosition").toInt();
        };
        QCOMPARE(cursor(), 0);
        sheet.press(Qt::Key_Tab);
        QCOMPARE(cursor(), fields.url.text().size());
        sheet.press(Qt::Key_Tab);
        QCOMPARE(cursor(), 0);
    }

    // A logo may be a whole picture.
    void keepsALongAddress()
    {
        Fields fields = savedLinkFields(QStringLiteral("a"));
        fields.logoURL = address(QStringLiteral("http://h/") + QString(40'000, u'x'));
        SheetWindow sheet { PlaylistEntry(fields) };
        QVERIFY(sheet.isUp());
        sheet.press(Qt::Key_Return);
        QTRY_COMPARE(sheet.saved.size(), 1);
        QCOMPARE(
            PlaylistEntry(sheet.saved.constFirst()).logoURL(), PlaylistEntry(fields).logoURL());
    }

    void worksWithTheMouse()
    {
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        sheet.click(removeLogo);
        QVERIFY(!sheet.find(removeLogo));
        sheet.click(chooseLogo);
        QCOMPARE(sheet.panels.shown.size(), 1);
        sheet.click(saveButton);
        QCOMPARE(sheet.saved.size(), 1);
        QTRY_VERIFY(sheet.isClosed());

        SheetWindow other(fullEntry());
        QVERIFY(other.isUp());
        // A click beside it does nothing.
        QTest::mouseClick(&other.window(), Qt::LeftButton, {}, QPoint(5, 200));
        QVERIFY(!other.isClosed());
        other.click(cancelButton);
        QTRY_VERIFY(other.isClosed());
        QVERIFY(other.saved.isEmpty());
    }

    void offersToRemoveALogoOnlyWhenThereIsOne()
    {
        SheetWindow sheet(savedLink(QStringLiteral("a")));
        QVERIFY(sheet.isUp());
        QVERIFY(!sheet.find(removeLogo));
        sheet.press(Qt::Key_Tab);
        sheet.press(Qt::Key_Tab);
        QCOMPARE(sheet.focused(), logoField);
        sheet.type(QStringLiteral("l"));
        QVERIFY(sheet.find(removeLogo));
        sheet.press(Qt::Key_Backspace);
        QVERIFY(!sheet.find(removeLogo));
    }

    void showsWhatIsWrong()
    {
        SheetWindow sheet;
        QVERIFY(sheet.isUp());
        QVERIFY(sheet.find(QStringLiteral("Add M3U8 Link")));
        const QString error = QStringLiteral("Enter a valid HTTP or HTTPS M3U8 URL.");
        sheet.type(QStringLiteral("A"));
        sheet.press(Qt::Key_Enter);
        QQuickItem *const label = sheet.find(error);
        QVERIFY(label);
        QCOMPARE(QAccessible::queryAccessibleInterface(label)->role(), QAccessible::AlertMessage);
        QVERIFY(!sheet.isClosed());
        QCOMPARE(sheet.find(nameField)->property("text"), QStringLiteral("A"));
        QCOMPARE(sheet.focused(), nameField);
    }

    void isInOrderFromTopToBottom()
    {
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        sheet.form.setProperty("name", QString());
        sheet.form.save();
        const QStringList rows { QStringLiteral("Edit M3U8 Link"), nameField, addressField,
            logoField, countryField, categoryField, chooseLogo,
            QStringLiteral("Enter a channel or video name."), saveButton };
        QTRY_VERIFY(sheet.find(rows[7]));
        double bottom = -12;
        QQuickItem *const title = sheet.find(rows[0]);
        QQuickItem *const column = title->parentItem();
        for (const QString &name : rows) {
            const QQuickItem *row = sheet.find(name);
            QVERIFY2(row, qPrintable(name));
            while (row->parentItem() != column)
                row = row->parentItem();
            QTRY_COMPARE(row->y(), bottom + 12);
            bottom = row->y() + row->height();
        }
        const auto y = [&](const QString &name) { return sheet.find(name)->mapToScene({}).y(); };
        const auto x = [&](const QString &name) { return sheet.find(name)->mapToScene({}).x(); };
        QCOMPARE(y(removeLogo), y(chooseLogo));
        QVERIFY(x(removeLogo) > x(chooseLogo));
        QCOMPARE(y(cancelButton), y(saveButton));
        QVERIFY(x(cancelButton) < x(saveButton));
    }

    void fitsIntoSmallWindows_data()
    {
        QTest::addColumn<int>("height");
        QTest::newRow("smallest main window") << 360;
        QTest::newRow("large letters, as it were") << 200;
    }

    void fitsIntoSmallWindows()
    {
        QFETCH(int, height);
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        sheet.window().resize(520, height);
        sheet.form.setProperty("name", QString());
        sheet.form.save();
        QTRY_COMPARE(sheet.window().height(), height);
        const QRectF window(0, 0, sheet.window().width(), sheet.window().height());
        const auto isInside = [&](const QString &name) {
            QQuickItem *const item = sheet.find(name);
            return window.contains(item->mapRectToScene(item->boundingRect()));
        };
        // With everything in it, and wherever the keys take the user.
        for (const QString &name : { nameField, addressField, logoField, countryField,
                 categoryField, chooseLogo, removeLogo, cancelButton, saveButton }) {
            QTRY_COMPARE(sheet.focused(), name);
            QTRY_VERIFY2(isInside(name), qPrintable(name));
            sheet.press(Qt::Key_Tab);
        }
    }

    void everyControlSaysWhatItIsFor()
    {
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        for (const QString &name : { nameField, addressField, logoField, countryField,
                 categoryField, chooseLogo, removeLogo, cancelButton, saveButton }) {
            QQuickItem *const item = sheet.find(name);
            QVERIFY2(item, qPrintable(name));
            const bool isField = name.contains(QStringLiteral("URL")) || name == nameField
                || name == countryField || name == categoryField;
            QCOMPARE(QAccessible::queryAccessibleInterface(item)->role(),
                isField ? QAccessible::EditableText : QAccessible::Button);
        }
    }

    void everyControlHasAToolTip_data()
    {
        QTest::addColumn<QString>("toolTip");
        for (const QString &field : { addressField, logoField, countryField, categoryField })
            QTest::newRow(qPrintable(field)) << field;
        QTest::newRow(qPrintable(chooseLogo))
            << QStringLiteral("Choose a picture on this computer as the logo");
        QTest::newRow(qPrintable(removeLogo)) << QStringLiteral("Save the link without a logo");
        QTest::newRow(qPrintable(cancelButton)) << QStringLiteral("Close without saving");
        QTest::newRow(qPrintable(saveButton)) << QStringLiteral("Save the link");
    }

    void everyControlHasAToolTip()
    {
        QFETCH(QString, toolTip);
        SheetWindow sheet(fullEntry());
        QVERIFY(sheet.isUp());
        QQuickItem *const control = sheet.find(QString::fromUtf8(QTest::currentDataTag()));
        QVERIFY(control);
        // The pointer comes to rest on it.
        for (const double part : { 0.4, 0.5 })
            QTest::mouseMove(&sheet.window(),
                control->mapToScene(QPointF(control->width() * part, control->height() * part))
                    .toPoint());
        QTRY_VERIFY(sheet.shows(toolTip));
    }
};

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QApplication application(argc, argv);
    QAccessible::setActive(true);
    qInstallMessageHandler(noteWarnings);
    ItemEditSheetTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_item_edit_sheet.moc"
