#include "app/view/LiveApp.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

#include "app/AppDelegate.h"
#include "app/view/AppEventLoop.h"
#include "app/view/PanelScenarioViews.h"
#include "platform/qt/QtPlatform.h"
#include "platform/x11/DockWindow.h"
#include "platform/x11/X11Platform.h"

namespace tolv {

namespace {

// Marks every panel window of the bar as a dock of the desktop just before it
// is first shown, while the window manager hasn't seen it yet.
class DockPanels : public QObject {
 public:
  explicit DockPanels(x11::X11Connection& connection) : connection_(connection) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Show || !object->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(object);
    if (!widget->isWindow()) return false;
    if (widget->objectName() == "taskbarPanel" || widget->objectName() == "triggerPanel")
      x11::makeDockWindow(connection_, *widget);
    return false;
  }

 private:
  x11::X11Connection& connection_;
};

}  // namespace

bool hasXDisplay() {
  const char* display = std::getenv("DISPLAY");
  return display && *display;
}

int runLiveDesktop(int& argc, char** argv) {
  // The panels are windows of the X display, whatever the environment asks of the toolkit.
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);
  qt::ensureApplication(argc, argv);
  auto desktop = x11::X11Platform::open();
  if (!desktop) {
    std::fprintf(stderr, "tolv: the X display %s can't be opened\n", std::getenv("DISPLAY"));
    return 1;
  }
  DockPanels docks(desktop->connection());
  PanelScenarioViews views;
  AppDelegate delegate(desktop->platform(),
                       views.controllerFactories(scenario::TextMeasure::Toolkit));
  delegate.applicationDidFinishLaunching();
  const int status =
      runEventLoopUntilEnd(*desktop->platform().processes, [] { return std::optional<int>(); });
  delegate.applicationWillTerminate();
  return status;
}

}  // namespace tolv
