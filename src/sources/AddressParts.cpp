#include "sources/AddressParts.h"

#include "sources/LastByte.h"

#include <QByteArray>

#include <algorithm>

namespace zeph {

namespace {

constexpr auto isLetter = [](char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
};

constexpr auto isInScheme = [](char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+'
        || character == '-' || character == '.';
};

// Cuts what follows `delimiter` off `text`.
std::optional<QByteArrayView> cutAfter(QByteArrayView &text, char delimiter)
{
    const qsizetype index = text.indexOf(delimiter);
    if (index < 0)
        return std::nullopt;
    const QByteArrayView rest = text.sliced(index + 1);
    text = text.first(index);
    return rest;
}

} // namespace

qsizetype schemeSize(QByteArrayView text)
{
    if (text.isEmpty() || !isLetter(text.front()))
        return 0;
    const auto end = std::find_if_not(text.begin(), text.end(), isInScheme);
    return end != text.end() && *end == ':' ? end - text.begin() : 0;
}

AddressParts splitAddress(QByteArrayView text)
{
    AddressParts parts;
    if (const qsizetype size = schemeSize(text)) {
        parts.scheme = text.first(size);
        text = text.sliced(size + 1);
    }
    parts.fragment = cutAfter(text, '#');
    parts.query = cutAfter(text, '?');
    if (text.startsWith("//")) {
        text = text.sliced(2);
        const qsizetype slash = text.indexOf('/');
        const qsizetype size = slash < 0 ? text.size() : slash;
        parts.authority = text.first(size);
        text = text.sliced(size);
    }
    parts.path = text;
    return parts;
}

QByteArray withoutDotSegments(QByteArrayView path)
{
    QByteArray output;
    output.reserve(path.size());
    const auto dropLastSegment = [&output] {
        output.truncate(std::max<qsizetype>(lastIndexOf(output, '/'), 0));
    };
    while (!path.isEmpty()) {
        if (path.startsWith("../")) {
            path = path.sliced(3);
        } else if (path.startsWith("./") || path.startsWith("/./")) {
            path = path.sliced(2);
        } else if (path == "/.") {
            path = "/";
        } else if (path.startsWith("/../")) {
            path = path.sliced(3);
            dropLastSegment();
        } else if (path == "/..") {
            path = "/";
            dropLastSegment();
        } else if (path == "." || path == "..") {
            break;
        } else {
            const qsizetype slash = path.indexOf('/', 1);
            const qsizetype size = slash < 0 ? path.size() : slash;
            output.append(path.data(), size);
            path = path.sliced(size);
        }
    }
    return output;
}

} // namespace zeph
