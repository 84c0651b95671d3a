#include "VideoWindow.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTest>

#include <clocale>

using namespace zeph;

int VideoWindow::runTest(QObject &test, int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return QTest::qExec(&test, argc, argv);
}

VideoWindow::VideoWindow(QSize size)
{
    m_window.setColor(Qt::black);
    resize(size);
    m_view.setPlayer(&m_player);
    m_window.show();
}

void VideoWindow::resize(QSize size)
{
    m_window.resize(size);
    m_view.setSize(size);
}

void VideoWindow::open(const QString &clip)
{
    m_player.replaceCurrentItem(std::make_unique<MediaItem>(QUrl::fromLocalFile(clipPath(clip))));
}

bool VideoWindow::isOpen() const
{
    return m_player.currentItem()->status() == MediaItem::Status::ReadyToPlay;
}

QImage VideoWindow::screen() const
{
    return m_window.screen()->grabWindow(m_window.winId()).toImage();
}

QColor VideoWindow::colourAt(double x, double y) const
{
    const QImage image = screen();
    return image.pixelColor(int(x * image.width()), int(y * image.height()));
}

int VideoWindow::pictureNumber() const
{
    constexpr int stripes = 10;
    const QImage image = screen();
    int number = 0;
    for (int bit = 0; bit < stripes; ++bit) {
        const int x = image.width() * (2 * bit + 1) / (2 * stripes);
        const int lightness = image.pixelColor(x, image.height() / 2).lightness();
        if (lightness > 64 && lightness < 192)
            return -1;
        number |= int(lightness >= 192) << bit;
    }
    return number;
}

bool isNear(QColor colour, QColor expected, int tolerance)
{
    return std::abs(colour.red() - expected.red()) <= tolerance
        && std::abs(colour.green() - expected.green()) <= tolerance
        && std::abs(colour.blue() - expected.blue()) <= tolerance;
}

QString clipPath(const QString &name)
{
    return qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name;
}
