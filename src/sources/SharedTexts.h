// Makes equal texts share their memory.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

namespace zeph {

/// Remembers the texts that it made lately, a fixed number of them, whatever it is given: texts
/// come again and again or are not worth remembering.
class SharedTexts {
public:
    /// `utf8` as a QString, which shares its data with the one made of the same bytes before.
    QString text(QByteArrayView utf8);

private:
    struct Slot {
        QByteArray utf8;
        QString text;
    };

    static constexpr std::size_t slotCount = 1024;

    std::vector<Slot> m_slots = std::vector<Slot>(slotCount);
    std::size_t m_last = 0;
};

} // namespace zeph
