// The player's keys, pressed on the keyboard of a real display.
#include "ExpectedKeys.h"
#include "player/PlayerModel.h"
#include "RecordingPage.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QKeyEvent>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScopeGuard>

using namespace zeph;

namespace {

const YouTubeContent youtube { QStringLiteral("abc"), std::nullopt };

void run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s fails", qPrintable(program));
}

/// Presses and releases keys, or moves the mouse; on the display, not in this process.
void xdotool(const QStringList &arguments)
{
    run(QStringLiteral("xdotool"), arguments);
}

QStringList heldModifiers(const QString &action, Qt::KeyboardModifiers modifiers)
{
    QStringList arguments;
    for (const ModifierKey &key : modifierKeys) {
        if (modifiers.testFlag(key.modifier))
            arguments << action << QString::number(key.scanCode);
    }
    return arguments;
}

/// Sees what reaches the application, before the player does.
class Arrivals : public QObject {
public:
    Arrivals() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!watched->isWindowType())
            return false;
        if (event->type() == QEvent::KeyPress)
            ++presses[int(static_cast<const QKeyEvent *>(event)->nativeScanCode())];
        return false;
    }

    QHash<int, int> presses; ///< By scan code, repeated ones included.
};

/// Sees what has got past the player.
class PassedOn : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            ++presses[int(static_cast<const QKeyEvent *>(event)->nativeScanCode())];
        return false;
    }

    QHash<int, int> presses; ///< By scan code, repeated ones included.
};

} // namespace

class KeyboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyKeyWithEveryModifier_data();
    void everyKeyWithEveryModifier();
    void heldKeys_data() { everyKeyWithEveryModifier_data(); }
    void heldKeys();
    void aRepeatThatQtTakesForTwoKeys();
    void keysOfATextField_data() { everyKeyWithEveryModifier_data(); }
    void keysOfATextField();

    void otherLayouts_data();
    void otherLayouts();
    void theLetterAtAnotherPlaceIsAnotherKey();
    void capitalsAndNumbersAreLocked();

    void spaceIsTypedIntoATextField();
    void aReadOnlyTextNeedsNoKeys();
    void aDialogKeepsItsKeys();
    void aMenuKeepsItsKeys();
    void aDropDownListKeepsItsKeys();
    void aClosedDropDownListDoesNot();

    void keysWithoutAKeyboard();
    void installedTwiceItActsOnce();
    void withoutTheModelKeysPassOn();
    void beforeItIsInstalledKeysPassOn();

private:
    void awaitKeyboard(const QWindow *window);
    QQuickItem *item(const char *name) const;
    void focus(const char *name);
    void press(const KeyOnKeyboard &key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void hold(const KeyOnKeyboard &key, Qt::KeyboardModifiers modifiers);
    void awaitArrivals();
    void verifyActed(const ExpectedAction &expected, int times);
    QStringList expectedScripts(const ExpectedAction &expected, int times) const;

    StandInPanels m_panels;
    RecordingPage m_page;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::optional<PlayerModel> m_model;
    std::unique_ptr<Arrivals> m_arrivals;
    PassedOn m_passedOn;
};

void KeyboardTest::initTestCase()
{
    // A held key is to repeat soon, and often.
    run(QStringLiteral("xset"),
        { QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("150"),
            QStringLiteral("60") });
    YouTubePlayerRegistry::shared().setWebView(&m_page);

    QQmlComponent component(&m_engine);
    component.setData(R"(
        import QtQuick
        import QtQuick.Controls
        ApplicationWindow {
            width: 300; height: 300; visible: true
            Item { objectName: "plain"; focus: true }
            TextField { objectName: "text" }
            TextField { objectName: "readOnlyText"; readOnly: true }
            ComboBox { objectName: "dropDown"; model: ["a", "b", "c"] }
            Menu {
                objectName: "menu"
                MenuItem { text: "a" }
                MenuItem { text: "b" }
            }
        }
    )",
        QUrl());
    m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
    QVERIFY2(m_window, qPrintable(component.errorString()));
    awaitKeyboard(m_window.get());
}

