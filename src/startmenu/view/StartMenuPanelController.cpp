#include "startmenu/view/StartMenuPanelController.h"

#include <QPainter>
#include <QWidget>

#include "model/AppModel.h"
#include "model/Text.h"
#include "startmenu/view/StartMenuView.h"
#include "taskbar/PanelGeometry.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {
constexpr double kPanelWidth = 390;
constexpr double kPanelHeight = 520;
// At or below this opacity the menu closes, as the bar's fade has it.
constexpr double kClosedAlpha = 0.01;
}  // namespace

StartMenuPanelController::StartMenuPanelController(AppModel& model)
    : model_(model),
      window_(std::make_unique<QWidget>(
          nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)) {
  window_->setObjectName("startMenuPanel");
  window_->setWindowTitle("My Applications Container");
  window_->setAttribute(Qt::WA_TranslucentBackground);
  frame_ = {0, 0, kPanelWidth, kPanelHeight};
  view_ = new StartMenuView(
      model_, window_.get(),
      [this](QPointF local, MouseButton button) {
        press({frame_.x + local.x(), frame_.maxY() - local.y()}, button);
      },
      [this](const std::string& key) { typeKey(key); });
  std::weak_ptr<bool> alive = alive_;
  modelChanged_ = model_.startMenuChanged.subscribe([this, alive] {
    if (!alive.expired() && visible_) view_->update();
  });
}

StartMenuPanelController::~StartMenuPanelController() {
  alive_.reset();
  whileOpen_.clear();
  if (activationObserver_) {
    model_.platform().workspace->notificationCenter().removeObserver(*activationObserver_);
  }
}

void StartMenuPanelController::place() {
  auto screens = model_.platform().screens->screens();
  double mainTop = screens.empty() ? 0.0 : screens.front().frame.maxY();
  window_->setGeometry(qRound(frame_.x), qRound(mainTop - frame_.maxY()), qRound(frame_.width),
                       qRound(frame_.height));
  view_->setGeometry(0, 0, qRound(frame_.width), qRound(frame_.height));
}

void StartMenuPanelController::show(const Rect& taskbarFrame) {
  if (visible_) return;
  auto screens = model_.platform().screens->screens();
  Screen screen;
  screen.frame = screen.visibleFrame = taskbarFrame;
  screenIndex_ = 0;
  bool found = false;
  for (size_t i = 0; i < screens.size(); ++i) {
    if (screens[i].frame.intersects(taskbarFrame)) {
      screen = screens[i];
      screenIndex_ = i;
      found = true;
      break;
    }
  }
  if (!found && !screens.empty()) {
    screenIndex_ = model_.platform().screens->mainScreenIndex();
    if (screenIndex_ >= screens.size()) screenIndex_ = 0;
    screen = screens[screenIndex_];
  }
  const std::string& location = model_.settings.taskbarLocation;
  StartMenuPlacement placement = placeStartMenu(
      {.location = location,
       .taskbarFrame = taskbarFrame,
       .screenFrame = screen.frame,
       .visibleFrame = screen.visibleFrame,
       .menuBarBuffer = isTopBar(location) &&
                        topMenuBufferNeeded(*model_.platform().userDefaults, model_.defaults())});
  frame_ = placement.panelFrame;
  startButtonFrame_ = placement.startButtonFrame;
  place();
  alpha_ = 1;
  window_->setWindowOpacity(1);
  visible_ = true;
  wasShown_ = true;
  model_.primeStartMenuIconCache();
  window_->show();
  window_->raise();
  window_->activateWindow();
  view_->setFocus();
  watchWhileOpen();
  model_.setStartMenuVisible(true);
}

void StartMenuPanelController::watchWhileOpen() {
  whileOpen_.clear();
  std::weak_ptr<bool> alive = alive_;
  whileOpen_.push_back(model_.platform().pointer->pressed().subscribe([this, alive](PointerButton) {
    if (!alive.expired()) pressedAnywhere();
  }));
  auto& center = model_.platform().workspace->notificationCenter();
  if (activationObserver_) center.removeObserver(*activationObserver_);
  activationObserver_ = center.addObserver(
      workspace_notification::DidActivateApplication, [this, alive](const Notification& note) {
        if (alive.expired() || !visible_) return;
        Pid own = model_.platform().workspace->ownProcessIdentifier();
        if (note.processIdentifier && *note.processIdentifier != own) dismiss();
      });
}

