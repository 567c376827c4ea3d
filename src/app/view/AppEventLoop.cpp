#include "app/view/AppEventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <memory>

#include "platform/Processes.h"

namespace tolv {

namespace {

volatile std::sig_atomic_t endRequested = 0;
int signalPipe[2] = {-1, -1};

void requestEnd(int) {
  endRequested = 1;
  if (signalPipe[1] >= 0) {
    const char byte = 1;
    [[maybe_unused]] auto written = ::write(signalPipe[1], &byte, 1);
  }
}

}  // namespace

void catchEndRequests() {
  if (signalPipe[0] >= 0) return;
  endRequested = 0;
  if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) signalPipe[0] = signalPipe[1] = -1;
  std::signal(SIGINT, requestEnd);
  std::signal(SIGTERM, requestEnd);
}

int runEventLoopUntilEnd(Processes& processes, const std::function<std::optional<int>()>& step) {
  catchEndRequests();
  int status = 0;
  auto endWhenAsked = [&] {
    if (endRequested || processes.terminationRequested()) QCoreApplication::quit();
  };

  std::unique_ptr<QSocketNotifier> signals;
  if (signalPipe[0] >= 0) {
    signals = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(signals.get(), &QSocketNotifier::activated, [&] {
      char bytes[16];
      while (::read(signalPipe[0], bytes, sizeof bytes) > 0) {
      }
      endWhenAsked();
    });
  }
  QMetaObject::Connection beforeSleep;
  if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
    beforeSleep =
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, endWhenAsked);
  }
  QTimer driver;
  if (step) {
    QObject::connect(&driver, &QTimer::timeout, [&] {
      if (auto ended = step()) {
        status = *ended;
        QCoreApplication::quit();
      } else {
        endWhenAsked();
      }
    });
    driver.start(15);
  }
  // A request that came while Tolv was launching ends the loop at once.
  QTimer::singleShot(0, endWhenAsked);
  QCoreApplication::exec();
  QObject::disconnect(beforeSleep);
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
  signals.reset();
  for (int& end : signalPipe) {
    if (end >= 0) ::close(end);
    end = -1;
  }
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
