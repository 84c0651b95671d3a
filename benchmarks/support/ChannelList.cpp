#include "support/ChannelList.h"

#include <array>

namespace zeph::bench {

namespace {

struct Country {
    const char *code;
    const char *group;
    const char *name;
};

constexpr std::array countries {
    Country { "uk", "UK | Entertainment", "Channel" },
    Country { "tr", "TR | Ulusal Kanallar", "T\u00fcrk\u00e7e Kanal" },
    Country { "ru", "RU | \u041a\u0438\u043d\u043e", "\u041a\u0430\u043d\u0430\u043b" },
    Country { "gr", "GR | \u0395\u03b9\u03b4\u03ae\u03c3\u03b5\u03b9\u03c2",
        "\u039a\u03b1\u03bd\u03ac\u03bb\u03b9" },
    Country { "ae", "AR | \u0623\u062e\u0628\u0627\u0631", "\u0642\u0646\u0627\u0629" },
    Country { "jp", "JP | \u30cb\u30e5\u30fc\u30b9", "\u30c1\u30e3\u30f3\u30cd\u30eb" },
    Country { "de", "DE | Filme & Serien", "Sender" },
    Country { "fr", "FR | G\u00e9n\u00e9ral", "Cha\u00eene" },
};

constexpr std::array qualities { "SD", "HD", "FHD", "4K" };

} // namespace

QByteArray channelList(int count)
{
    constexpr int groupSize = 180;
    QByteArray list = "#EXTM3U\n";
    list.reserve(qsizetype { 245 } * count);
    for (int i = 0; i < count; ++i) {
        const std::size_t group = static_cast<std::size_t>(i / groupSize);
        const Country &country = countries[group % countries.size()];
        const QByteArray number = QByteArray::number(i);
        const QByteArray name = QByteArray(country.name) + ' ' + number + ' '
            + qualities[static_cast<std::size_t>(i) % qualities.size()];
        list += "#EXTINF:-1 tvg-id=\"channel" + number + '.' + country.code + "\" tvg-name=\""
            + name + "\" tvg-logo=\"http://logo.example.com/" + country.code + "/channel-" + number
            + ".png\" group-title=\"" + country.group + ' ' + QByteArray::number(group % 100)
            + "\"," + name + "\nhttp://line.example.com:8080/user1234/pass5678/" + number + ".ts\n";
    }
    return list;
}

} // namespace zeph::bench
