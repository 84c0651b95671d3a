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

    /// Whether `line` is one. `line` is trimmed.
    static bool isOne(QByteArrayView line);

    /// `line` is valid UTF-8. `line.trimmed()` is one.
    static ExtInfLine read(QByteArrayView line);
};

} // namespace zeph
