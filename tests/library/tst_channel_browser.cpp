// Search and filters of the channels, which both sections share.
#include "Library.h"
#include "library/ChannelBrowser.h"
#include "SavedLinks.h"
#include "support/Patience.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace zeph;
using namespace Qt::StringLiterals;

namespace {

constexpr auto network = PlayerSidebarSection::Network;
constexpr auto localM3U = PlayerSidebarSection::LocalM3U;

QStringList column(const FilterChoices &choices, FilterChoices::Role role)
{
    QStringList texts;
    for (int row = 0; row < choices.rowCount(); ++row)
        texts << choices.data(choices.index(row), role).toString();
    return texts;
}

} // namespace

class ChannelBrowserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_library.emplace(m_folder->filePath(u"settings.conf"_s));
        m_library->store.replaceEntries(
            { channel(u"Saved News"_s, u"News"_s, u"TR"_s), channel(u"Saved Film"_s, u"Film"_s),
                channel(u"Third"_s), channel(u"Fourth"_s), channel(u"Fifth"_s) });
        m_browser.emplace(m_library->model, m_library->store);
        m_browser->setNetworkPlaylist(
            { channel(u"CNN"_s, u"News"_s, u"DE"_s), channel(u"News 24"_s, u"General"_s, u"AT"_s),
                channel(u"Film 1"_s, u"Film"_s, u"DE"_s), channel(u"Plain"_s) });
    }

    void cleanup()
    {
        m_browser.reset();
        m_library.reset();
        m_folder.reset();
    }

    void atFirst()
    {
        QVERIFY(m_browser->channelSearch().isEmpty());
        QVERIFY(m_browser->selectedCountryCode().isEmpty());
        QVERIFY(m_browser->selectedCategory().isEmpty());
        QCOMPARE(m_browser->channelList(), m_browser->networkChannels());
        QCOMPARE(m_browser->channelCountText(), u"IPTV CHANNELS  \u00b7  4 / 4"_s);
        QCOMPARE(m_browser->localChannels()->rowCount(), 5);
    }

    void theSearchIsTrimmed()
    {
        m_browser->setChannelSearch(u" \t\nnews \u2003\r\n"_s);
        QCOMPARE(m_browser->channelSearch(), u" \t\nnews \u2003\r\n"_s);
        QCOMPARE(names(m_browser->filteredPlaylist()), (QStringList { u"CNN"_s, u"News 24"_s }));
        m_browser->setChannelSearch(u" \n"_s);
        QCOMPARE(m_browser->filteredPlaylist().size(), 4);
    }

    void blanksWithinCount()
    {
        m_browser->setChannelSearch(u"news 24"_s);
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"News 24"_s });
        m_browser->setChannelSearch(u"news  24"_s);
        QVERIFY(m_browser->filteredPlaylist().isEmpty());
    }

    void theCountFollows()
    {
        QSignalSpy changed(&*m_browser, &ChannelBrowser::channelCountTextChanged);
        m_browser->setChannelSearch(u"news"_s);
        QCOMPARE(m_browser->channelCountText(), u"IPTV CHANNELS  \u00b7  2 / 4"_s);
        QVERIFY(!changed.isEmpty());
        changed.clear();
        m_browser->setNetworkPlaylist({});
        QCOMPARE(m_browser->channelCountText(), u"IPTV CHANNELS  \u00b7  0 / 0"_s);
        QVERIFY(!changed.isEmpty());
        m_browser->setChannelSearch(u"no such link"_s);
        changed.clear();
        m_browser->setSelectedSection(localM3U);
        QCOMPARE(m_browser->channelCountText(), u"CHANNELS  \u00b7  0 / 5"_s);
        QVERIFY(!changed.isEmpty());
    }

    void theSectionsShareTheSearch()
    {
        QSignalSpy changed(&*m_browser, &ChannelBrowser::channelListChanged);
        m_browser->setChannelSearch(u"film"_s);
        QCOMPARE(names(m_browser->filteredLocalEntries()), QStringList { u"Saved Film"_s });
        m_browser->setSelectedSection(localM3U);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_browser->channelSearch(), u"film"_s);
        QCOMPARE(m_browser->channelList(), m_browser->localChannels());
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"Saved Film"_s });
        QCOMPARE(m_browser->displayedPlaylist(), m_library->store.entries());
        m_browser->setChannelSearch(u"news"_s);
        m_browser->setSelectedSection(network);
        QCOMPARE(names(m_browser->filteredPlaylist()), (QStringList { u"CNN"_s, u"News 24"_s }));
        m_browser->setSelectedSection(network);
        QCOMPARE(changed.size(), 2);
    }

    void theSectionsShareTheFilters()
    {
        m_browser->setSelectedCountryCode(u"DE"_s);
        m_browser->setSelectedCategory(u"News"_s);
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"CNN"_s });
        m_browser->setSelectedSection(localM3U);
        QVERIFY(m_browser->filteredPlaylist().isEmpty());
        m_browser->setSelectedCountryCode({});
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"Saved News"_s });
        m_browser->setSelectedSection(network);
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"CNN"_s });
    }

    void choicesAreTheSections()
    {
        QCOMPARE(m_browser->playlistCountryCodes(), (QStringList { u"AT"_s, u"DE"_s }));
        QCOMPARE(
            m_browser->playlistCategories(), (QStringList { u"Film"_s, u"General"_s, u"News"_s }));
        const FilterChoices &countries = *m_browser->countryChoices();
        const FilterChoices &categories = *m_browser->categoryChoices();
        QCOMPARE(column(countries, FilterChoices::TitleRole),
            (QStringList { u"All Countries"_s, u"Austria"_s, u"Germany"_s }));
        QCOMPARE(
            column(countries, FilterChoices::ValueRole), (QStringList { u""_s, u"AT"_s, u"DE"_s }));
        QCOMPARE(column(categories, FilterChoices::TitleRole),
            (QStringList { u"All Categories"_s, u"Film"_s, u"General"_s, u"News"_s }));
        m_browser->setSelectedSection(localM3U);
        QCOMPARE(m_browser->playlistCountryCodes(), QStringList { u"TR"_s });
        QCOMPARE(column(countries, FilterChoices::ValueRole), (QStringList { u""_s, u"TR"_s }));
        QCOMPARE(column(categories, FilterChoices::ValueRole),
            (QStringList { u""_s, u"Film"_s, u"News"_s }));
    }

    void aChoiceFilters()
    {
        FilterChoices &countries = *m_browser->countryChoices();
        QSignalSpy marked(&countries, &FilterChoices::dataChanged);
        QSignalSpy selected(&*m_browser, &ChannelBrowser::selectedCountryCodeChanged);
        QCOMPARE(countries.label(), u"Countries"_s);
        QVERIFY(!countries.isFiltering());
        countries.choose(2);
        QCOMPARE(m_browser->selectedCountryCode(), u"DE"_s);
        QCOMPARE(countries.label(), u"Germany"_s);
        QVERIFY(countries.isFiltering());
        QCOMPARE(column(countries, FilterChoices::IsSelectedRole),
            (QStringList { u"false"_s, u"false"_s, u"true"_s }));
        QCOMPARE(names(m_browser->filteredPlaylist()), (QStringList { u"CNN"_s, u"Film 1"_s }));
        QCOMPARE(marked.size(), 1);
        QCOMPARE(selected.size(), 1);
        countries.choose(2);
        countries.choose(3);
        countries.choose(-1);
        QCOMPARE(selected.size(), 1);
        countries.choose(0);
        QVERIFY(m_browser->selectedCountryCode().isEmpty());
        QCOMPARE(column(countries, FilterChoices::IsSelectedRole),
            (QStringList { u"false"_s, u"false"_s, u"false"_s }));
        QCOMPARE(m_browser->filteredPlaylist().size(), 4);

        FilterChoices &categories = *m_browser->categoryChoices();
        QSignalSpy category(&*m_browser, &ChannelBrowser::selectedCategoryChanged);
        QCOMPARE(categories.label(), u"Category"_s);
        categories.choose(1);
        QCOMPARE(categories.label(), u"Film"_s);
        QCOMPARE(m_browser->selectedCategory(), u"Film"_s);
        QCOMPARE(category.size(), 1);
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"Film 1"_s });
    }

    void aChoiceStaysWhereItIsNotOffered()
    {
        m_browser->setSelectedCountryCode(u"QQ"_s);
        QCOMPARE(m_browser->countryChoices()->label(), u"QQ"_s);
        QVERIFY(m_browser->filteredPlaylist().isEmpty());
        m_browser->setSelectedCountryCode(u"DE"_s);
        m_browser->setSelectedSection(localM3U);
        QCOMPARE(m_browser->countryChoices()->label(), u"Germany"_s);
        m_browser->countryChoices()->choose(0);
        QCOMPARE(m_browser->filteredPlaylist().size(), 5);
    }

    void clearing()
    {
        m_browser->setChannelSearch(u"cnn"_s);
        m_browser->setSelectedCountryCode(u"DE"_s);
        m_browser->setSelectedCategory(u"News"_s);
        QCOMPARE(m_browser->filteredPlaylist().size(), 1);
        m_browser->clearFilters();
        QVERIFY(m_browser->channelSearch().isEmpty());
        QVERIFY(m_browser->selectedCountryCode().isEmpty());
        QVERIFY(m_browser->selectedCategory().isEmpty());
        QCOMPARE(m_browser->filteredPlaylist().size(), 4);
    }

    void theStoreIsFollowed()
    {
        m_browser->setSelectedSection(localM3U);
        m_browser->setChannelSearch(u"f"_s);
        QCOMPARE(names(m_browser->filteredPlaylist()),
            (QStringList { u"Saved Film"_s, u"Fourth"_s, u"Fifth"_s }));
        m_library->store.remove(m_library->store.entries().at(3));
        QCOMPARE(
            names(m_browser->filteredPlaylist()), (QStringList { u"Saved Film"_s, u"Fifth"_s }));
        QCOMPARE(m_browser->channelCountText(), u"CHANNELS  \u00b7  2 / 4"_s);
        m_library->store.saveToLocalM3U(channel(u"Fresh"_s, u"New"_s, u"AT"_s));
        QCOMPARE(names(m_browser->filteredPlaylist()),
            (QStringList { u"Fresh"_s, u"Saved Film"_s, u"Fifth"_s }));
        QCOMPARE(m_browser->playlistCountryCodes(), (QStringList { u"AT"_s, u"TR"_s }));
        QCOMPARE(m_browser->countryChoices()->values(), (QStringList { u"AT"_s, u"TR"_s }));
        m_browser->setSelectedSection(network);
        m_library->store.clear();
        QCOMPARE(m_browser->filteredPlaylist().size(), 1);
        QVERIFY(m_browser->filteredLocalEntries().isEmpty());
        m_browser->setSelectedSection(localM3U);
        QCOMPARE(m_browser->channelCountText(), u"CHANNELS  \u00b7  0 / 0"_s);
        QCOMPARE(m_browser->countryChoices()->rowCount(), 1);
    }

    void aNewListIsFilteredAtOnce()
    {
        m_browser->setChannelSearch(u"News"_s);
        m_browser->setNetworkPlaylist({ channel(u"Sport"_s), channel(u"Late news"_s) });
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"Late news"_s });
        m_browser->setSelectedSection(localM3U);
        m_browser->setNetworkPlaylist({ channel(u"News"_s), channel(u"Sport"_s) });
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"Saved News"_s });
        m_browser->setSelectedSection(network);
        QCOMPARE(names(m_browser->filteredPlaylist()), QStringList { u"News"_s });
    }

    void choicesOfALargeListCome()
    {
        QList<PlaylistEntry> channels(300'000, channel(u"a"_s, u"Old"_s, u"US"_s));
        channels << channel(u"b"_s, u"New"_s, u"TR"_s);
        m_browser->setNetworkPlaylist(channels);
        QCOMPARE(m_browser->channelCountText(), u"IPTV CHANNELS  \u00b7  300001 / 300001"_s);
        QTRY_COMPARE(m_browser->countryChoices()->values(), (QStringList { u"TR"_s, u"US"_s }));
        QCOMPARE(m_browser->categoryChoices()->values(), (QStringList { u"New"_s, u"Old"_s }));
        // The list before it is no longer of interest.
        m_browser->setNetworkPlaylist(channels + channels);
        m_browser->setNetworkPlaylist({ channel(u"c"_s, u"Only"_s) });
        QCOMPARE(m_browser->categoryChoices()->values(), QStringList { u"Only"_s });
        m_browser->setChannelSearch(u"c"_s);
        QCOMPARE(m_browser->filteredPlaylist().size(), 1);
    }

private:
    std::optional<QTemporaryDir> m_folder;
    std::optional<Library> m_library;
    std::optional<ChannelBrowser> m_browser;
};

QTEST_GUILESS_MAIN(ChannelBrowserTest)
#include "tst_channel_browser.moc"
