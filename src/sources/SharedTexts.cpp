#include "sources/SharedTexts.h"

#include "sources/Utf8Space.h"

#include <QHashFunctions>

namespace zeph {

QString SharedTexts::text(QByteArrayView utf8)
{
    // Most texts are the same as the one before.
    if (m_slots[m_last].utf8 != utf8) {
        m_last = qHash(utf8) % slotCount;
        Slot &slot = m_slots[m_last];
        if (slot.utf8 != utf8)
            slot = { utf8.toByteArray(), textFromUtf8(utf8) };
    }
    return m_slots[m_last].text;
}

} // namespace zeph
