// The address field: what is typed or pasted into it, and what it is to be called.
#include "library/ContentView.h"

#include <utility>

namespace zeph {

namespace {

bool isSpaceOrTab(QChar character)
{
    return character == QLatin1Char('\t') || character.category() == QChar::Separator_Space;
}

QString withoutBlanksAround(QStringView text)
{
    while (!text.isEmpty() && isSpaceOrTab(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isSpaceOrTab(text.back()))
        text.chop(1);
    return text.toString();
}

QString cleaned(QString address)
{
    address.remove(QLatin1Char('\r'));
    address.remove(QLatin1Char('\n'));
    return withoutBlanksAround(address);
}

} // namespace

void ContentView::setAddress(const QString &address)
{
    if (m_address == address)
        return;
    m_address = address;
    Q_EMIT addressChanged();
    handleAddressChange(address);
}

void ContentView::handleAddressChange(const QString &address)
{
    const QString clean = cleaned(address);
    if (clean != address) {
        setAddress(clean);
        return;
    }
    if (clean.isEmpty())
        m_model.discardLastRemoteSource();
    scheduleAutomaticOpen(clean);
}

void ContentView::scheduleAutomaticOpen(const QString &text)
{
    m_autoOpenTask.cancel();
    const QString scheduled = PlayerModel::normalizedRemoteAddress(text);
    if (!PlayerModel::isWebAddress(scheduled))
        return;
    m_autoOpenTask.start(automaticOpenDelay, [this, scheduled] {
        if (PlayerModel::normalizedRemoteAddress(m_address) == scheduled)
            m_model.openRemote(m_address, m_movieName);
    });
}

void ContentView::openAddress(const QUrl &url)
{
    setAddress(url.toString(QUrl::FullyEncoded));
    openStream();
}

void ContentView::openStream()
{
    m_autoOpenTask.cancel();
    m_model.openRemote(m_address, m_movieName);
}

void ContentView::clearNetworkStream()
{
    m_autoOpenTask.cancel();
    setAddress({});
    setMovieName({});
    m_channels.clearFilters();
    m_networkPlaylist.clear();
    Q_EMIT networkPlaylistChanged();
    m_model.clearNetworkStream();
    setStreamAddressFocused(true);
}

void ContentView::setStreamAddressFocused(bool focused)
{
    if (std::exchange(m_isStreamAddressFocused, focused) != focused)
        Q_EMIT isStreamAddressFocusedChanged();
}

void ContentView::setShowMovieName(bool show)
{
    if (std::exchange(m_showMovieName, show) != show)
        Q_EMIT showMovieNameChanged();
}

void ContentView::setMovieName(const QString &name)
{
    if (std::exchange(m_movieName, name) != name)
        Q_EMIT movieNameChanged();
}

void ContentView::setMovieNameToggleHovered(bool hovered)
{
    if (std::exchange(m_movieNameToggleHovered, hovered) != hovered)
        Q_EMIT movieNameToggleHoveredChanged();
}

QString ContentView::movieNameToggleHelp() const
{
    return m_showMovieName ? tr("Hide movie or playlist name")
                           : tr("Add an optional movie or playlist name");
}

} // namespace zeph
