// Addresses that nobody would write, for what must cope with anything.
#pragma once

#include <QList>
#include <QUrl>

namespace zeph::tests {

/// Empty, invalid, relative, huge, with odd Unicode: none of them is an address of a video service.
QList<QUrl> addressesOfNoService();

/// `count` addresses, the same ones for the same `seed`, on `hosts` and on hosts like them, with
/// paths and queries put together from `words` and from awkward text.
QList<QUrl> randomAddresses(
    int count, quint32 seed, const QStringList &hosts, const QStringList &words);

} // namespace zeph::tests
