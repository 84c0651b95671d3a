// A window out of which something is dragged: drag-source ADDRESS…, or drag-source --text TEXT.
// Prints "taken" or "refused" when it was dropped.
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

class DragSource : public QRasterWindow {
public:
    explicit DragSource(const QStringList &arguments) : m_arguments(arguments)
    {
        setTitle(QStringLiteral("Drag source"));
        resize(100, 100);
    }

protected:
    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (event->buttons() != Qt::LeftButton)
            return;
        auto *data = new QMimeData;
        if (m_arguments.value(0) == QStringLiteral("--text"))
            data->setText(m_arguments.value(1));
        else
            data->setUrls(QUrl::fromStringList(m_arguments));
        auto *drag = new QDrag(this); // Deletes itself.
        drag->setMimeData(data);
        std::puts(drag->exec() == Qt::IgnoreAction ? "refused" : "taken");
        std::fflush(stdout);
    }

private:
    const QStringList m_arguments;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    DragSource source(QCoreApplication::arguments().mid(1));
    source.show();
    return QGuiApplication::exec();
}
