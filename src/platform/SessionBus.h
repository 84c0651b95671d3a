// The bus on which the programs of a desktop talk to one another.
#pragma once

namespace zeph {

/// Whether there is one. To be asked before it is used: looking for one in vain starts one, which
/// nobody else is on. Any thread.
bool hasSessionBus();

} // namespace zeph
