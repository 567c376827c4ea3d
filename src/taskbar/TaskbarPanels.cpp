#include "taskbar/TaskbarPanels.h"
#include "model/Text.h"

#include <cmath>

#include "model/AppModel.h"
#include "taskbar/PanelGeometry.h"
#include "taskbar/TabFacts.h"
#include "taskbar/TaskbarLocation.h"
#include "taskbar/TaskbarNotifications.h"

namespace tolv {

namespace {

constexpr double kPrimaryRowReserve = 400;
constexpr const char* kDefaultStartGlyph = "ⓣ";
constexpr double kRefitTolerance = 0.5;
constexpr int kMaximumRefreshRounds = 4;

bool barAnimates(const Settings& settings) {
  return settings.appRefreshRate > 0 && settings.animationDurationMS > 0 &&
         settings.animationStyle != "Instant Hide";
}

}  // namespace

TaskbarPanels::TaskbarPanels(AppModel& model, PanelWindowFactory& factory, TextMeasurer& measurer)
    : model_(model),
      factory_(factory),
      measurer_(measurer),
      keeper_(model),
      location_(model.settings.taskbarLocation),
      mediaSliderDisplay_(model.settings.mediaSliderDisplay) {
  const Platform& platform = model_.platform();
  subscriptions_.push_back(platform.screens->changed().subscribe([this] { postRebuild(); }));
  subscriptions_.push_back(
      platform.pointer->moved().subscribe([this](Point p) { trackPointer(p); }));
  notificationTokens_.push_back(platform.notificationCenter->addObserver(
      std::string(notification::MacOSMenuBarSettingChanged),
      [this](const Notification&) { postRebuild(); }));
  notificationTokens_.push_back(platform.notificationCenter->addObserver(
      std::string(notification::OpenTaskbarOverflowFromCorner), [this](const Notification&) {
        for (auto& panel : panels_)
          panel->reveal->openFromCorner();
      }));

  auto refresh = [this](const auto&) { refreshContent(); };
  subscriptions_.push_back(model_.runningApps.subscribe(refresh));
  subscriptions_.push_back(model_.managedWorkspaceTasks.subscribe(refresh));
  subscriptions_.push_back(model_.taskWidthOverrides.subscribe(refresh));
  subscriptions_.push_back(model_.taskbarOverflowReturnLocked.subscribe(refresh));
  subscriptions_.push_back(model_.taskRowsExpanded.subscribe(refresh));
  subscriptions_.push_back(model_.activeBlueStripWindowID.subscribe(refresh));
  subscriptions_.push_back(model_.previousWindowIDsByApplication.subscribe(refresh));
  subscriptions_.push_back(model_.accessibilityTrusted.subscribe(refresh));
  subscriptions_.push_back(model_.attentionApps.subscribe(refresh));
  subscriptions_.push_back(model_.batteryStatus.subscribe(refresh));
  subscriptions_.push_back(model_.volumeLevel.subscribe(refresh));
  subscriptions_.push_back(model_.brightnessLevel.subscribe(refresh));
  subscriptions_.push_back(model_.clockMinute.subscribe(refresh));
  subscriptions_.push_back(model_.taskbarLayoutCaptureGeneration.subscribe([this](const int64_t&) {
    for (auto& panel : panels_)
      panel->capture.requestCapture();
    refreshContent();
  }));
  subscriptions_.push_back(model_.modelChanged.subscribe([this] {
    noticeSettings();
    refreshContent();
  }));
  // A group popup opened from an overflow card keeps the cards out while it shows.
  subscriptions_.push_back(model_.overflowHeldByGroupPopup.subscribe([this](bool held) {
    for (auto& panel : panels_)
      panel->reveal->setHeldByGroupPopup(held);
  }));
  // A drag over the reveal zone brings the cards out until the drag ends; the
  // cue and the resize guide only need drawing again.
  subscriptions_.push_back(model_.taskDragChanged.subscribe([this] {
    for (auto& panel : panels_)
      panel->reveal->setDragReveal(model_.taskDrag.overflowDragReveal);
    contentChanged_.emit();
  }));
  subscriptions_.push_back(keeper_.overflowAutoHideChanged().subscribe([this] {
    for (auto& panel : panels_)
      panel->reveal->autoHideOverflowChanged();
  }));
}

TaskbarPanels::~TaskbarPanels() {
  for (auto token : notificationTokens_)
    model_.platform().notificationCenter->removeObserver(token);
}

bool TaskbarPanels::topMenuBufferNeeded() {
  return tolv::topMenuBufferNeeded(*model_.platform().userDefaults, model_.defaults());
}

void TaskbarPanels::rebuildPanels() {
  rebuildPosted_ = false;
  willRebuild_.emit();
  for (auto* list : {&edgeTriggers_, &cornerTriggers_}) {
    for (auto& trigger : *list)
      trigger->window->close();
    list->clear();
  }
  for (auto& panel : panels_)
    panel->window->close();
  panels_.clear();

  location_ = model_.settings.taskbarLocation;
  auto screens = model_.platform().screens->screens();
  for (size_t i = 0; i < screens.size(); ++i)
    makeTaskbarPanel(i, screens[i]);
  for (size_t i = 0; i < screens.size(); ++i) {
    edgeTriggers_.push_back(makeTrigger(PanelKind::EdgeTrigger, i, screens[i],
                                        edgeTriggerFrame(location_, screens[i]), false));
  }
  for (size_t i = 0; i < screens.size(); ++i) {
    for (const auto& corner : cornerTriggers(location_, screens[i])) {
      cornerTriggers_.push_back(
          makeTrigger(PanelKind::CornerTrigger, i, screens[i], corner.frame, corner.isLeft));
    }
  }
  didRebuild_.emit();
  refreshContent();
}

void TaskbarPanels::makeTaskbarPanel(size_t screenIndex, const Screen& screen) {
  auto panel = std::make_unique<TaskbarPanel>();
  panel->serial = nextSerial_++;
  panel->screenIndex = screenIndex;
  panel->screen = screen;
  bool buffer = topMenuBufferNeeded();
  PanelSetup setup;
  setup.kind = PanelKind::Taskbar;
  setup.screenIndex = screenIndex;
  setup.frame = panelFrame(location_, screen, initialPanelThickness(location_, buffer), buffer);
  setup.level = taskbarPanelLevel(location_);
  panel->window = factory_.makePanel(setup);
  panel->reveal = std::make_unique<OverflowReveal>(model_, [this] { refreshContent(); });
  if (model_.overflowHeldByGroupPopup.get()) panel->reveal->setHeldByGroupPopup(true);
  if (isSideEdge(location_)) {
    panel->window->orderBack();
  } else {
    panel->window->orderFront();
  }
  panels_.push_back(std::move(panel));
}

std::unique_ptr<TriggerPanel> TaskbarPanels::makeTrigger(PanelKind kind, size_t screenIndex,
                                                         const Screen& screen, const Rect& frame,
                                                         bool isLeftCorner) {
  auto trigger = std::make_unique<TriggerPanel>();
  trigger->kind = kind;
  trigger->screenIndex = screenIndex;
  trigger->screen = screen;
  trigger->isLeftCorner = isLeftCorner;
  PanelSetup setup;
  setup.kind = kind;
  setup.screenIndex = screenIndex;
  setup.frame = frame;
  setup.level = kind == PanelKind::EdgeTrigger ? kEdgeTriggerLevel : kCornerTriggerLevel;
  setup.isLeftCorner = isLeftCorner;
  trigger->window = factory_.makePanel(setup);
  return trigger;
}

void TaskbarPanels::applyPanelFrame(TaskbarPanel& panel, double thickness) {
  bool buffer = topMenuBufferNeeded();
  Rect frame = panelFrame(location_, panel.screen,
                          framedPanelThickness(location_, thickness, buffer), buffer);
  panel.window->setFrame(frame, barAnimates(model_.settings));
}

OverflowGeometry TaskbarPanels::overflowGeometry() {
  const Settings& settings = model_.settings;
  return geometryCache_.get({.overflowCount = overflowCardCount(model_.taskOverflowRowCount),
                             .tuck = settings.tuckAwayOverflowPixels,
                             .overlap = settings.overflowCardOverlapPixels,
                             .autoHideOverflow = settings.autoHideOverflow,
                             .rowsExpanded = model_.taskRowsExpanded});
}

const TaskRowLayout* TaskbarPanels::mainLayout() const {
  for (const auto& panel : panels_) {
    if (panel->screenIndex == 0) return &panel->layout;
  }
  return nullptr;
}

void TaskbarPanels::layOut(TaskbarPanel& panel) {
  Rect frame = panel.window->frame();
  double length = contentRotation(location_) == ContentRotation::None ? frame.width : frame.height;
  double trayLength = primaryTrayLength(trayContent(model_));
  if (trayLength != panel.trayLength) {
    // The primary row's fixed part changed: the task area is measured again.
    panel.trayLength = trayLength;
    panel.capture.requestCapture();
  }
  double taskArea = (isSideEdge(location_) ? length : length - kPrimaryRowReserve) - trayLength;
  panel.capture.offer(length, taskArea);
  panel.layout = model_.layoutTaskRows(length, panel.capture.savedTaskbarScreenWidth,
                                       panel.capture.savedTaskAreaWidth, measurer_);
}

void TaskbarPanels::refreshContent() {
  if (refreshing_) {
    refreshAgain_ = true;
    return;
  }
  refreshing_ = true;
  int rounds = 0;
  do {
    refreshAgain_ = false;
    for (auto& panel : panels_)
      layOut(*panel);
    if (const TaskRowLayout* main = mainLayout()) keeper_.layoutPassed(*main);

    // The panels follow their rows at once, whether or not the bar hides itself.
    double thickness = overflowGeometry().normalHeight;
    bool buffer = topMenuBufferNeeded();
    for (auto& panel : panels_) {
      Rect frame = panel->window->frame();
      double actual = isSideEdge(location_) ? frame.width : frame.height;
      if (std::abs(actual - framedPanelThickness(location_, thickness, buffer)) > kRefitTolerance) {
        applyPanelFrame(*panel, thickness);
      }
    }
    const Settings& settings = model_.settings;
    for (auto& panel : panels_) {
      Rect frame = panel->window->frame();
      TaskbarDrawingInput input;
      input.location = location_;
      input.panelSize = {frame.width, frame.height};
      input.bufferStrip = isTopBar(location_) && buffer;
      input.layout = &panel->layout;
      input.rowsTucked = panel->reveal->rowsTucked();
      input.tuck = settings.tuckAwayOverflowPixels;
      input.overlap = settings.overflowCardOverlapPixels;
      input.borderHeight = settings.topOverflowBorderHeight;
      input.backgroundEnabled = settings.overflowBackgroundEnabled;
      input.returnLocked = model_.taskbarOverflowReturnLocked;
      TrayContent tray = trayContent(model_);
      input.tray = &tray;
      panel->drawing = drawTaskbar(input);
      decorateTabs(model_, panel->layout, panel->drawing);
      if (panel->drawing.startButton) decorateStartButton(*panel->drawing.startButton);
    }
  } while (refreshAgain_ && ++rounds < kMaximumRefreshRounds);
  refreshing_ = false;
  contentChanged_.emit();
}

void TaskbarPanels::decorateStartButton(StartButtonDrawing& button) {
  const Settings& settings = model_.settings;
  const std::string& choice = settings.startIconChoice;
  button.locked = settings.lockApplicationsContainerToTaskbar;
  button.glyph = kDefaultStartGlyph;
  if (choice == "App Icon" || choice == "Custom Image") {
    // Read once: the picture doesn't change while the program runs.
    if (!startIcon_) startIcon_ = model_.ownApplicationIcon();
    button.icon = *startIcon_;
  } else if (choice == "Custom") {
    std::string first = firstGrapheme(settings.customStartIcon);
    if (!first.empty()) button.glyph = first;
  } else {
    button.glyph = choice;
  }
}

void TaskbarPanels::trackPointer(Point location) {
  for (auto& panel : panels_) {
    PanelWindow& window = *panel->window;
    bool trackable = window.isVisible() && !window.ignoresMouseEvents();
    Rect frame = window.frame();
    bool inside = trackable && touches(frame, location);
    std::set<int> rows;
    if (inside) {
      for (const auto& card : panel->drawing.cards) {
        Rect visible = panelToDesign(panel->drawing.toPanel.mapRect(card.visible), frame);
        if (touches(visible, location)) rows.insert(card.rowID);
      }
    }
    if (inside != panel->pointerInside) {
      panel->pointerInside = inside;
      (inside ? enteredPanel_ : exitedPanel_).emit(panel.get());
    }
    std::set<int> before = std::exchange(panel->rowsUnderPointer, rows);
    for (int row : before) {
      if (!rows.count(row)) panel->reveal->pointerExitedRow(row);
    }
    for (int row : rows) {
      if (!before.count(row)) panel->reveal->pointerEnteredRow(row);
    }
  }
  // A corner stands above the edge line: where it is shown, the line beneath it
  // does not see the pointer.
  bool inCorner = false;
  for (auto& corner : cornerTriggers_) {
    inCorner =
        inCorner || (corner->window->isVisible() && touches(corner->window->frame(), location));
  }
  for (auto* list : {&edgeTriggers_, &cornerTriggers_}) {
    for (auto& trigger : *list) {
      bool covered = trigger->kind == PanelKind::EdgeTrigger && inCorner;
      bool inside =
          !covered && trigger->window->isVisible() && touches(trigger->window->frame(), location);
      if (inside == trigger->pointerInside) continue;
      trigger->pointerInside = inside;
      (inside ? enteredTrigger_ : exitedTrigger_).emit(trigger.get());
    }
  }
}

void TaskbarPanels::noticeSettings() {
  const Settings& settings = model_.settings;
  if (settings.taskbarLocation != location_) postRebuild();
  model_.updateClockTicking();
  model_.readBatteryColors();
  if (settings.mediaSliderDisplay != mediaSliderDisplay_) {
    mediaSliderDisplay_ = settings.mediaSliderDisplay;
    for (auto& panel : panels_)
      panel->capture.requestCapture();
  }
  settingsChanged_.emit();
}

void TaskbarPanels::postRebuild() {
  if (rebuildPosted_) return;
  rebuildPosted_ = true;
  std::weak_ptr<bool> alive = alive_;
  model_.platform().runLoop->post([this, alive] {
    if (!alive.expired()) rebuildPanels();
  });
}

}  // namespace tolv
