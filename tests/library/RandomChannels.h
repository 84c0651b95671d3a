// Channels whose texts are awkward to search.
#pragma once

#include "SavedLinks.h"

#include <QRandomGenerator>
#include <QStringList>

using namespace Qt::StringLiterals;

/// Always the same for the same seed.
class RandomChannels {
public:
    explicit RandomChannels(quint32 seed) : m_random(seed) { }

    /// Up to `longest` of few letters, so that texts often contain one another.
    QString text(int longest)
    {
        static const QStringList letters { u"a"_s, u"A"_s, u"b"_s, u"s"_s, u"S"_s, u"i"_s, u"I"_s,
            u" "_s, u"1"_s, u"\u0131"_s, u"\u0130"_s, u"\u00df"_s, u"\u1e9e"_s, u"\u00e9"_s,
            u"E\u0301"_s, u"e"_s, u"x\u0301"_s, u"x\u0323\u0301"_s, u"\u0301"_s, u"\u0307"_s,
            u"\u03c3"_s, u"\u03a3"_s, u"\u03c2"_s, u"\u03ac"_s, u"\u0391"_s, u"\u0390"_s,
            u"\u0439"_s, u"\u0418"_s, u"\ufb01"_s, u"f"_s, u"\u1112\u1161"_s, u"\ud558"_s,
            u"\u11ab"_s, u"\u0623"_s, u"\u200f"_s, u"\u200b"_s, u"\U0001f600"_s, u"\U00010400"_s,
            u"\U00010428"_s, u"\U0001d165"_s };
        QString text;
        for (int size = below(longest + 1); size > 0; --size)
            text += letters.at(below(static_cast<int>(letters.size())));
        return text;
    }

    zeph::PlaylistEntry channel()
    {
        static const zeph::AddressText url = address(u"http://h/a"_s);
        zeph::PlaylistEntry::Fields fields { {}, text(12), url, {}, {}, {} };
        if (below(4) != 0)
            fields.groupTitle = category();
        if (below(4) != 0)
            fields.countryCode = countryCode();
        return zeph::PlaylistEntry(fields);
    }

    QList<zeph::PlaylistEntry> channels(int count)
    {
        QList<zeph::PlaylistEntry> channels;
        channels.reserve(count);
        for (int i = 0; i < count; ++i)
            channels << channel();
        return channels;
    }

    QString countryCode() { return QString(u"AT DE TR QQ "_s).split(u' ').at(below(5)); }
    QString category()
    {
        return QString(u"S|\u0130s|\u00e9 s|e\u0301 s|STRASSE|stra\u00dfe||I"_s)
            .split(u'|')
            .at(below(8));
    }

    /// 0…end − 1.
    int below(int end) { return static_cast<int>(m_random.bounded(end)); }

private:
    QRandomGenerator m_random;
};
