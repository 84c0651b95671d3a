// Lists that nobody would write, for what must cope with anything.
#pragma once

#include <QByteArray>
#include <QRandomGenerator>

namespace zeph::tests {

/// A few awkward lines: newlines and blanks of all kinds, commas and quotes in odd places,
/// addresses good and bad. Now and then not even UTF-8.
QByteArray awkwardList(QRandomGenerator &random);

} // namespace zeph::tests
