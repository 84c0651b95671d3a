// A window out of which something is dragged: drag-source ADDRESS…, or drag-source --text TEXT.
// Prints "welcome" when what it is over would take it, and "taken" or "refused" when it was
// dropped.
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

void print(const char *line)
{
    std::puts(line);
    std::fflush(stdout);
}

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
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action != Qt::IgnoreAction)
                print("welcome");
        });
        print(drag->exec() == Qt::IgnoreAction ? "refused" : "taken");
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
