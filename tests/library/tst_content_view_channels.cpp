// How the main window's state reaches the lists of channels.
#include "Library.h"
#include "library/ContentView.h"
#include "SavedLinks.h"

#include <QTemporaryDir>
#include <QTest>

using namespace zeph;
using namespace Qt::StringLiterals;

class ContentViewChannelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_defaults.emplace(m_folder->filePath(u"settings.conf"_s));
        m_model.emplace(m_panels);
        m_view.emplace(*m_model, *m_defaults, m_panels);
        m_view->localM3UStore()->replaceEntries(savedLinks(u"Link "_s, 3));
    }

    void cleanup()
    {
        m_view.reset();
        m_model.reset();
        m_defaults.reset();
        m_folder.reset();
    }

    void aListIsShown()
    {
        open("#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n#EXTINF:-1,Two\nhttp://h/2\n");
        QCOMPARE(
            names(m_view->channels()->filteredPlaylist()), (QStringList { u"One"_s, u"Two"_s }));
        m_view->channels()->setChannelSearch(u"ONE"_s);
        QCOMPARE(names(m_view->channels()->filteredPlaylist()), QStringList { u"One"_s });
        open("#EXTM3U\n#EXTINF:-1,Someone\nhttp://h/1\n");
        QCOMPARE(names(m_view->channels()->filteredPlaylist()), QStringList { u"Someone"_s });
    }

    void theSectionChoosesTheList()
    {
        open("#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n");
        m_view->setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        QCOMPARE(m_view->channels()->channelCountText(), u"CHANNELS  \u00b7  3 / 3"_s);
        open("#EXTM3U\n#EXTINF:-1,Replaced\nhttp://h/1\n");
        QCOMPARE(names(m_view->channels()->filteredPlaylist()), QStringList { u"Replaced"_s });
        m_view->setSelectedSidebarSection(PlayerSidebarSection::Network);
        QCOMPARE(names(m_view->channels()->filteredPlaylist()), QStringList { u"One"_s });
    }

    void savedLinksAreEditedByTheirRows()
    {
        m_view->setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        m_view->channels()->setChannelSearch(u"2"_s);
        for (const int row : { -1, 1 }) {
            m_view->editLocalChannel(row);
            QVERIFY(m_view->editForms().isEmpty());
        }
        m_view->editLocalChannel(0);
        QCOMPARE(m_view->editForms().size(), 1);
        LocalM3UItemEditView *const form = m_view->editForms().constFirst();
        QCOMPARE(form->property("name").toString(), u"Link 2"_s);
        form->setProperty("name", u"Renamed 2"_s);
        form->save();
        QCOMPARE(names(m_view->localM3UStore()->entries()),
            (QStringList { u"Link 0"_s, u"Link 1"_s, u"Renamed 2"_s }));
        QCOMPARE(names(m_view->channels()->filteredPlaylist()), QStringList { u"Renamed 2"_s });
    }

    void savedLinksAreDeletedByTheirRows()
    {
        m_view->setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        m_view->channels()->setChannelSearch(u"1"_s);
        for (const int row : { -1, 1 }) {
            m_view->askToDeleteLocalChannel(row);
            QVERIFY(!m_view->confirmingLocalDelete());
        }
        m_view->askToDeleteLocalChannel(0);
        QVERIFY(m_view->localDeleteMessage().contains(u"\"Link 1\""_s));
        m_view->deleteLocalEntry();
        QCOMPARE(
            names(m_view->localM3UStore()->entries()), (QStringList { u"Link 0"_s, u"Link 2"_s }));
        QCOMPARE(m_view->channels()->channelCountText(), u"CHANNELS  \u00b7  0 / 2"_s);
    }

private:
    void open(const QByteArray &list)
    {
        const QString file = m_folder->filePath(u"list.m3u"_s);
        QVERIFY(writeFile(file, list));
        m_panels.answer = QUrl::fromLocalFile(file);
        m_model->importLocalM3U({});
    }

    std::optional<QTemporaryDir> m_folder;
    std::optional<UserDefaults> m_defaults;
    StandInPanels m_panels;
    std::optional<PlayerModel> m_model;
    std::optional<ContentView> m_view;
};

QTEST_MAIN(ContentViewChannelsTest)
#include "tst_content_view_channels.moc"
