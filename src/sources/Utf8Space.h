// White space and line ends in UTF-8, without decoding it.
#pragma once

#include <QByteArrayView>
#include <QString>

namespace zeph {

/// `utf8` with all of its characters. QString alone would drop a byte-order mark at the start.
QString textFromUtf8(QByteArrayView utf8);

/// `text` without the Unicode white space at both ends, and without byte-order marks there, which
/// are found wherever files were put together. `text` is valid UTF-8.
QByteArrayView trimmedUtf8(QByteArrayView text);

/// Walks through the lines of a text. A line ends at any Unicode newline character; CR LF is two of
/// them, with an empty line between.
class LineSplitter {
public:
    /// `text` is valid UTF-8, and outlives the lines.
    explicit LineSplitter(QByteArrayView text);

    /// Moves on to the next line; false when there is none. A text without newlines is one line.
    bool next();
    /// The current line without its newline character.
    QByteArrayView line() const { return m_line; }

private:
    const char *m_position;
    const char *m_end;
    QByteArrayView m_line;
};

} // namespace zeph
