#include "taskbar/view/QtPanelWindow.h"

#include "taskbar/view/TaskbarView.h"

namespace tolv {

namespace {
// At or below this opacity a panel counts as out of view, as the bar's logic has it.
constexpr double kUnseenAlpha = 0.01;
}  // namespace

QtPanelWindow::QtPanelWindow(const PanelSetup& setup, std::function<double()> mainScreenHeight)
    : mainScreenHeight_(std::move(mainScreenHeight)),
      widget_(std::make_unique<QWidget>(nullptr, Qt::Tool | Qt::FramelessWindowHint |
                                                     Qt::WindowStaysOnTopHint |
                                                     Qt::WindowDoesNotAcceptFocus)),
      frame_(setup.frame) {
  widget_->setAttribute(Qt::WA_TranslucentBackground);
  widget_->setAttribute(Qt::WA_ShowWithoutActivating);
  widget_->setObjectName(setup.kind == PanelKind::Taskbar ? "taskbarPanel" : "triggerPanel");
  place();
}

QtPanelWindow::~QtPanelWindow() = default;

void QtPanelWindow::place() {
  double top = mainScreenHeight_() - frame_.maxY();
  widget_->setGeometry(qRound(frame_.x), qRound(top), qRound(frame_.width), qRound(frame_.height));
  if (content_) content_->setGeometry(0, 0, qRound(frame_.width), qRound(frame_.height));
}

void QtPanelWindow::setFrame(const Rect& frame, bool) {
  // Shown at once: the frame's end value is what the pointer tracking and the
  // auto-hide tick measure.
  if (frame == frame_) return;
  frame_ = frame;
  place();
}

void QtPanelWindow::setAlpha(double alpha) {
  alpha_ = alpha;
  widget_->setWindowOpacity(alpha);
  mapWhenSeen();
}

void QtPanelWindow::mapWhenSeen() {
  // A window faded out is also taken off the screen: without a compositing
  // manager its opacity alone would leave it drawn, and in front of others.
  const bool seen = visible_ && alpha_ > kUnseenAlpha;
  if (seen == widget_->isVisible()) return;
  if (seen) {
    widget_->show();
    widget_->raise();
  } else {
    widget_->hide();
  }
}

void QtPanelWindow::setIgnoresMouseEvents(bool ignores) {
  ignoresMouse_ = ignores;
  widget_->setAttribute(Qt::WA_TransparentForMouseEvents, ignores);
}

void QtPanelWindow::setTransform(const HideTransform& transform) {
  transform_ = transform;
  redraw();
}

void QtPanelWindow::orderFront() {
  visible_ = true;
  mapWhenSeen();
  widget_->raise();
}

void QtPanelWindow::orderBack() {
  visible_ = true;
  mapWhenSeen();
  widget_->lower();
}

void QtPanelWindow::orderOut() {
  visible_ = false;
  widget_->hide();
}

void QtPanelWindow::close() {
  visible_ = false;
  widget_->close();
}

void QtPanelWindow::showTaskbar(const AppModel& model, const TaskbarPanel& panel,
                                std::function<void(Point, MouseButton, PointerPhase)> onPointer,
                                std::function<void(Point, double, bool)> onWheel) {
  if (content_) return;
  // The view's y runs down from the panel's top.
  auto toDesign = [this](QPointF local) -> Point {
    return {frame_.x + local.x(), frame_.maxY() - local.y()};
  };
  TaskbarView::WheelHandler wheel;
  if (onWheel) {
    wheel = [toDesign, onWheel = std::move(onWheel)](QPointF local, double deltaY, bool precise) {
      onWheel(toDesign(local), deltaY, precise);
    };
  }
  content_ = new TaskbarView(
      model, panel, widget_.get(),
      [toDesign, onPointer = std::move(onPointer)](QPointF local, MouseButton button,
                                                   PointerPhase phase) {
        onPointer(toDesign(local), button, phase);
      },
      std::move(wheel));
  content_->setGeometry(0, 0, qRound(frame_.width), qRound(frame_.height));
  if (visible_) content_->show();
}

void QtPanelWindow::redraw() {
  if (content_) content_->update();
}

}  // namespace tolv
