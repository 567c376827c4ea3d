#include "app/view/AppEventLoop.h"

#include <QCoreApplication>
#include <QTimer>

#include <csignal>
#include <cstdio>

#include "platform/Processes.h"

namespace tolv {

namespace {

volatile std::sig_atomic_t endRequested = 0;

void requestEnd(int) {
  endRequested = 1;
}

}  // namespace

int runEventLoopUntilEnd(Processes& processes, const std::function<std::optional<int>()>& step) {
  endRequested = 0;
  std::signal(SIGINT, requestEnd);
  std::signal(SIGTERM, requestEnd);
  int status = 0;
  QTimer driver;
  QObject::connect(&driver, &QTimer::timeout, [&] {
    if (auto ended = step()) {
      status = *ended;
      QCoreApplication::quit();
    } else if (endRequested || processes.terminationRequested()) {
      QCoreApplication::quit();
    }
  });
  driver.start(15);
  QCoreApplication::exec();
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
  return status;
}

bool CheckpointDump::open(const std::string& path) {
  file_.open(path, std::ios::binary | std::ios::trunc);
  if (!file_) std::fprintf(stderr, "tolv: %s can't be written\n", path.c_str());
  return file_.is_open();
}

void CheckpointDump::write(const nlohmann::ordered_json& line) {
  file_ << line.dump() << '\n';
  file_.flush();
}

}  // namespace tolv
