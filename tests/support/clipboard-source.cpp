// Puts a text on the clipboard and keeps it there while it runs: clipboard-source TEXT.
//
// A test that offered the text itself could not wait for the program that asks for it at the same
// time.
#include <QClipboard>
#include <QGuiApplication>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QGuiApplication::clipboard()->setText(QCoreApplication::arguments().value(1));
    return QGuiApplication::exec();
}
