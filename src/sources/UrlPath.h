// What the recognisers and titles need of an address.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace zeph {

/// The segments of the path with their percent-escapes removed; empty ones are left out.
QStringList pathSegments(const QUrl &url);

/// The segment that follows the first one equal to any of `keywords`. Nothing when there is no such
/// keyword, or when it is the last segment.
std::optional<QString> pathSegmentAfter(const QUrl &url, const QStringList &keywords);

/// The last path segment with its percent-escapes removed, or nothing when they do not decode to
/// text. Empty when the address has no path.
std::optional<QString> decodedLastPathComponent(const QUrl &url);

/// The extension of the last path segment, without the dot. Empty when it has none; a name that
/// begins with its only dot has none.
QString pathExtension(const QUrl &url);

/// The last path segment without its extension.
QString lastPathComponentWithoutExtension(const QUrl &url);

/// Whether `url` is on `domain` itself or on a host below it.
bool isOnDomain(const QUrl &url, QLatin1StringView domain);

/// The value of the first query item of exactly this name, trimmed. Nothing when there is no such
/// item or it is blank.
std::optional<QString> queryValue(const QUrl &url, const QString &name);

/// `text` without the white space at both ends, and without byte-order marks there, which come
/// along when text is copied from files.
QString trimmedText(const QString &text);

/// `text` trimmed so, or nothing when that leaves nothing.
std::optional<QString> trimmedOrNothing(const QString &text);

} // namespace zeph
