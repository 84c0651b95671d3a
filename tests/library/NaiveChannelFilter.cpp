#include "NaiveChannelFilter.h"

using namespace zeph;

namespace {

bool isAccent(const QString &text, qsizetype place)
{
    if (place >= text.size())
        return false;
    char32_t character = text.at(place).unicode();
    if (text.at(place).isHighSurrogate() && place + 1 < text.size())
        character = QChar::surrogateToUcs4(text.at(place), text.at(place + 1));
    return QChar::combiningClass(character) != 0;
}

bool contains(const QString &text, const QString &part)
{
    for (qsizetype place = 0; place + part.size() <= text.size(); ++place) {
        const bool isEqual = QStringView(text).mid(place, part.size()) == part;
        const bool isWhole =
            (place == 0 || !isAccent(text, place)) && !isAccent(text, place + part.size());
        if (isEqual && isWhole)
            return true;
    }
    return false;
}

} // namespace

NaiveChannelFilter::NaiveChannelFilter(const QList<PlaylistEntry> &entries, const QLocale &locale)
    : m_isTurkic(locale.name().startsWith(QStringLiteral("tr")))
{
    for (const PlaylistEntry &entry : entries)
        m_channels << Channel { folded(entry.name()),
            folded(entry.groupTitle().value_or(QString())), entry.groupTitle(),
            entry.countryCode() };
}

QString NaiveChannelFilter::folded(const QString &text) const
{
    QString folded = text.normalized(QString::NormalizationForm_C);
    if (m_isTurkic) {
        folded.replace(u'I', u'\u0131');
        folded.replace(u'\u0130', u'i');
    }
    // Qt folds to single characters only.
    folded.replace(QChar(u'\u00df'), QStringLiteral("ss"));
    folded.replace(QChar(u'\u1e9e'), QStringLiteral("ss"));
    folded.replace(QChar(u'\ufb01'), QStringLiteral("fi"));
    folded.replace(QChar(u'\u0130'), QStringLiteral("i\u0307"));
    return folded.toCaseFolded().normalized(QString::NormalizationForm_C);
}

QList<qsizetype> NaiveChannelFilter::rows(const ChannelCriteria &criteria) const
{
    QList<qsizetype> rows;
    const QString search = folded(criteria.search);
    for (qsizetype row = 0; row < m_channels.size(); ++row) {
        const Channel &channel = m_channels.at(row);
        if (!criteria.countryCode.isEmpty() && channel.countryCode != criteria.countryCode)
            continue;
        if (!criteria.category.isEmpty() && channel.category != criteria.category)
            continue;
        if (search.isEmpty() || contains(channel.name, search) || contains(channel.group, search))
            rows << row;
    }
    return rows;
}
