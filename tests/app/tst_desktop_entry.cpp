// What the desktop is told of the files that the player opens.
#include "player/MediaFileTypes.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace zeph;

class DesktopEntryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // As if installed: what we add to the kinds of files is known.
        QVERIFY(QDir(m_data.path()).mkpath(QStringLiteral("mime/packages")));
        QVERIFY(QFile::copy(QStringLiteral(ZEPH_DESKTOP_FOLDER "/zeph-player-mime.xml"),
            m_data.filePath(QStringLiteral("mime/packages/zeph-player.xml"))));
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_data.path()));

        QFile file(QStringLiteral(ZEPH_DESKTOP_FOLDER "/zeph-player.desktop"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray key = "MimeType=";
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(key))
                m_types = QString::fromUtf8(line.mid(key.size())).split(u';', Qt::SkipEmptyParts);
        }
        QVERIFY(!m_types.isEmpty());
    }

    void opensEachKindOfFile_data()
    {
        QTest::addColumn<QString>("extension");
        const QStringList lists { QStringLiteral("m3u"), QStringLiteral("m3u8") };
        for (const QString &extension : mediaFileExtensions() + lists)
            QTest::newRow(qPrintable(extension)) << extension;
    }

    void opensEachKindOfFile()
    {
        QFETCH(const QString, extension);
        // Some endings are of several kinds; a look into the file tells which.
        const QList<QMimeType> types =
            QMimeDatabase().mimeTypesForFileName(QStringLiteral("name.") + extension);
        QVERIFY(!types.isEmpty());
        QVERIFY(std::any_of(types.begin(), types.end(),
            [this](const QMimeType &type) { return m_types.contains(type.name()); }));
    }

    void softwareCentresAreToldTheSame()
    {
        QFile file(QStringLiteral(ZEPH_DESKTOP_FOLDER "/zeph-player.metainfo.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        static const QRegularExpression mediatype(QStringLiteral("<mediatype>(.*)</mediatype>"));
        QStringList types;
        for (auto match = mediatype.globalMatch(QString::fromUtf8(file.readAll()));
             match.hasNext();)
            types << match.next().captured(1);
        QCOMPARE(types, m_types);
    }

private:
    QTemporaryDir m_data;
    QStringList m_types;
};

QTEST_GUILESS_MAIN(DesktopEntryTest)
#include "tst_desktop_entry.moc"