void KeyboardTest::init()
{
    m_model.emplace(m_panels);
    m_model->installKeyboardShortcuts();
    m_model->setVolume(0.5);
    m_model->show(youtube, QString());
    QCoreApplication::processEvents();
    m_page.scripts.clear();
    m_arrivals = std::make_unique<Arrivals>(); // after the player's, and so before them
    focus("plain");
}

void KeyboardTest::cleanup()
{
    m_model.reset();
    m_arrivals.reset();
}

// A dialogue counts as active when its parent is, and the parent when its dialogue is; the keys are
// for one of them.
void KeyboardTest::awaitKeyboard(const QWindow *window)
{
    QTRY_COMPARE(QGuiApplication::focusWindow(), window);
}

QQuickItem *KeyboardTest::item(const char *name) const
{
    return m_window->findChild<QQuickItem *>(QLatin1String(name));
}

void KeyboardTest::focus(const char *name)
{
    if (QObject *last = QGuiApplication::focusObject())
        last->removeEventFilter(&m_passedOn);
    item(name)->forceActiveFocus();
    QCOMPARE(QGuiApplication::focusObject(), item(name));
    item(name)->installEventFilter(&m_passedOn);
    m_passedOn.presses.clear();
}

void KeyboardTest::press(const KeyOnKeyboard &key, Qt::KeyboardModifiers modifiers)
{
    xdotool(heldModifiers(QStringLiteral("keydown"), modifiers)
        << QStringLiteral("key") << QString::number(key.scanCode)
        << heldModifiers(QStringLiteral("keyup"), modifiers));
    awaitArrivals();
}

void KeyboardTest::hold(const KeyOnKeyboard &key, Qt::KeyboardModifiers modifiers)
{
    xdotool(heldModifiers(QStringLiteral("keydown"), modifiers)
        << QStringLiteral("keydown") << QString::number(key.scanCode));
    QTRY_VERIFY(m_arrivals->presses.value(key.scanCode) > 2);
    xdotool(QStringList { QStringLiteral("keyup"), QString::number(key.scanCode) }
        << heldModifiers(QStringLiteral("keyup"), modifiers));
    awaitArrivals();
}

// Keys arrive in the order in which they were pressed.
void KeyboardTest::awaitArrivals()
{
    constexpr int f5 = 71;
    const int before = m_arrivals->presses.value(f5);
    xdotool({ QStringLiteral("key"), QString::number(f5) });
    QTRY_COMPARE(m_arrivals->presses.value(f5), before + 1);
    QCoreApplication::processEvents();
}

QStringList KeyboardTest::expectedScripts(const ExpectedAction &expected, int times) const
{
    QStringList scripts;
    int percent = 50;
    for (int i = 0; i < times; ++i) {
        switch (expected.kind) {
        case ExpectedAction::Skip:
            scripts << QStringLiteral("zephSkip(%1.0);").arg(expected.amount);
            break;
        case ExpectedAction::Volume: {
            percent = std::clamp(percent + expected.amount, 0, 100);
            QString number = QString::number(percent / 100.0);
            if (!number.contains(u'.'))
                number += QStringLiteral(".0");
            scripts << QStringLiteral("zephSetVolume(%1);").arg(number);
            break;
        }
        case ExpectedAction::Toggle:
            scripts << QStringLiteral("zephToggle();");
            break;
        default:
            break;
        }
    }
    return scripts;
}

void KeyboardTest::verifyActed(const ExpectedAction &expected, int times)
{
    QCOMPARE(m_page.scripts, expectedScripts(expected, times));
    QCOMPARE(
        m_model->youtubeContent().has_value(), expected.kind != ExpectedAction::Stop || times == 0);
}

void KeyboardTest::everyKeyWithEveryModifier_data()
{
    everyKeyAndCombination();
}

void KeyboardTest::everyKeyWithEveryModifier()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    const auto held = Qt::KeyboardModifiers(modifiers);
    const ExpectedAction expected = expectedAction(keysOnKeyboard[key], held);
    press(keysOnKeyboard[key], held);
    verifyActed(expected, 1);
    QCOMPARE(m_passedOn.presses.value(keysOnKeyboard[key].scanCode),
        expected.kind == ExpectedAction::None ? 1 : 0);
}

