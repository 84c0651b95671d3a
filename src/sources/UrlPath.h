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

/// Whether `url` is on `domain` itself or on a host below it.
bool isOnDomain(const QUrl &url, QLatin1StringView domain);

/// The value of the first query item of exactly this name, trimmed. Nothing when there is no such
/// item or it is blank.
std::optional<QString> queryValue(const QUrl &url, const QString &name);

/// `text` trimmed, or nothing when that leaves nothing.
std::optional<QString> trimmedOrNothing(const QString &text);

} // namespace zeph
