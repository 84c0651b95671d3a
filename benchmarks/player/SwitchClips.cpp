// A running player that is told over its standard input what to play: an address a line.
#include "platform/MediaPlayer.h"
#include "platform/PromptDrawing.h"
#include "surface/PlayerHostingView.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSocketNotifier>

#include <clocale>
#include <iostream>
#include <string>

using namespace zeph;

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    zeph::drawPromptly();
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    MediaPlayer player;
    QQuickWindow window;
    PlayerHostingView view(window.contentItem());
    window.setColor(Qt::black);
    window.resize(640, 360);
    view.setSize(window.size());
    view.setPlayer(&player);
    window.show();
    player.play();

    QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &player, [&] {
        std::string address;
        if (!std::getline(std::cin, address)) {
            QGuiApplication::quit();
            return;
        }
        player.play();
        player.replaceCurrentItem(
            std::make_unique<MediaItem>(QUrl(QString::fromStdString(address))));
    });
    return QGuiApplication::exec();
}
