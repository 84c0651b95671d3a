#include "library/M3UText.h"

namespace zeph {

namespace {

QByteArray clean(QByteArray utf8)
{
    return utf8.replace('"', '\'').replace('\r', ' ').replace('\n', ' ');
}

QByteArray clean(const QString &text)
{
    return clean(text.toUtf8());
}

void appendAttribute(QByteArray &line, QByteArrayView name, const QByteArray &value)
{
    line.append(name.data(), name.size());
    line += "=\"" + value + '"';
}

QByteArray informationLine(const PlaylistEntry &entry)
{
    const QByteArray name = clean(entry.name());
    QByteArray line = "#EXTINF:-1 ";
    appendAttribute(line, "tvg-name", name);
    if (!entry.logoAddress().isEmpty())
        appendAttribute(line, " tvg-logo",
            clean(QByteArray(entry.logoAddress().data(), entry.logoAddress().size())));
    if (const auto countryCode = entry.countryCode())
        appendAttribute(line, " tvg-country", clean(*countryCode));
    if (const auto groupTitle = entry.groupTitle())
        appendAttribute(line, " group-title", clean(*groupTitle));
    return line + ',' + name;
}

QByteArray addressLine(const PlaylistEntry &entry)
{
    if (entry.address().startsWith(QLatin1StringView("file:"), Qt::CaseInsensitive))
        return entry.url().toLocalFile().toUtf8();
    return QByteArray(entry.address().data(), entry.address().size());
}

} // namespace

QByteArray m3uText(const QList<PlaylistEntry> &entries)
{
    QByteArray text = "#EXTM3U\n";
    for (const PlaylistEntry &entry : entries)
        text += informationLine(entry) + '\n' + addressLine(entry) + '\n';
    return text;
}

} // namespace zeph