void StartMenuPanelController::pressedAnywhere() {
  if (!visible_) return;
  Point mouse = model_.platform().pointer->location();
  // A click on the start button is left to the button, which closes the menu.
  if (startButtonFrame_.contains(mouse)) return;
  if (frame_.contains(mouse)) return;
  if (!model_.settings.lockApplicationsContainerToTaskbar) dismiss();
}

bool StartMenuPanelController::containsPointer() const {
  return visible_ && frame_.contains(model_.platform().pointer->location());
}

void StartMenuPanelController::setOpacity(double alpha) {
  if (!visible_) return;
  alpha_ = alpha;
  window_->setWindowOpacity(alpha);
  if (alpha <= kClosedAlpha) dismiss();
}

void StartMenuPanelController::dismiss() {
  whileOpen_.clear();
  if (activationObserver_) {
    model_.platform().workspace->notificationCenter().removeObserver(*activationObserver_);
    activationObserver_.reset();
  }
  if (!visible_) return;
  visible_ = false;
  alpha_ = 0;
  window_->hide();
  model_.setStartMenuVisible(false);
}

Point StartMenuPanelController::toPanel(Point designPoint) const {
  return {designPoint.x - frame_.x, frame_.maxY() - designPoint.y};
}

Rect StartMenuPanelController::toDesign(const Rect& panelRect) const {
  return {frame_.x + panelRect.x, frame_.maxY() - panelRect.maxY(), panelRect.width,
          panelRect.height};
}

bool StartMenuPanelController::press(Point designPoint, MouseButton button) {
  if (!visible_ || !frame_.contains(designPoint)) return false;
  Point local = toPanel(designPoint);
  StartMenuLayout layout = view_->currentLayout();
  for (const auto& segment : layout.segments) {
    if (segment.frame.contains(local) && button == MouseButton::Left) {
      model_.selectStartMenuList(segment.list);
      return true;
    }
  }
  if (layout.searchFilesRow && layout.searchFilesRow->contains(local)) {
    if (button != MouseButton::Left) return true;
    // The clear button stands at the row's trailing end.
    if (local.x >= layout.searchFilesRow->maxX() - 12) {
      model_.setApplicationSearch("");
      return true;
    }
    model_.searchFiles(model_.startMenu.applicationSearch);
    dismiss();
    return true;
  }
  StartMenuList list = model_.startMenuList();
  for (size_t i = 0; i < layout.rows.size(); ++i) {
    if (!layout.rows[i].contains(local)) continue;
    const StartMenuRow& row = list.rows[i];
    if (button == MouseButton::Right) {
      if (row.kind == StartMenuRowKind::Favorite) model_.removeStartFavorite(row.key);
      if (row.kind == StartMenuRowKind::Application && model_.platform().fileViewer) {
        model_.platform().fileViewer->revealInFileManager(row.key);
      }
      return true;
    }
    model_.activateStartMenuRow(row);
    dismiss();
    return true;
  }
  return true;
}

void StartMenuPanelController::typeKey(const std::string& key) {
  if (!visible_) return;
  if (key == "escape") return dismiss();
  if (key == "return") {
    model_.submitApplicationSearch();
    return dismiss();
  }
  model_.typeIntoApplicationSearch(key);
}

nlohmann::json StartMenuPanelController::describePanel() const {
  nlohmann::json rows = nlohmann::json::array();
  if (visible_) {
    StartMenuLayout layout = view_->currentLayout();
    StartMenuList list = model_.startMenuList();
    for (size_t i = 0; i < layout.rows.size(); ++i) {
      Rect f = toDesign(layout.rows[i]);
      rows.push_back({{"title", list.rows[i].title}, {"frame", {f.x, f.y, f.width, f.height}}});
    }
  }
  return {{"kind", "startMenu"},
          {"screen", screenIndex_},
          {"frame", {frame_.x, frame_.y, frame_.width, frame_.height}},
          {"alpha", visible_ ? alpha_ : 0.0},
          {"visible", visible_},
          {"rows", std::move(rows)}};
}

void StartMenuPanelController::paintOnto(QImage& screenPicture, const Rect& screenFrame) const {
  if (!visible_) return;
  QImage menu(qRound(frame_.width), qRound(frame_.height), QImage::Format_ARGB32_Premultiplied);
  menu.fill(Qt::transparent);
  view_->render(&menu, QPoint(), QRegion(), QWidget::DrawChildren);
  QPainter painter(&screenPicture);
  painter.setOpacity(alpha_);
  painter.drawImage(QPointF(frame_.x - screenFrame.x, screenFrame.maxY() - frame_.maxY()), menu);
}

}  // namespace tolv