void KeyboardTest::heldKeys()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    const auto held = Qt::KeyboardModifiers(modifiers);
    const ExpectedAction expected = expectedAction(keysOnKeyboard[key], held);
    hold(keysOnKeyboard[key], held);
    const int presses = m_arrivals->presses.value(keysOnKeyboard[key].scanCode);
    verifyActed(expected, expected.kind == ExpectedAction::Volume ? presses : 1);
    QCOMPARE(m_passedOn.presses.value(keysOnKeyboard[key].scanCode),
        expected.kind == ExpectedAction::None ? presses : 0);
}

// A display that is slow to tell of the repeated press.
void KeyboardTest::aRepeatThatQtTakesForTwoKeys()
{
    const auto send = [this](QEvent::Type type, quint64 timestamp) {
        const auto scanCode = quint32(keysOnKeyboard[4].scanCode);
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, scanCode, 0, 0);
        event.setTimestamp(timestamp);
        QCoreApplication::sendEvent(m_window.get(), &event);
        QCoreApplication::processEvents();
    };
    send(QEvent::KeyPress, 1000);
    send(QEvent::KeyRelease, 1150);
    send(QEvent::KeyPress, 1150);
    send(QEvent::KeyRelease, 1300);
    verifyActed({ ExpectedAction::Toggle }, 1);
    send(QEvent::KeyPress, 1301);
    verifyActed({ ExpectedAction::Toggle }, 2);
}

void KeyboardTest::keysOfATextField()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    focus("text");
    press(keysOnKeyboard[key], Qt::KeyboardModifiers(modifiers));
    verifyActed({}, 0);
    QCOMPARE(m_passedOn.presses.value(keysOnKeyboard[key].scanCode), 1);
}

void KeyboardTest::otherLayouts_data()
{
    QTest::addColumn<QStringList>("layout");
    const auto row = [](const char *layout, const char *variant = "") {
        QTest::addRow("%s %s", layout, variant) << QStringList { QLatin1String(layout),
            QLatin1String("-variant"), QLatin1String(variant) };
    };
    row("us", "dvorak");
    row("de");
    row("fr");
    row("ru");
    row("gr");
    row("ara");
    row("tr", "f");
}

void KeyboardTest::otherLayouts()
{
    QFETCH(const QStringList, layout);
    run(QStringLiteral("setxkbmap"), layout);
    const auto restore =
        qScopeGuard([] { run(QStringLiteral("setxkbmap"), { QStringLiteral("us") }); });
    for (const KeyOnKeyboard &key : keysOnKeyboard) {
        for (const Qt::KeyboardModifiers modifiers : { Qt::NoModifier, Qt::ControlModifier }) {
            cleanup();
            init();
            press(key, modifiers);
            verifyActed(expectedAction(key, modifiers), 1);
        }
    }
}

void KeyboardTest::theLetterAtAnotherPlaceIsAnotherKey()
{
    run(QStringLiteral("setxkbmap"),
        { QStringLiteral("us"), QStringLiteral("-variant"), QStringLiteral("dvorak") });
    const auto restore =
        qScopeGuard([] { run(QStringLiteral("setxkbmap"), { QStringLiteral("us") }); });
    constexpr KeyOnKeyboard vWhereDvorakHasK { "v", 55, Qt::Key_V };
    press(vWhereDvorakHasK, Qt::ControlModifier);
    verifyActed({}, 0);
    QCOMPARE(m_passedOn.presses.value(55), 1);
}

void KeyboardTest::capitalsAndNumbersAreLocked()
{
    const QStringList locks { QStringLiteral("key"), QStringLiteral("66"), QStringLiteral("key"),
        QStringLiteral("77") };
    xdotool(locks);
    const auto restore = qScopeGuard([&] { xdotool(locks); });
    for (const KeyOnKeyboard &key : keysOnKeyboard) {
        cleanup();
        init();
        press(key, Qt::ControlModifier);
        verifyActed(expectedAction(key, Qt::ControlModifier), 1);
    }
}

