#include "library/ChannelBrowser.h"

#include "library/ChannelMetadata.h"
#include "library/LocalM3UStore.h"
#include "platform/RegionNames.h"
#include "sources/UrlPath.h"

#include <utility>

namespace zeph {

namespace {

QString sameTitle(const QString &category)
{
    return category;
}

QList<PlaylistEntry> rowEntries(ChannelListModel &channels)
{
    channels.showNewestEntries();
    QList<PlaylistEntry> entries;
    entries.reserve(channels.count());
    for (int row = 0; row < channels.count(); ++row)
        entries << *channels.entry(row);
    return entries;
}

} // namespace

ChannelBrowser::ChannelBrowser(PlayerModel &model, LocalM3UStore &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_countryChoices({ tr("Countries"), tr("All Countries") }, regionName)
    , m_categoryChoices({ tr("Category"), tr("All Categories") }, sameTitle)
    , m_networkChannels(model, store, channelMetadata)
    , m_localChannels(model, store, playlistEntryMetadata)
{
    connect(&store, &LocalM3UStore::entriesChanged, this,
        [this] { setEntries(m_localChannels, m_store.entries()); });
    connect(&m_countryChoices, &FilterChoices::selectedChanged, this, [this] {
        applyFilters();
        Q_EMIT selectedCountryCodeChanged();
    });
    connect(&m_categoryChoices, &FilterChoices::selectedChanged, this, [this] {
        applyFilters();
        Q_EMIT selectedCategoryChanged();
    });
    for (ChannelListModel *const channels : { &m_networkChannels, &m_localChannels })
        connect(channels, &ChannelListModel::countChanged, this,
            &ChannelBrowser::channelCountTextChanged);
    connect(&m_preparation, &QFutureWatcherBase::finished, this, &ChannelBrowser::offerChoices);
    m_localChannels.setEntries(store.entries(), {});
}

ChannelBrowser::~ChannelBrowser() = default;

void ChannelBrowser::setSelectedSection(PlayerSidebarSection section)
{
    ChannelListModel *const channels =
        section == PlayerSidebarSection::LocalM3U ? &m_localChannels : &m_networkChannels;
    if (std::exchange(m_displayed, channels) == channels)
        return;
    applyFilters();
    updateChoices();
    Q_EMIT channelListChanged();
    Q_EMIT channelCountTextChanged();
}

void ChannelBrowser::setNetworkPlaylist(const QList<PlaylistEntry> &entries)
{
    setEntries(m_networkChannels, entries);
}

void ChannelBrowser::setEntries(ChannelListModel &channels, const QList<PlaylistEntry> &entries)
{
    const bool isDisplayed = &channels == m_displayed;
    channels.setEntries(entries, isDisplayed ? criteria() : ChannelCriteria());
    if (isDisplayed)
        updateChoices();
}

void ChannelBrowser::setChannelSearch(const QString &search)
{
    if (std::exchange(m_channelSearch, search) == search)
        return;
    applyFilters();
    Q_EMIT channelSearchChanged();
}

void ChannelBrowser::clearFilters()
{
    setChannelSearch({});
    setSelectedCountryCode({});
    setSelectedCategory({});
}

ChannelCriteria ChannelBrowser::criteria() const
{
    return { trimmedText(m_channelSearch), selectedCountryCode(), selectedCategory() };
}

void ChannelBrowser::applyFilters()
{
    m_displayed->setCriteria(criteria());
}

void ChannelBrowser::updateChoices()
{
    const QFuture<void> preparation = m_displayed->filter().prepared();
    m_preparation.setFuture(preparation);
    if (preparation.isFinished()) {
        offerChoices();
    } else {
        m_countryChoices.setValues({});
        m_categoryChoices.setValues({});
    }
}

void ChannelBrowser::offerChoices()
{
    m_countryChoices.setValues(playlistCountryCodes());
    m_categoryChoices.setValues(playlistCategories());
}

QString ChannelBrowser::channelCountText() const
{
    const QString title = m_displayed == &m_localChannels ? tr("CHANNELS") : tr("IPTV CHANNELS");
    return QStringLiteral("%1  \u00b7  %2 / %3")
        .arg(title)
        .arg(m_displayed->count())
        .arg(m_displayed->totalCount());
}

QList<PlaylistEntry> ChannelBrowser::filteredPlaylist()
{
    return rowEntries(*m_displayed);
}

QList<PlaylistEntry> ChannelBrowser::filteredLocalEntries()
{
    m_localChannels.setCriteria(criteria());
    return rowEntries(m_localChannels);
}

} // namespace zeph
