// The desktop's panels, with a test in place of the user.
#include "platform/FilePanels.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace zeph;

namespace {

const SavePanel savePanel { QStringLiteral("Save It"), QStringLiteral("Put There"),
    QStringLiteral("list 1.m3u"), QStringLiteral("Lists"), QStringLiteral("m3u") };

// Does something to the next panel once it is up, and again until it has gone: a panel that still
// reads its folder may not take it the first time.
template <typename Dialog> void whenShown(const std::function<void(Dialog &)> &act)
{
    auto *const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        QObject::connect(
            dialog, &QDialog::finished, timer, &QObject::deleteLater, Qt::UniqueConnection);
        act(*dialog);
    });
    timer->start(10);
}

// What QFileDialog::selectFile does only while the field has not the focus.
void type(QFileDialog &dialog, const QString &name)
{
    dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
}

// A file dialog has this to itself, but not as what it is a kind of.
void accept(QDialog &dialog)
{
    dialog.accept();
}

} // namespace

class FilePanelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QVERIFY(QDir::setCurrent(m_folder.path()));
    }

    void savesUnderTheSuggestedName()
    {
        bool isChecked = false;
        whenShown<QFileDialog>([&](QFileDialog &dialog) {
            isChecked = dialog.windowTitle() == QStringLiteral("Save It")
                && dialog.labelText(QFileDialog::Accept) == QStringLiteral("Put There")
                && dialog.nameFilters() == QStringList(QStringLiteral("Lists (*.m3u)"))
                && dialog.acceptMode() == QFileDialog::AcceptSave
                && !dialog.testOption(QFileDialog::ReadOnly)
                && !dialog.testOption(QFileDialog::DontConfirmOverwrite);
            accept(dialog);
        });
        QCOMPARE(m_panels.chooseSaveFile(savePanel),
            QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("list 1.m3u"))));
        QVERIFY(isChecked);
    }

    void addsTheExtension()
    {
        whenShown<QFileDialog>([](QFileDialog &dialog) {
            type(dialog, QStringLiteral("other"));
            accept(dialog);
        });
        QCOMPARE(m_panels.chooseSaveFile(savePanel),
            QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("other.m3u"))));
    }

    void cancels()
    {
        whenShown<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
        QCOMPARE(m_panels.chooseSaveFile(savePanel), std::nullopt);
        whenShown<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
        QCOMPARE(m_panels.chooseFile({}), std::nullopt);
    }

    void choosesOneFile()
    {
        const QString path = m_folder.filePath(QStringLiteral("logo.png"));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        bool isChecked = false;
        whenShown<QFileDialog>([&](QFileDialog &dialog) {
            isChecked = dialog.windowTitle() == QStringLiteral("Choose")
                && dialog.fileMode() == QFileDialog::ExistingFile
                && dialog.nameFilters() == QStringList(QStringLiteral("Pictures (*.png *.gif)"));
            type(dialog, path);
            accept(dialog);
        });
        QCOMPARE(m_panels.chooseFile({ QStringLiteral("Choose"), QStringLiteral("Pictures"),
                     { QStringLiteral("png"), QStringLiteral("gif") } }),
            QUrl::fromLocalFile(path));
        QVERIFY(isChecked);
    }

    void warns()
    {
        bool isChecked = false;
        whenShown<QMessageBox>([&](QMessageBox &box) {
            isChecked = box.icon() == QMessageBox::Warning
                && box.text() == QStringLiteral("<b>It failed</b>")
                && box.informativeText() == QStringLiteral("No space left on device")
                && box.textFormat() == Qt::PlainText && box.buttons().size() == 1;
            box.button(QMessageBox::Ok)->click();
        });
        m_panels.showWarning(
            { QStringLiteral("<b>It failed</b>"), QStringLiteral("No space left on device") });
        QVERIFY(isChecked);
    }

private:
    QTemporaryDir m_folder;
    DesktopFilePanels m_panels;
};

QTEST_MAIN(FilePanelsTest)
#include "tst_file_panels.moc"
