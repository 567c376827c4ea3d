#pragma once

#include "platform/qt/QtPlatform.h"

namespace tolv::testing {

// The toolkit's application object that widget and event-loop tests need, made once.
inline void ensureTestApplication() {
  static int argc = 1;
  static char name[] = "tolv_tests";
  static char* argv[] = {name, nullptr};
  qt::ensureApplication(argc, argv);
}

}  // namespace tolv::testing
