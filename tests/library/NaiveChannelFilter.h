// The filters of channels, done again in the plainest way.
#pragma once

#include "library/ChannelFilter.h"

#include <QLocale>

/// Looks at every channel with Qt's own tables.
class NaiveChannelFilter {
public:
    NaiveChannelFilter(const QList<zeph::PlaylistEntry> &entries, const QLocale &locale);

    /// Places in the list.
    QList<qsizetype> rows(const zeph::ChannelCriteria &criteria) const;

private:
    struct Channel {
        QString name; ///< Folded, as the group is.
        QString group;
        std::optional<QString> category;
        std::optional<QString> countryCode;
    };

    QString folded(const QString &text) const;

    bool m_isTurkic;
    QList<Channel> m_channels;
};
