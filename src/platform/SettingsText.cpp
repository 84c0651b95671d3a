#include "platform/SettingsText.h"

#include "platform/Ascii.h"

namespace zeph {

namespace {

constexpr QByteArrayView topSection = "[General]";
// Begins values which are no texts, unless there are two of it.
constexpr char valueMark = '@';

bool isControl(char byte)
{
    return static_cast<unsigned char>(byte) < 0x20;
}

// What the file has in place of `utf8`.
QByteArray quoted(QByteArrayView utf8)
{
    constexpr qsizetype longestEscape = 4;
    QByteArray result(utf8.size() * longestEscape + 3, Qt::Uninitialized);
    char *out = result.data();
    *out++ = '"';
    if (utf8.startsWith(valueMark))
        *out++ = valueMark;
    bool isAfterNumber = false;
    for (const char byte : utf8) {
        // A digit would be taken for one more of the number before it.
        const bool isNumber = isControl(byte) || (isAfterNumber && isHexDigit(byte));
        if (isNumber) {
            constexpr char digits[] = "0123456789abcdef";
            *out++ = '\\';
            *out++ = 'x';
            *out++ = digits[byte >> 4];
            *out++ = digits[byte & 15];
        } else {
            if (byte == '"' || byte == '\\')
                *out++ = '\\';
            *out++ = byte;
        }
        isAfterNumber = isNumber;
    }
    *out++ = '"';
    result.truncate(out - result.constData());
    return result;
}

class Unquoting {
public:
    // Without the quotes at both ends, if it has any.
    explicit Unquoting(QByteArrayView value) : m_in(value.begin()), m_end(value.end()) { }

    // Nothing when this is no text.
    std::optional<QByteArray> read()
    {
        QByteArray result(m_end - m_in, Qt::Uninitialized);
        char *out = result.data();
        while (m_in != m_end) {
            if (*m_in == '"')
                return std::nullopt;
            if (*m_in != '\\') {
                *out++ = *m_in++;
            } else {
                ++m_in;
                const auto byte = readEscape();
                if (!byte)
                    return std::nullopt;
                *out++ = *byte;
            }
        }
        result.truncate(out - result.constData());
        return result;
    }

private:
    std::optional<char> readEscape()
    {
        if (m_in == m_end)
            return std::nullopt;
        const char escape = *m_in++;
        switch (escape) {
        case 'a':
            return '\a';
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        case 'v':
            return '\v';
        case '0':
            return '\0';
        case 'x':
            return readNumber();
        case '"':
        case '\'':
        case '?':
        case '\\':
            return escape;
        default:
            return std::nullopt;
        }
    }

    // Only ASCII is written as numbers.
    std::optional<char> readNumber()
    {
        int number = -1;
        for (; m_in != m_end && isHexDigit(*m_in); ++m_in) {
            const int digit = *m_in <= '9' ? *m_in - '0' : (*m_in | 0x20) - 'a' + 10;
            number = number < 0 ? digit : 16 * number + digit;
            if (number > 0x7f)
                return std::nullopt;
        }
        return number < 0 ? std::nullopt : std::optional(static_cast<char>(number));
    }

    const char *m_in;
    const char *m_end;
};

// The text that a value stands for. Nothing when it does not stand for one.
std::optional<QByteArray> textOfValue(QByteArrayView value)
{
    const bool isQuoted = value.size() >= 2 && value.startsWith('"') && value.endsWith('"');
    if (isQuoted)
        value = value.sliced(1).chopped(1);
    if (value.startsWith("@@"))
        value = value.sliced(1);
    else if (value.startsWith(valueMark))
        return std::nullopt;
    const bool isList = !isQuoted && (value.contains(',') || value.contains(';'));
    return isList ? std::nullopt : Unquoting(value).read();
}

QByteArrayView takeLine(QByteArrayView &text)
{
    const qsizetype end = text.isEmpty() ? -1 : text.indexOf('\n');
    const QByteArrayView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return line.trimmed();
}

void appendLine(QByteArray &text, QByteArrayView key, const QVariant &value)
{
    text.append(key.data(), key.size());
    text += '=';
    text += value.typeId() == QMetaType::QByteArray ? quoted(value.toByteArray())
                                                    : value.toString().toLatin1();
    text += '\n';
}

} // namespace

QSettings::SettingsMap settingsFromText(QByteArrayView text)
{
    QSettings::SettingsMap settings;
    QString section;
    while (!text.isEmpty()) {
        const QByteArrayView line = takeLine(text);
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (line.startsWith('[') && line.endsWith(']')) {
            section = line == topSection ? QString()
                                         : QString::fromUtf8(line.sliced(1).chopped(1)) + u'/';
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (equals <= 0)
            continue;
        const QByteArrayView value = line.sliced(equals + 1).trimmed();
        const auto valueText = textOfValue(value);
        settings.insert(section + QString::fromUtf8(line.first(equals).trimmed()),
            valueText ? QVariant(*valueText) : QVariant(QString::fromLatin1(value)));
    }
    return settings;
}

QByteArray settingsToText(const QSettings::SettingsMap &settings)
{
    QByteArray text;
    const auto appendSection = [&](QByteArrayView line) {
        if (!text.isEmpty())
            text += '\n';
        text.append(line.data(), line.size());
        text += '\n';
    };
    QByteArray sections;
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        if (setting.key().contains(u'/'))
            continue;
        if (text.isEmpty())
            appendSection(topSection);
        appendLine(text, setting.key().toUtf8(), setting.value());
    }
    QByteArray section;
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        const qsizetype slash = setting.key().indexOf(u'/');
        if (slash < 0)
            continue;
        const QByteArray name = setting.key().first(slash).toUtf8();
        if (name != section) {
            section = name;
            appendSection('[' + section + ']');
        }
        appendLine(text, setting.key().sliced(slash + 1).toUtf8(), setting.value());
    }
    return text;
}

} // namespace zeph
