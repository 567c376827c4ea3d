#pragma once

class QCoreApplication;

namespace tolv::qt {

// Makes the toolkit's application object if none exists yet. Views and the
// toolkit's platform services need one; headless runs get the offscreen platform
// when no display is set.
QCoreApplication& ensureApplication(int& argc, char** argv);

}  // namespace tolv::qt
