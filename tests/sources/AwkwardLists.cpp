#include "sources/AwkwardLists.h"

#include <array>

namespace zeph::tests {

namespace {

class ListWriter {
public:
    explicit ListWriter(QRandomGenerator &random) : m_random(random) { }

    QByteArray list()
    {
        if (oneIn(10))
            m_list += "\xef\xbb\xbf";
        if (oneIn(2))
            m_list += "#EXTM3U\n";
        for (int count = m_random.bounded(1, 9); count > 0; --count)
            line();
        // Cutting off the end cuts characters, quotes and escapes, too.
        if (oneIn(5))
            m_list.truncate(m_random.bounded(static_cast<int>(m_list.size()) + 1));
        if (oneIn(20))
            m_list.insert(m_random.bounded(static_cast<int>(m_list.size()) + 1),
                static_cast<char>(m_random.bounded(256)));
        return m_list;
    }

private:
    bool oneIn(int count) { return m_random.bounded(count) == 0; }

    template <std::size_t size> void any(const std::array<const char *, size> &texts)
    {
        const char *text = texts[m_random.bounded(static_cast<quint32>(size))];
        // What stands for a NUL, which would end the text.
        m_list += QByteArray(text).replace("\1", QByteArray(1, '\0'));
    }

    void blanks()
    {
        if (oneIn(2))
            return;
        static constexpr std::array texts { " ", "\t", "  ", "\u00a0", "\u3000", "\u2009", "\u202f",
            "\u1680", "\u205f", "\u200b", "\u180e" };
        any(texts);
    }

    void newline()
    {
        if (oneIn(2)) {
            m_list += '\n';
            return;
        }
        static constexpr std::array texts { "\r\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029",
            "\n\n", "\u2027", "\u0084" };
        any(texts);
    }

    void word()
    {
        static constexpr std::array texts { "News", "24", "a", ",", ",,", "\"", "'", "=", "=\"",
            "tvg-name", "tvg-logo=\"", "country=\"us\"", "#", "@", ".", ";", "%20", "%", "%C3",
            "%FF", "\u00fc", "\u00df", "\u0416\u0438", "e\u0301", "\U0001f4fa",
            "\U0001f1f9\U0001f1f7", "\ufeff", "\ufffd", "\1", "\x7f", "\xc3", "\xff", "\xe2\x80",
            "\xed\xa0\x80", "\xf4\x90\x80\x80", "\u0080" };
        any(texts);
    }

    void words(int atMost)
    {
        for (int count = m_random.bounded(atMost + 1); count > 0; --count) {
            word();
            blanks();
        }
    }

    void countryValue()
    {
        static constexpr std::array texts { "us", "US;de", "USA", " tr ", ";,de", "\u00df", "", ";",
            "u", "\u00e4\u00f6", "e\u0301a", "\U0001f1f9\U0001f1f7", "d\u00e9", "1 2" };
        any(texts);
    }

    void channelID()
    {
        static constexpr std::array texts { "CNN.us", "BBCOne.uk@HD", "TRT1", "Channel.com",
            "@x.de", "@@", "a.b.fr..", ".", "TR", "x.\u00df", "x.d e", "a@b.us", "..it@" };
        any(texts);
    }

    void attribute()
    {
        static constexpr std::array names { "tvg-name", "tvg-logo", "group-title", "tvg-country",
            "country", "tvg-id", "TVG-NAME", "Group-Title", "x-tvg-logo", "tvg-ID", "tvg_name",
            "catchup" };
        any(names);
        static constexpr std::array openings { "=\"", "=\"", "=\"", "=\"", "=", "='", " =\"",
            "=\" ", "= \"" };
        any(openings);
        blanks();
        switch (m_random.bounded(4)) {
        case 0:
            countryValue();
            break;
        case 1:
            channelID();
            break;
        case 2:
            address();
            break;
        default:
            words(2);
        }
        blanks();
        if (!oneIn(8))
            m_list += '"';
    }

    void metadata()
    {
        static constexpr std::array directives { "#EXTINF:", "#EXTINF:-1", "#EXTINF:-1 ",
            "#EXTINF:4294967296.5 ", "#EXTINF:-1,", "#extinf:-1 ", "#EXTINF", "#EXTINF:,",
            "# EXTINF:-1 " };
        any(directives);
        for (int count = m_random.bounded(5); count > 0; --count) {
            attribute();
            m_list += ' ';
        }
        blanks();
        if (!oneIn(6))
            m_list += ',';
        blanks();
        words(3);
    }

    void address()
    {
        if (oneIn(10)) {
            static constexpr std::array opaque { "foo:bar", "http:x", "mailto:a@b?c#d", "foo:" };
            any(opaque);
            // QUrl has rules of its own for "." and ".." there.
            m_list += '\n';
            return;
        }
        static constexpr std::array starts { "http://", "http://h", "http://h/", "HTTP://H:80/",
            "https://u:p@h:8080/", "http://[::1]/", "http://[::1/", "http://a..b/", "http://-a/",
            "http://h:99999/", "http://h:x/", "http://a@b@h/", "//h/", "/", "", "../", "./", "?",
            "../../../", "rtp://@239.0.0.1:1234", "udp://@:5/", "1a:b", ":", "http://\u00fc.de/",
            "http://\u2603.net/", "http://a%20b/", "http://xn--a/", "http://a_b-c.d/",
            "http://a--b/", "http:/x/", "http:///", "file:///a/" };
        any(starts);
        static constexpr std::array goodParts { "a", "live/", "1.m3u8", "my%20show.m3u8", "?a=b" };
        static constexpr std::array parts { "/", "//", "..", ".", "../", "/./", "#f", "#", "?",
            "[1]", "%41", "%zz", "%4", " ", "|", "\\", "{x}", "^", "`", "<", "\"", "\u00fc",
            "\u0416", "\u00a0", "\u0085", "\U0001f4fa", "%FF", "%C3%BC", ":", "@", "'",
            "!$&()*+,;=", "~", "\1", "\x7f", "\u009f", "\ufeff" };
        for (int count = m_random.bounded(4); count > 0; --count)
            oneIn(2) ? any(parts) : any(goodParts);
    }

    void line()
    {
        blanks();
        switch (m_random.bounded(8)) {
        case 0:
        case 1:
        case 2:
            metadata();
            if (oneIn(2))
                m_list += "\nlive/1.ts";
            break;
        case 3:
        case 4:
        case 5:
            address();
            break;
        case 6:
            m_list += "#EXTGRP:";
            words(3);
            break;
        default:
            words(4);
        }
        if (oneIn(200))
            m_list += QByteArray(m_random.bounded(5000), 'x');
        blanks();
        newline();
    }

    QRandomGenerator &m_random;
    QByteArray m_list;
};

} // namespace

QByteArray awkwardList(QRandomGenerator &random)
{
    return ListWriter(random).list();
}

} // namespace zeph::tests
