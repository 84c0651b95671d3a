// The rules by which lists are read, written down once more: for obviousness, at any cost.
#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <optional>

namespace zeph::tests {

struct NaiveEntry {
    QString name;
    QUrl url;
    std::optional<QUrl> logoURL;
    std::optional<QString> groupTitle;
    std::optional<QString> countryCode;

    bool operator==(const NaiveEntry &) const = default;
};

QList<NaiveEntry> parseNaively(const QByteArray &bytes, const QUrl &base);

} // namespace zeph::tests
