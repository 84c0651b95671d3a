#include "HostileTexts.h"

#include <QRandomGenerator>

namespace {

QString fromCode(char32_t code)
{
    return QString::fromUcs4(&code, 1);
}

// Every other character is one that means something to a script or a page.
QString randomText(QRandomGenerator &random)
{
    static const QString special = QStringLiteral("\"'\\`</>!-&;(){}[]=+*%$#\n\r\t\b\f") + QChar(0)
        + QChar(0x2028) + QChar(0x2029) + QChar(0xfeff) + QChar(0xfffe) + QChar(0x85);
    QString text;
    const int length = random.bounded(1, 60);
    for (int i = 0; i < length; ++i) {
        if (random.bounded(2) == 0) {
            text += special.at(random.bounded(int(special.size())));
            continue;
        }
        const auto code = char32_t(random.bounded(0x110000));
        text += QChar::isSurrogate(code) ? QStringLiteral("</script>") : fromCode(code);
    }
    return text;
}

} // namespace

QStringList hostileTexts()
{
    QStringList texts {
        QStringLiteral("\";window.hit=1;//"),
        QStringLiteral("\\\";window.hit=1;//"),
        QStringLiteral("\\\\\";window.hit=1;//"),
        QStringLiteral("';window.hit=1;//"),
        QStringLiteral("`;window.hit=1;//"),
        QStringLiteral("${window.hit=1}"),
        QStringLiteral("\nwindow.hit=1;//"),
        QStringLiteral("\r\nwindow.hit=1;//"),
        QChar(0x2028) + QStringLiteral("window.hit=1;//"),
        QChar(0x2029) + QStringLiteral("window.hit=1;//"),
        QStringLiteral("</script><script>window.hit=1</script>"),
        QStringLiteral("</SCRIPT ><script>window.hit=1</script>"),
        QStringLiteral("</script/><img src=x onerror=window.hit=1>"),
        QStringLiteral("<!--<script>"),
        QStringLiteral("<!--<script>\";window.hit=1;//-->"),
        QStringLiteral("-->\nwindow.hit=1"),
        QStringLiteral("]]>"),
        QStringLiteral("\\u0022;window.hit=1;//"),
        QStringLiteral("\\x22;window.hit=1;//"),
        QStringLiteral("&quot;;window.hit=1;//"),
        QStringLiteral("+ADw-script+AD4-window.hit=1+ADw-/script+AD4-"),
        QStringLiteral("javascript:window.hit=1"),
        QStringLiteral("%22;window.hit=1;//"),
        QStringLiteral("%1%2%3%4%5%6%7"),
        QString(QChar(0)) + QStringLiteral("\";window.hit=1;//"),
        QStringLiteral("abc\\"),
    };
    Q_ASSERT(texts.size() == knownHostileTextCount);
    QRandomGenerator random(20261121);
    for (int i = 0; i < 1000; ++i)
        texts += randomText(random);
    return texts;
}
