// Random ids in great numbers.
#pragma once

#include <QRandomGenerator>
#include <QUuid>

namespace zeph {

/// Version 4 UUIDs without a system call for each. Not for secrets.
///
/// Every instance takes all 19,937 bits of its state from the system's randomness, so two of them
/// are as unlikely to give the same id as two ids straight from the system: by the birthday bound,
/// one collision is expected among 2^61 ids.
class RandomUuids {
public:
    QUuid next();

private:
    QRandomGenerator64 m_random = QRandomGenerator64::securelySeeded();
};

} // namespace zeph
