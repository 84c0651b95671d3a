// A main window over a settings file of its own, for tests that use it as its user would.
#pragma once

#include "library/ContentView.h"
#include "SavedLinks.h"
#include "support/Driver.h"
#include "support/EngineTest.h"
#include "support/StandInPanels.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QTemporaryDir>

struct ContentWindow {
    ContentWindow()
    {
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine.setInitialProperties({ { QStringLiteral("view"), QVariant::fromValue(&view) } });
        engine.load(QUrl::fromLocalFile(QStringLiteral(CONTENT_WINDOW)));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    }

    bool isUp() { return window && QTest::qWaitForWindowActive(window, patience); }
    Driver driver() { return Driver(*window); }

    /// Moves the real mouse, as far as the window is concerned, to a point in it.
    void moveMouse(QPoint to)
    {
        QCursor::setPos(window->mapToGlobal(to));
        QTest::mouseMove(window, to);
    }
    /// Plays a clip, and waits until it does.
    bool play()
    {
        model.play(zeph::longClip(), {}, false);
        return zeph::playsPast(*model.player(), 0);
    }
    bool goFullScreen()
    {
        view.toggleFullScreen();
        return QTest::qWaitFor(
            [this] { return window->width() == window->screen()->size().width(); }, patience);
    }

    QTemporaryDir folder;
    StandInPanels panels;
    zeph::PlayerModel model { panels };
    zeph::UserDefaults defaults { folder.filePath(QStringLiteral("settings")) };
    zeph::ContentView view { model, defaults, panels };
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

/// Runs a test that opens such windows. To be called instead of QTEST_MAIN's main.
int runWindowTest(QObject &test, int argc, char *argv[]);
