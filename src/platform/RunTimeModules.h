// Where the parts of the program are that it loads when it needs them.
#pragma once

#include <QString>

namespace zeph {

/// The folder of the modules that go with this program, found from the one that it lies in itself,
/// so that both can be moved. Needs the application object; main thread only.
QString runTimeModulesFolder();

} // namespace zeph
