#include "sources/SharedTexts.h"

#include "sources/Utf8Space.h"

#include <QHashFunctions>

namespace zeph {

QString SharedTexts::text(QByteArrayView utf8)
{
    Slot &slot = m_slots[qHash(utf8) % slotCount];
    if (slot.utf8 != utf8) {
        slot.utf8 = utf8.toByteArray();
        slot.text = textFromUtf8(utf8);
    }
    return slot.text;
}

} // namespace zeph
