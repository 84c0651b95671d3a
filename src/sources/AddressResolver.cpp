#include "sources/AddressResolver.h"

#include "sources/AddressParts.h"
#include "sources/LastByte.h"

namespace zeph {

namespace {

QByteArray mergedPath(const AddressParts &base, QByteArrayView path)
{
    if (base.authority && base.path.isEmpty())
        return '/' + path.toByteArray();
    const qsizetype folder = lastIndexOf(base.path, '/') + 1;
    return base.path.first(folder).toByteArray() + path.toByteArray();
}

QByteArray composed(const AddressParts &parts)
{
    QByteArray text;
    text.append(*parts.scheme);
    text += ':';
    if (parts.authority) {
        text += "//";
        text.append(*parts.authority);
    } else if (parts.path.startsWith("//")) {
        // What is a path must not turn into an authority.
        text += "/.";
    }
    text.append(parts.path);
    if (parts.query) {
        text += '?';
        text.append(*parts.query);
    }
    if (parts.fragment) {
        text += '#';
        text.append(*parts.fragment);
    }
    return text;
}

} // namespace

AddressResolver::AddressResolver(const AddressText &base) : m_base(base) { }

std::optional<QByteArrayView> AddressResolver::resolve(QByteArrayView utf8)
{
    const auto reference = m_reader.read(utf8);
    if (!reference)
        return std::nullopt;
    if (reference->isResolved)
        return reference->text;

    AddressParts target = splitAddress(reference->text);
    if (!target.scheme && !m_base.isAbsolute())
        return std::nullopt;
    QByteArray path;
    if (target.scheme || target.authority || target.path.startsWith('/')) {
        path = withoutDotSegments(target.path);
    } else {
        const AddressParts base = splitAddress(m_base.text());
        if (target.path.isEmpty()) {
            path = base.path.toByteArray();
            if (!target.query)
                target.query = base.query;
        } else {
            path = withoutDotSegments(mergedPath(base, target.path));
        }
    }
    target.path = path;
    if (!target.scheme) {
        const AddressParts base = splitAddress(m_base.text());
        target.scheme = base.scheme;
        if (!target.authority)
            target.authority = base.authority;
    }
    m_resolved = composed(target);
    return m_resolved;
}

} // namespace zeph
