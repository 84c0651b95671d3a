#include "sources/OddAddresses.h"

#include <QRandomGenerator>

namespace zeph::tests {

QList<QUrl> addressesOfNoService()
{
    const QString huge(1 << 20, u'a');
    return {
        QUrl(),
        QUrl(QStringLiteral("not a url")),
        QUrl(QStringLiteral("://")),
        QUrl(QStringLiteral("http://")),
        QUrl(QStringLiteral("http:///watch?v=a")),
        QUrl(QStringLiteral("/watch?v=a&list=b")),
        QUrl(QStringLiteral("/video/123")),
        QUrl(QStringLiteral("mailto:video@ok.ru")),
        QUrl::fromLocalFile(QStringLiteral("/video/123")),
        QUrl(QStringLiteral("https://example.org/") + huge),
        QUrl(QStringLiteral("https://example.org/video/1?v=") + huge),
        QUrl(QString(QChar(0xd800))),
        QUrl(QStringLiteral("https://example.org/") + QChar(0xdc00)),
        QUrl(QStringLiteral("https://\u0440\u0444.example/video/1")),
        QUrl(QString(QChar(0))),
    };
}

QList<QUrl> randomAddresses(
    int count, quint32 seed, const QStringList &hosts, const QStringList &words)
{
    static const QStringList awkward {
        QString(),
        QStringLiteral(" "),
        QStringLiteral("%20"),
        QStringLiteral("%FF"),
        QStringLiteral("%C3"),
        QStringLiteral("%2F"),
        QStringLiteral("%00"),
        QStringLiteral("%"),
        QStringLiteral("\u00a0"),
        QStringLiteral("\u2028"),
        QStringLiteral("\u0661\u0662"),
        QStringLiteral("e\u0301"),
        QStringLiteral("\U0001f4fa"),
        QString(QChar(0xd800)),
        QStringLiteral("+"),
        QStringLiteral("=&;"),
        QStringLiteral(".."),
        QStringLiteral("abc-_1"),
    };
    QRandomGenerator random(seed);
    const auto any = [&random](const QStringList &from) {
        return from[random.bounded(static_cast<int>(from.size()))];
    };
    const auto piece = [&] { return random.bounded(2) ? any(words) : any(awkward); };
    static const QStringList prefixes { QString(), QStringLiteral("www."), QStringLiteral("not"),
        QStringLiteral("."), QStringLiteral("a@"), QStringLiteral("x.y.") };

    QList<QUrl> urls;
    for (int i = 0; i < count; ++i) {
        QString text = QStringLiteral("https://") + any(prefixes) + any(hosts);
        for (int segments = random.bounded(5); segments > 0; --segments)
            text += u'/' + piece();
        for (int items = random.bounded(4); items > 0; --items)
            text += (text.contains(u'?') ? u'&' : u'?') + piece() + u'=' + piece();
        urls += QUrl(text, random.bounded(2) ? QUrl::TolerantMode : QUrl::StrictMode);
    }
    return urls;
}

} // namespace zeph::tests
