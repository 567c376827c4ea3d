#include "platform/qt/QtPlatform.h"

#include <QApplication>

#include <cstdlib>

namespace tolv::qt {

QCoreApplication& ensureApplication(int& argc, char** argv) {
  if (QCoreApplication* existing = QCoreApplication::instance()) return *existing;
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") &&
      !std::getenv("QT_QPA_PLATFORM")) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  }
  return *new QApplication(argc, argv);
}

}  // namespace tolv::qt
