// What an "#EXTINF:" line says about the address that follows it.
#pragma once

#include <QByteArrayView>

namespace zeph {

/// Views into the line, all trimmed. An attribute that is absent or blank is empty.
struct ExtInfLine {
    QByteArrayView title;
    QByteArrayView tvgName;
    QByteArrayView tvgLogo;
    QByteArrayView groupTitle;
    QByteArrayView tvgCountry;
    QByteArrayView country;
    QByteArrayView tvgID;

    /// Whether `trimmed`, a line without the blanks around it, is one.
    static bool isOne(QByteArrayView trimmed);

    /// `trimmed` is valid UTF-8, and is one.
    static ExtInfLine read(QByteArrayView trimmed, bool blanksFollow);
};

} // namespace zeph
