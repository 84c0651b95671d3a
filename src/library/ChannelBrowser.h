// The lists of channels, and what they are filtered by.
#pragma once

#include "library/ChannelListModel.h"
#include "library/FilterChoices.h"
#include "library/PlayerSidebarSection.h"

#include <QFutureWatcher>

namespace zeph {

/// The channels from the network and the saved links, of which the selected section's are shown.
/// Both have one search and one choice of country and category, which stay when the section
/// changes. Main thread only.
class ChannelBrowser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window owns its channel browser.")

    /// Text of the search field.
    Q_PROPERTY(
        QString channelSearch READ channelSearch WRITE setChannelSearch NOTIFY channelSearchChanged)
    /// Both are empty when all are shown.
    Q_PROPERTY(QString selectedCountryCode READ selectedCountryCode WRITE setSelectedCountryCode
            NOTIFY selectedCountryCodeChanged)
    Q_PROPERTY(QString selectedCategory READ selectedCategory WRITE setSelectedCategory NOTIFY
            selectedCategoryChanged)
    /// What the two menus offer for the selected section. For a large list that has just come there
    /// are no values yet.
    Q_PROPERTY(zeph::FilterChoices *countryChoices READ countryChoices CONSTANT)
    Q_PROPERTY(zeph::FilterChoices *categoryChoices READ categoryChoices CONSTANT)

    /// The sections' rows. Those of the section that is not selected are out of date.
    Q_PROPERTY(zeph::ChannelListModel *networkChannels READ networkChannels CONSTANT)
    Q_PROPERTY(zeph::ChannelListModel *localChannels READ localChannels CONSTANT)
    /// The selected section's.
    Q_PROPERTY(zeph::ChannelListModel *channelList READ channelList NOTIFY channelListChanged)
    /// How many of the selected section's channels are shown.
    Q_PROPERTY(QString channelCountText READ channelCountText NOTIFY channelCountTextChanged)

public:
    /// `model` and `store` outlive the browser.
    ChannelBrowser(PlayerModel &model, LocalM3UStore &store, QObject *parent = nullptr);
    ~ChannelBrowser() override;

    void setSelectedSection(PlayerSidebarSection section);
    void setNetworkPlaylist(const QList<PlaylistEntry> &entries);

    const QString &channelSearch() const { return m_channelSearch; }
    void setChannelSearch(const QString &search);
    const QString &selectedCountryCode() const { return m_countryChoices.selected(); }
    void setSelectedCountryCode(const QString &code) { m_countryChoices.setSelected(code); }
    const QString &selectedCategory() const { return m_categoryChoices.selected(); }
    void setSelectedCategory(const QString &title) { m_categoryChoices.setSelected(title); }
    /// Empties the search, and shows all countries and categories.
    void clearFilters();

    FilterChoices *countryChoices() { return &m_countryChoices; }
    FilterChoices *categoryChoices() { return &m_categoryChoices; }
    ChannelListModel *networkChannels() { return &m_networkChannels; }
    ChannelListModel *localChannels() { return &m_localChannels; }
    ChannelListModel *channelList() { return m_displayed; }
    QString channelCountText() const;

    /// The selected section's list.
    const QList<PlaylistEntry> &displayedPlaylist() const
    {
        return m_displayed->filter().entries();
    }
    /// Those of it that are shown, once it is prepared.
    QList<PlaylistEntry> filteredPlaylist();
    /// The saved links that are shown when they are; their list takes the criteria to tell.
    QList<PlaylistEntry> filteredLocalEntries();
    /// The countries of the selected section's list, in the order of their English names. Waits
    /// until a large list is prepared, as the following does.
    QStringList playlistCountryCodes() const { return m_displayed->filter().countryCodes(); }
    /// Its groups, in the order of their characters' numbers.
    QStringList playlistCategories() const { return m_displayed->filter().categories(); }

Q_SIGNALS:
    void channelSearchChanged();
    void selectedCountryCodeChanged();
    void selectedCategoryChanged();
    void channelListChanged();
    void channelCountTextChanged();

private:
    ChannelCriteria criteria() const;
    void setEntries(ChannelListModel &channels, const QList<PlaylistEntry> &entries);
    void applyFilters();
    void updateChoices();
    void offerChoices();

    LocalM3UStore &m_store;
    QString m_channelSearch;
    FilterChoices m_countryChoices;
    FilterChoices m_categoryChoices;
    ChannelListModel m_networkChannels;
    ChannelListModel m_localChannels;
    ChannelListModel *m_displayed = &m_networkChannels; ///< The selected section's.
    QFutureWatcher<void> m_preparation; ///< Of what is displayed.
};

} // namespace zeph