void KeyboardTest::spaceIsTypedIntoATextField()
{
    focus("text");
    item("text")->setProperty("text", QString());
    press(keysOnKeyboard[4]);
    QCOMPARE(item("text")->property("text").toString(), QStringLiteral(" "));
    verifyActed({}, 0);
    focus("plain");
    press(keysOnKeyboard[4]);
    QCOMPARE(item("text")->property("text").toString(), QStringLiteral(" "));
    verifyActed({ ExpectedAction::Toggle }, 1);
}

void KeyboardTest::aReadOnlyTextNeedsNoKeys()
{
    focus("readOnlyText");
    press(keysOnKeyboard[4]);
    verifyActed({ ExpectedAction::Toggle }, 1);
}

void KeyboardTest::aDialogKeepsItsKeys()
{
    QWindow dialog;
    dialog.setFlag(Qt::Dialog);
    dialog.setTransientParent(m_window.get());
    dialog.show();
    awaitKeyboard(&dialog);
    for (const KeyOnKeyboard &key : keysOnKeyboard)
        press(key);
    verifyActed({}, 0);
    dialog.close();
    awaitKeyboard(m_window.get());
    press(keysOnKeyboard[4]);
    verifyActed({ ExpectedAction::Toggle }, 1);
}

void KeyboardTest::aMenuKeepsItsKeys()
{
    auto *menu = m_window->findChild<QObject *>(QStringLiteral("menu"));
    QVERIFY(QMetaObject::invokeMethod(menu, "open"));
    QTRY_VERIFY(menu->property("opened").toBool());
    press(keysOnKeyboard[3]);
    press(keysOnKeyboard[3]);
    verifyActed({}, 0);
    QCOMPARE(menu->property("currentIndex").toInt(), 1);
    QVERIFY(QMetaObject::invokeMethod(menu, "close"));
    QTRY_VERIFY(!menu->property("visible").toBool());
    focus("plain");
    press(keysOnKeyboard[3]);
    verifyActed({ ExpectedAction::Volume, -5 }, 1);
}

void KeyboardTest::aDropDownListKeepsItsKeys()
{
    focus("dropDown");
    auto *list = item("dropDown")->property("popup").value<QObject *>();
    QVERIFY(QMetaObject::invokeMethod(list, "open"));
    QTRY_VERIFY(list->property("opened").toBool());
    press(keysOnKeyboard[3]);
    verifyActed({}, 0);
    QCOMPARE(item("dropDown")->property("highlightedIndex").toInt(), 1);
    QVERIFY(QMetaObject::invokeMethod(list, "close"));
    QTRY_VERIFY(!list->property("visible").toBool());
}

void KeyboardTest::aClosedDropDownListDoesNot()
{
    focus("dropDown");
    press(keysOnKeyboard[3]);
    verifyActed({ ExpectedAction::Volume, -5 }, 1);
    QCOMPARE(item("dropDown")->property("currentIndex").toInt(), 0);
}

void KeyboardTest::keysWithoutAKeyboard()
{
    QTest::keyClick(m_window.get(), Qt::Key_Right, Qt::AltModifier);
    QCoreApplication::processEvents();
    verifyActed({ ExpectedAction::Skip, 20 }, 1);
    QTest::keyClick(m_window.get(), Qt::Key_K, Qt::ControlModifier);
    QVERIFY(!m_model->youtubeContent());
}

void KeyboardTest::installedTwiceItActsOnce()
{
    m_model->installKeyboardShortcuts();
    press(keysOnKeyboard[0]);
    verifyActed({ ExpectedAction::Skip, -5 }, 1);
}

void KeyboardTest::withoutTheModelKeysPassOn()
{
    m_model.reset();
    press(keysOnKeyboard[0]);
    QCOMPARE(m_passedOn.presses.value(keysOnKeyboard[0].scanCode), 1);
    QVERIFY(m_page.scripts.isEmpty());
}

void KeyboardTest::beforeItIsInstalledKeysPassOn()
{
    m_model.reset();
    m_model.emplace(m_panels);
    m_model->show(youtube, QString());
    press(keysOnKeyboard[0]);
    QCOMPARE(m_passedOn.presses.value(keysOnKeyboard[0].scanCode), 1);
    verifyActed({}, 0);
}

QTEST_MAIN(KeyboardTest)
#include "tst_keyboard.moc"
