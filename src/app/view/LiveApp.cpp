#include "app/view/LiveApp.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

#include "app/AppDelegate.h"
#include "app/RuntimeIssues.h"
#include "app/scenario/ScenarioRun.h"
#include "app/view/AppEventLoop.h"
#include "app/view/PanelScenarioViews.h"
#include "platform/qt/QtInstanceLauncher.h"
#include "platform/qt/QtPlatform.h"
#include "platform/x11/DockWindow.h"
#include "platform/x11/X11Platform.h"
#include "platform/x11/X11Pointer.h"

namespace tolv {

namespace {

// Marks every panel window of the bar as a dock of the desktop just before it
// is first shown, while the window manager hasn't seen it yet, and has the
// pointer service tell the moves into, within and out of it.
class DockPanels : public QObject {
 public:
  explicit DockPanels(x11::X11Platform& desktop) : desktop_(desktop) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Show || !object->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(object);
    if (!widget->isWindow()) return false;
    if (widget->objectName() == "taskbarPanel" || widget->objectName() == "triggerPanel") {
      x11::makeDockWindow(desktop_.connection(), *widget);
      desktop_.pointer().watch(static_cast<xcb_window_t>(widget->winId()));
    }
    return false;
  }

 private:
  x11::X11Platform& desktop_;
};

}  // namespace

bool hasXDisplay() {
  const char* display = std::getenv("DISPLAY");
  return display && *display;
}

namespace {

int runScenario(const Platform& platform, PanelScenarioViews& views, LiveScenarioOptions options) {
  CheckpointDump dump;
  if (options.dumpPath && !dump.open(*options.dumpPath)) return 1;
  scenario::RunOptions runOptions;
  runOptions.headless = false;
  runOptions.snapshotDirectory = options.snapshotDirectory;
  runOptions.writeLine = [&](const scenario::OutJson& line) {
    if (dump.isOpen()) {
      dump.write(line);
    } else {
      std::printf("%s\n", line.dump().c_str());
      std::fflush(stdout);
    }
  };
  const double end = options.scenario.endTime();
  scenario::ScenarioRun run(std::move(options.scenario), platform, &views, runOptions);
  QElapsedTimer clock;
  clock.start();
  run.launch();
  const int status = runEventLoopUntilEnd(*platform.processes, [&]() -> std::optional<int> {
    const double now = static_cast<double>(clock.elapsed()) / 1000.0;
    try {
      run.runUntil(now);
    } catch (const scenario::ScenarioError& error) {
      std::fprintf(stderr, "tolv: %s\n", error.what());
      return scenario::kScenarioErrorStatus;
    }
    if (now >= end) return 0;
    return std::nullopt;
  });
  run.terminate();
  return status;
}

}  // namespace

int runLiveDesktop(int& argc, char** argv, std::optional<LiveScenarioOptions> liveScenario) {
  // Taken before the toolkit or anything else here changes the arguments or the
  // environment, so that a restart starts the program as the user did.
  auto commandLine = qt::CommandLine::ofThisProcess(argc, argv);
  // The panels are windows of the X display, whatever the environment asks of the toolkit.
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);
  qt::ensureApplication(argc, argv);
  auto desktop = x11::X11Platform::open();
  if (!desktop) {
    std::fprintf(stderr, "tolv: the X display %s can't be opened\n", std::getenv("DISPLAY"));
    return 1;
  }
  RuntimeIssueFile runtimeLog(desktop->platform());
  desktop->setRuntimeIssueLog(&runtimeLog);
  qt::QtInstanceLauncher launcher(*desktop->platform().runLoop, std::move(commandLine));
  desktop->setInstanceLauncher(&launcher);
  DockPanels docks(*desktop);
  PanelScenarioViews views;
  if (liveScenario) return runScenario(desktop->platform(), views, std::move(*liveScenario));

  catchEndRequests();
  AppDelegate delegate(desktop->platform(),
                       views.controllerFactories(scenario::TextMeasure::Toolkit));
  delegate.applicationDidFinishLaunching();
  const int status = runEventLoopUntilEnd(*desktop->platform().processes);
  delegate.applicationWillTerminate();
  return status;
}

}  // namespace tolv
