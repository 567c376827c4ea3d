#include "taskbar/AutoHide.h"

#include <algorithm>
#include <cmath>

#include "model/AppModel.h"
#include "taskbar/PanelGeometry.h"
#include "taskbar/TaskbarLocation.h"
#include "taskbar/TaskbarNotifications.h"

namespace tolv {

using namespace taskbar_location;

namespace {

constexpr double kHiddenAlpha = 0.01;
constexpr double kAlphaTolerance = 0.001;
constexpr double kMinimumDelay = 0.05;
constexpr double kRefitTolerance = 0.5;
constexpr double kTopBarMenuBand = 15;
constexpr double kRealBarMenuBand = 34;
constexpr double kBottomHitHeight = 40;
constexpr double kLeftAltShowWait = 0.6;
constexpr double kStartupHoldFrameDelay = 0.65;
constexpr double kCornerReach = 2;
// A timer set for the delay fires when the delay is over, even where the clock's
// arithmetic leaves the difference a rounding error short of it.
constexpr double kClockSlack = 1e-6;

// Timer handles are dropped when their timer is cleared; a fired one-shot
// timer's handle may linger, invalid.
bool running(const std::unique_ptr<Timer>& timer) {
  return timer && timer->isValid();
}

double tickInterval(int64_t refreshRate) {
  return 1.0 / static_cast<double>(std::clamp<int64_t>(refreshRate, 10, 60));
}

}  // namespace

AutoHide::AutoHide(AppModel& model, TaskbarPanels& panels, AutoHideHooks hooks)
    : model_(model),
      panels_(panels),
      hooks_(std::move(hooks)),
      runLoop_(*model.platform().runLoop),
      lastAutoHideEnabled_(model.settings.autoHideEnabled),
      lastAppRefreshRate_(model.settings.appRefreshRate),
      lastPaused_(paused()) {
  subscriptions_.push_back(panels_.willRebuild().subscribe([this] {
    clearRehideState();
    hiddenEdgeTriggersActive_ = false;
  }));
  subscriptions_.push_back(panels_.didRebuild().subscribe([this] { panelsRebuilt(); }));
  subscriptions_.push_back(panels_.pointerEnteredPanel().subscribe(
      [this](TaskbarPanel* panel) { panelPointerEntered(*panel); }));
  subscriptions_.push_back(panels_.pointerExitedPanel().subscribe(
      [this](TaskbarPanel* panel) { panelPointerExited(*panel); }));
  subscriptions_.push_back(panels_.pointerEnteredTrigger().subscribe([this](TriggerPanel* t) {
    if (t->kind == PanelKind::EdgeTrigger) {
      edgeTriggerEntered();
    } else {
      topCornerEntered(t->screen, t->isLeftCorner);
    }
  }));
  subscriptions_.push_back(panels_.pointerExitedTrigger().subscribe([this](TriggerPanel* t) {
    if (t->kind == PanelKind::EdgeTrigger) edgeTriggerExited();
  }));
  subscriptions_.push_back(panels_.settingsChanged().subscribe([this] { noticeSettings(); }));
  activationToken_ = model_.platform().workspace->notificationCenter().addObserver(
      workspace_notification::DidActivateApplication, [this](const Notification& note) {
        if (startupInteractionHoldOpen_ || !settings().autoHideEnabled) return;
        if (note.processIdentifier &&
            *note.processIdentifier != model_.platform().workspace->ownProcessIdentifier()) {
          hidePanelsImmediately();
        }
      });
  model_.taskResizePauseHandler = [this](bool paused) { setTaskResizePaused(paused); };
}

AutoHide::~AutoHide() {
  model_.platform().workspace->notificationCenter().removeObserver(activationToken_);
  model_.taskResizePauseHandler = nullptr;
}

bool AutoHide::fadeTimerRunning() const {
  return running(fadeTimer_);
}

bool AutoHide::autoHideDelayTimerRunning() const {
  return running(autoHideDelayTimer_);
}

bool AutoHide::topEdgeShowPending() const {
  return running(topEdgeShowWorkItem_);
}

// ---- plumbing -------------------------------------------------------------------

const Settings& AutoHide::settings() const {
  return model_.settings;
}

double AutoHide::now() const {
  return runLoop_.now();
}

Point AutoHide::mouse() const {
  return model_.platform().pointer->location();
}

bool AutoHide::startMenuContainsMouse() const {
  return hooks_.startMenuContainsMouse && hooks_.startMenuContainsMouse();
}

bool AutoHide::workspacePopupHoldsBar() const {
  return hooks_.workspacePopupHoldsBar && hooks_.workspacePopupHoldsBar();
}

void AutoHide::setStartMenuOpacity(double opacity) {
  if (hooks_.setStartMenuOpacity) hooks_.setStartMenuOpacity(opacity);
}

void AutoHide::setTaskbarHidden(bool hidden) {
  if (hooks_.setTaskbarHidden) hooks_.setTaskbarHidden(hidden);
}

bool AutoHide::animates() const {
  return settings().appRefreshRate > 0 && settings().animationDurationMS > 0 &&
         settings().animationStyle != animation_style::InstantHide;
}

bool AutoHide::paused() const {
  bool inactive = hooks_.systemIsInactive && hooks_.systemIsInactive();
  return inactive && settings().expertPauseWhenDisplaySleeps;
}

void AutoHide::stopTimers() {
  autoHideDelayTimer_.reset();
  fadeTimer_.reset();
}

TaskbarPanel* AutoHide::panelOnScreen(const Screen& screen) const {
  for (const auto& panel : panels_.panels()) {
    if (panel->screen == screen) return panel.get();
  }
  return nullptr;
}

// ---- panel writes -----------------------------------------------------------------

void AutoHide::setPanelVisibility(TaskbarPanel& panel, double alpha, bool ignoresMouse) {
  fadeIns_.erase(panel.serial);
  PanelWindow& window = *panel.window;
  if (!settings().expertAvoidRedundantPanelWrites) {
    window.setAlpha(alpha);
    window.setIgnoresMouseEvents(ignoresMouse);
    return;
  }
  if (std::abs(window.alpha() - alpha) > kAlphaTolerance) window.setAlpha(alpha);
  if (window.ignoresMouseEvents() != ignoresMouse) window.setIgnoresMouseEvents(ignoresMouse);
}

void AutoHide::resetTransform(TaskbarPanel& panel) {
  if (!panel.window->transform().isIdentity()) panel.window->setTransform({});
}

void AutoHide::refitFrame(TaskbarPanel& panel, double normalHeight) {
  // Measured against the primary row's 34 on a top edge while the frame itself
  // adds the 28 of the menu strip: a top bar's frame is written at every tick,
  // which costs nothing but a redundant write.
  double wanted = normalHeight + (isTopEdge(panels_.location()) ? kPanelThickness : 0);
  Rect frame = panel.window->frame();
  double actual = isSideEdge(panels_.location()) ? frame.width : frame.height;
  if (std::abs(actual - wanted) > kRefitTolerance) panels_.applyPanelFrame(panel, normalHeight);
}

void AutoHide::animatePanelIn(TaskbarPanel& panel) {
  const Settings& s = settings();
  double duration = static_cast<double>(s.appContainerFadeInMS);
  if (duration < 1 || s.animationStyle == animation_style::InstantHide) {
    setPanelVisibility(panel, 1, false);
    resetTransform(panel);
    return;
  }
  fadeIns_.erase(panel.serial);
  panel.window->setIgnoresMouseEvents(false);
  panel.window->setAlpha(0);
  resetTransform(panel);
  FadeIn fadeIn;
  fadeIn.start = now();
  fadeIn.duration = duration / 1000;
  fadeIn.curve = hideTimingFunction(s.animationStyle);
  fadeIn.from = showStartTransform(s.animationStyle, panels_.location());
  if (!fadeIn.from.isIdentity()) panel.window->setTransform(fadeIn.from);
  fadeIns_[panel.serial] = fadeIn;
  if (!running(fadeInTimer_)) {
    double interval = tickInterval(s.appRefreshRate);
    fadeInTimer_ =
        runLoop_.scheduleTimer(interval, interval, interval / 10, [this] { stepFadeIns(); });
  }
}

void AutoHide::stepFadeIns() {
  for (const auto& panel : panels_.panels()) {
    auto found = fadeIns_.find(panel->serial);
    if (found == fadeIns_.end()) continue;
    const FadeIn& fadeIn = found->second;
    double progress = std::clamp((now() - fadeIn.start) / fadeIn.duration, 0.0, 1.0);
    double value = timingValue(fadeIn.curve, progress);
    panel->window->setAlpha(value);
    if (!fadeIn.from.isIdentity()) {
      HideTransform step;
      step.scale = fadeIn.from.scale + (1 - fadeIn.from.scale) * value;
      step.dx = fadeIn.from.dx * (1 - value);
      step.dy = fadeIn.from.dy * (1 - value);
      panel->window->setTransform(progress >= 1 ? HideTransform{} : step);
    }
    if (progress >= 1) fadeIns_.erase(found);
  }
  std::erase_if(fadeIns_, [this](const auto& entry) {
    const auto& all = panels_.panels();
    return std::none_of(all.begin(), all.end(),
                        [&](const auto& panel) { return panel->serial == entry.first; });
  });
  if (fadeIns_.empty()) fadeInTimer_.reset();
}

// ---- timers -------------------------------------------------------------------------

void AutoHide::scheduleAutoHideCheck() {
  autoHideDelayTimer_.reset();
  if (paused()) return;
  if (!settings().autoHideEnabled || hiddenEdgeTriggersActive_) return;
  double delay = std::max(static_cast<double>(settings().autoHideDelayMS) / 1000, kMinimumDelay);
  autoHideDelayTimer_ = runLoop_.scheduleTimer(delay, 0, 0, [this] { autoHideDelayDidFire(); });
}

void AutoHide::autoHideDelayDidFire() {
  autoHideDelayTimer_.reset();
  autoHideTick();
  if (!settings().autoHideEnabled || panelsAreFullyHidden_) return;
  if (startMenuContainsMouse() || workspacePopupHoldsBar() || !model_.openGroupedLists->empty()) {
    scheduleAutoHideCheck();
  }
}

void AutoHide::startFadeTimer() {
  if (running(fadeTimer_) || !animates() || paused()) return;
  double interval = tickInterval(settings().appRefreshRate);
  fadeTimer_ =
      runLoop_.scheduleTimer(interval, interval, interval / 10, [this] { autoHideTick(); });
}

// ---- the tick -------------------------------------------------------------------------

bool AutoHide::pointerAtEdge(const TaskbarPanel& panel, Point p) const {
  const Rect& frame = panel.screen.frame;
  const std::string& location = panels_.location();
  if (isSideEdge(location)) {
    double low = location == RightSide ? frame.maxX() - 1 : frame.minX();
    return p.x >= low && p.x <= low + 1 && p.y >= frame.minY() && p.y <= frame.maxY();
  }
  if (p.x < frame.minX() || p.x > frame.maxX()) return false;
  if (isTopEdge(location)) return p.y >= frame.maxY() - 1 && p.y <= frame.maxY() + 1;
  return p.y >= frame.minY() && p.y <= frame.minY() + 1;
}

bool AutoHide::pointerInside(const TaskbarPanel& panel, Point p) const {
  Rect rect = panel.window->frame();
  const std::string& location = panels_.location();
  if (isSideEdge(location)) return rect.contains(p);
  if (isTopBar(location)) {
    rect.height = std::max(rect.height - kTopBarMenuBand, 0.0);
    return rect.contains(p);
  }
  Rect row{rect.x, rect.y, rect.width, kBottomHitHeight};
  if (row.contains(p)) return true;
  double edge = model_.primaryOverflowLeftEdge > 0
                    ? std::min(model_.primaryOverflowLeftEdge.get(), rect.width)
                    : rect.width;
  Rect zone;
  zone.width = std::max(rect.width - edge, 0.0);
  zone.x = location == BottomRight ? rect.minX() : rect.minX() + edge;
  zone.y = rect.y;
  bool cardsOut = model_.taskOverflowRowCount >= 2 && model_.taskOverflowRowsVisible;
  zone.height = cardsOut ? rect.height / 4 : kBottomHitHeight;
  return zone.contains(p);
}

AutoHideState AutoHide::state() const {
  if (startupInteractionHoldOpen_) return AutoHideState::Hold;
  if (topEdgeRehideActive_) return AutoHideState::TopRehide;
  if (panelsAreFullyHidden_) {
    return reshowLockoutHolds(mouse()) ? AutoHideState::Lockout : AutoHideState::Hidden;
  }
  return running(fadeTimer_) ? AutoHideState::Fading : AutoHideState::Open;
}

void AutoHide::holdEveryPanelOpen() {
  leaveHidden();
  for (const auto& panel : panels_.panels()) {
    setPanelVisibility(*panel, 1, false);
    resetTransform(*panel);
    lastPointerInside_[panel->serial] = now();
  }
  setTaskbarHidden(false);
  setStartMenuOpacity(1);
}

void AutoHide::leaveHidden() {
  panelsAreFullyHidden_ = false;
  popupsDismissedForCurrentHide_ = false;
  deactivateHiddenEdgeTriggers();
}

void AutoHide::autoHideTick() {
  const Settings& s = settings();
  // Hold: every panel stays shown until the user's first click or key.
  if (startupInteractionHoldOpen_) {
    holdEveryPanelOpen();
    return;
  }
  Point p = mouse();
  // Top rehide: the pending rehide decides, unless the pointer is in the real bar.
  if (topEdgeRehideActive_) {
    if (!pointerInRealBar(p)) return;
    cancelTopEdgeRehide();
  }
  // Hidden: nothing to do until the pointer reaches the one-point edge.
  if (panelsAreFullyHidden_ && s.autoHideEnabled && !startMenuContainsMouse() &&
      !workspacePopupHoldsBar() && !pointerAtHiddenEdge(p)) {
    return;
  }

  double normalHeight = panels_.overflowGeometry().normalHeight;
  bool allHidden = !panels_.panels().empty();
  bool anyFading = false;
  bool anyHiding = false;
  for (const auto& owned : panels_.panels()) {
    TaskbarPanel& panel = *owned;
    if (!s.autoHideEnabled) {
      showPanelOpen(panel, normalHeight);
      allHidden = false;
      continue;
    }
    const bool shown = panel.window->alpha() > kHiddenAlpha;
    const auto reasons = reasonsToStayShown({
        .shown = shown,
        .pointerInside = shown && pointerInside(panel, p),
        .pointerAtEdge = !shown && pointerAtEdge(panel, p),
        .startMenuContainsPointer = startMenuContainsMouse(),
        .workspacePopupHoldsBar = workspacePopupHoldsBar(),
        .groupListOpen = !model_.openGroupedLists->empty(),
    });
    if (!reasons.empty()) {
      keepPanelOpen(panel, shown, normalHeight);
      allHidden = false;
      continue;
    }
    if (!shown) continue;

    // Open until the delay since the pointer left is over, then Fading or Hidden.
    auto last = lastPointerInside_.try_emplace(panel.serial, now()).first->second;
    double elapsed = now() - last;
    double delay = static_cast<double>(s.autoHideDelayMS) / 1000;
    if (elapsed + kClockSlack < delay) {
      allHidden = false;
      continue;
    }
    const double opacity = fadePanel(panel, elapsed - delay);
    allHidden = allHidden && opacity <= kHiddenAlpha;
    anyFading = anyFading || opacity > kHiddenAlpha;
    anyHiding = true;
  }

  panelsAreFullyHidden_ = allHidden;
  setTaskbarHidden(allHidden);
  if (allHidden) setStartMenuOpacity(0);
  if (anyFading) {
    startFadeTimer();
  } else {
    fadeTimer_.reset();
  }
  if (allHidden) activateHiddenEdgeTriggers();
  if (anyHiding || allHidden) dismissPopupsOnce();
}

void AutoHide::showPanelOpen(TaskbarPanel& panel, double normalHeight) {
  lastPointerInside_[panel.serial] = now();
  setPanelVisibility(panel, 1, false);
  resetTransform(panel);
  setStartMenuOpacity(1);
  refitFrame(panel, normalHeight);
}

void AutoHide::keepPanelOpen(TaskbarPanel& panel, bool shown, double normalHeight) {
  popupsDismissedForCurrentHide_ = false;
  lastPointerInside_[panel.serial] = now();
  if (shown) {
    setPanelVisibility(panel, 1, false);
    resetTransform(panel);
  } else {
    animatePanelIn(panel);
  }
  setStartMenuOpacity(1);
  refitFrame(panel, normalHeight);
  if (!shown && settings().lockApplicationsContainerToTaskbar && hooks_.onStart) {
    hooks_.onStart(panel.window->frame());
  }
}

double AutoHide::fadePanel(TaskbarPanel& panel, double sinceDelayEnded) {
  const Settings& s = settings();
  if (!animates()) {
    setPanelVisibility(panel, 0, true);
    setStartMenuOpacity(0);
    return 0;
  }
  double duration = static_cast<double>(s.animationDurationMS) / 1000;
  double progress = std::clamp(sinceDelayEnded / duration, 0.0, 1.0);
  double opacity = fadeOpacity(progress, s.animationStyle);
  setPanelVisibility(panel, opacity, false);
  HideTransform transform = hideTransform(progress, s.animationStyle, panels_.location());
  if (transform.isIdentity()) {
    resetTransform(panel);
  } else {
    panel.window->setTransform(transform);
  }
  setStartMenuOpacity(opacity);
  if (opacity <= kHiddenAlpha) setPanelVisibility(panel, 0, true);
  return opacity;
}

void AutoHide::dismissPopupsOnce() {
  if (popupsDismissedForCurrentHide_) return;
  popupsDismissedForCurrentHide_ = true;
  if (hooks_.dismissOpenPopups) hooks_.dismissOpenPopups();
}

// ---- hiding at once and the triggers ---------------------------------------------------------

void AutoHide::hidePanelsImmediately() {
  stopTimers();
  for (const auto& panel : panels_.panels()) {
    setPanelVisibility(*panel, 0, true);
    resetTransform(*panel);
  }
  panelsAreFullyHidden_ = true;
  setStartMenuOpacity(0);
  setTaskbarHidden(true);
  activateHiddenEdgeTriggers();
  dismissPopupsOnce();
}

void AutoHide::activateHiddenEdgeTriggers() {
  if (hiddenEdgeTriggersActive_ || panels_.edgeTriggerPanels().empty()) return;
  hiddenEdgeTriggersActive_ = true;
  autoHideDelayTimer_.reset();
  for (const auto& trigger : panels_.edgeTriggerPanels())
    trigger->window->orderFront();
  if (settings().enableTaskbarCornerActions && panels_.location() == TopLeft) {
    for (const auto& corner : panels_.topCornerTriggerPanels())
      corner->window->orderFront();
  }
}

void AutoHide::deactivateHiddenEdgeTriggers() {
  if (!hiddenEdgeTriggersActive_) return;
  hiddenEdgeTriggersActive_ = false;
  for (const auto& trigger : panels_.edgeTriggerPanels())
    trigger->window->orderOut();
}

void AutoHide::edgeTriggerEntered() {
  const std::string& location = panels_.location();
  if (!hiddenEdgeTriggersActive_) return;
  if (isTopBar(location) && isReshowLockedOut()) return;
  if (settings().enableTaskbarCornerActions && (location == TopLeft || location == BottomLeft)) {
    Point p = mouse();
    for (const auto& screen : model_.platform().screens->screens()) {
      if (!touches(screen.frame, p)) continue;
      bool left = p.x <= screen.frame.minX() + kCornerReach;
      bool right = p.x >= screen.frame.maxX() - kCornerReach;
      if (!left && !right) break;
      showPanelsFromEdge();
      TaskbarPanel* panel = panelOnScreen(screen);
      if (left) {
        if (panel && hooks_.onStartHover) hooks_.onStartHover(panel->window->frame());
      } else {
        model_.platform().notificationCenter->post(
            {std::string(notification::OpenTaskbarOverflowFromCorner), std::nullopt});
      }
      return;
    }
  }
  if (!isTopEdge(location)) {
    showPanelsFromEdge();
    return;
  }
  topEdgeShowWorkItem_.reset();
  double wait = location == LeftAlt ? kLeftAltShowWait
                                    : static_cast<double>(settings().topMacOSShowWaitMS) / 1000;
  if (isTopBar(location) && wait <= 0) {
    showPanelsFromEdge();
    return;
  }
  topEdgeShowWorkItem_ = runLoop_.scheduleTimer(wait, 0, 0, [this] {
    if (hiddenEdgeTriggersActive_) showPanelsFromEdge();
  });
}

void AutoHide::edgeTriggerExited() {
  if (isTopEdge(panels_.location())) topEdgeShowWorkItem_.reset();
}

void AutoHide::showPanelsFromEdge() {
  topEdgeShowWorkItem_.reset();
  if (!hiddenEdgeTriggersActive_) return;
  leaveHidden();
  autoHideDelayTimer_.reset();
  autoHideTick();
  startTopEdgeRehide();
}

void AutoHide::startTopEdgeRehide() {
  if (!isTopBar(panels_.location()) || !settings().autoHideEnabled) return;
  topEdgeRehideWorkItem_.reset();
  if (settings().topMacOSRehideDelayMS < 0) {
    topEdgeRehideActive_ = false;
    return;
  }
  topEdgeRehideActive_ = true;
  autoHideDelayTimer_.reset();
  double delay = static_cast<double>(settings().topMacOSRehideDelayMS) / 1000;
  topEdgeRehideWorkItem_ = runLoop_.scheduleTimer(delay, 0, 0, [this] { topEdgeRehideFired(); });
}

void AutoHide::topEdgeRehideFired() {
  if (!topEdgeRehideActive_) return;
  Point p = mouse();
  if (pointerInRealBar(p)) {
    cancelTopEdgeRehide();
    return;
  }
  topEdgeRehideActive_ = false;
  topEdgeRehideWorkItem_.reset();
  topEdgeReshowLockoutStartedAt_ = now();
  topEdgeReshowLockoutMouse_ = p;
  double delay = static_cast<double>(settings().autoHideDelayMS) / 1000;
  for (const auto& panel : panels_.panels())
    lastPointerInside_[panel->serial] = now() - delay;
  autoHideTick();
}

void AutoHide::cancelTopEdgeRehide() {
  if (!topEdgeRehideActive_) return;
  if (topEdgeRehideWorkItem_) {
    topEdgeRehideWorkItem_.reset();
  }
  topEdgeRehideActive_ = false;
  if (settings().autoHideEnabled) scheduleAutoHideCheck();
}

void AutoHide::clearRehideState() {
  topEdgeRehideWorkItem_.reset();
  topEdgeRehideActive_ = false;
  topEdgeReshowLockoutStartedAt_.reset();
  topEdgeReshowLockoutMouse_.reset();
}

bool AutoHide::pointerInRealBar(Point p) {
  if (!isTopBar(panels_.location())) return false;
  if (startMenuContainsMouse()) return true;
  for (const auto& panel : panels_.panels()) {
    if (panel->window->alpha() <= kHiddenAlpha) continue;
    Rect rect = panel->window->frame();
    rect.height = std::max(rect.height - kRealBarMenuBand, 0.0);
    if (rect.contains(p)) return true;
  }
  return false;
}

bool AutoHide::reshowLockoutHolds(Point p) const {
  if (!topEdgeReshowLockoutStartedAt_ || !topEdgeReshowLockoutMouse_) return false;
  int64_t wait = settings().topMacOSReshowWaitMS;
  if (wait >= 1 && (now() - *topEdgeReshowLockoutStartedAt_) * 1000 < static_cast<double>(wait)) {
    return true;
  }
  double moved =
      std::hypot(p.x - topEdgeReshowLockoutMouse_->x, p.y - topEdgeReshowLockoutMouse_->y);
  return moved < settings().topMacOSReshowMouseMovePixels;
}

bool AutoHide::isReshowLockedOut() {
  if (reshowLockoutHolds(mouse())) return true;
  topEdgeReshowLockoutStartedAt_.reset();
  topEdgeReshowLockoutMouse_.reset();
  return false;
}

bool AutoHide::pointerAtHiddenEdge(Point p) const {
  const std::string& location = panels_.location();
  for (const auto& panel : panels_.panels()) {
    Rect frame = panel->window->frame();
    if (isSideEdge(location)) {
      double low = location == RightSide ? frame.maxX() - 1 : frame.minX();
      if (p.x >= low && p.x <= low + 1 && p.y >= frame.minY() && p.y < frame.maxY()) return true;
      continue;
    }
    if (p.x < frame.minX() || p.x >= frame.maxX()) continue;
    if (isTopBar(location)) {
      double top = panel->screen.frame.maxY();
      if (p.y >= top - 1 && p.y <= top + 1) return true;
    } else if (p.y >= frame.minY() && p.y <= frame.minY() + 1) {
      return true;
    }
  }
  return false;
}

void AutoHide::topCornerEntered(const Screen& screen, bool isLeft) {
  if (!hiddenEdgeTriggersActive_ || !settings().enableTaskbarCornerActions) return;
  const std::string& location = panels_.location();
  if (location != TopLeft && !(location == LeftAlt && isLeft)) return;
  topEdgeShowWorkItem_.reset();
  leaveHidden();
  autoHideDelayTimer_.reset();
  for (const auto& panel : panels_.panels()) {
    animatePanelIn(*panel);
    lastPointerInside_[panel->serial] = now();
  }
  setTaskbarHidden(false);
  setStartMenuOpacity(1);
  TaskbarPanel* panel = panelOnScreen(screen);
  if (isLeft) {
    if (panel && hooks_.onStartHover) hooks_.onStartHover(panel->window->frame());
  } else {
    model_.platform().notificationCenter->post(
        {std::string(notification::OpenTaskbarOverflowFromCorner), std::nullopt});
  }
}

// ---- panel tracking ---------------------------------------------------------------------------

void AutoHide::panelPointerEntered(TaskbarPanel& panel) {
  if (topEdgeRehideActive_ && pointerInRealBar(mouse())) cancelTopEdgeRehide();
  autoHideDelayTimer_.reset();
  lastPointerInside_[panel.serial] = now();
  if (!settings().autoHideEnabled) return;
  if (!running(fadeTimer_)) {
    autoHideTick();
    return;
  }
  // The bar was fading: it does not fade back but shows itself anew.
  fadeTimer_.reset();
  for (const auto& each : panels_.panels()) {
    setPanelVisibility(*each, 0, true);
    resetTransform(*each);
  }
  panelsAreFullyHidden_ = true;
  setStartMenuOpacity(0);
  panelsAreFullyHidden_ = false;
  for (const auto& each : panels_.panels()) {
    animatePanelIn(*each);
    lastPointerInside_[each->serial] = now();
  }
  setTaskbarHidden(false);
  setStartMenuOpacity(1);
}

void AutoHide::panelPointerExited(TaskbarPanel& panel) {
  lastPointerInside_[panel.serial] = now();
  if (settings().autoHideEnabled) scheduleAutoHideCheck();
}

// ---- requests from other parts -----------------------------------------------------------------

std::optional<Rect> AutoHide::revealPanelsForStart() {
  const auto& all = panels_.panels();
  if (all.empty()) return std::nullopt;
  size_t main = model_.platform().screens->mainScreenIndex();
  TaskbarPanel* picked = all.front().get();
  for (const auto& panel : all) {
    if (panel->screenIndex == main) {
      picked = panel.get();
      break;
    }
  }
  leaveHidden();
  autoHideDelayTimer_.reset();
  for (const auto& panel : all) {
    if (panel->window->alpha() <= kHiddenAlpha) {
      animatePanelIn(*panel);
    } else {
      setPanelVisibility(*panel, 1, false);
    }
    lastPointerInside_[panel->serial] = now();
  }
  setTaskbarHidden(false);
  setStartMenuOpacity(1);
  return picked->window->frame();
}

void AutoHide::beginStartupInteractionHold() {
  startupInteractionHoldOpen_ = true;
  stopTimers();
  holdEveryPanelOpen();
  startupHoldTimer_ = runLoop_.scheduleTimer(kStartupHoldFrameDelay, 0, 0, [this] {
    if (!startupInteractionHoldOpen_) return;
    double normalHeight = panels_.overflowGeometry().normalHeight;
    for (const auto& panel : panels_.panels()) {
      panels_.applyPanelFrame(*panel, normalHeight);
      setPanelVisibility(*panel, 1, false);
    }
  });
  std::weak_ptr<bool> alive = alive_;
  startupInteractionMonitor_ =
      model_.platform().pointer->pressed().subscribe([this, alive](PointerButton) {
        runLoop_.post([this, alive] {
          if (!alive.expired()) endStartupInteractionHold();
        });
      });
}

void AutoHide::endStartupInteractionHold() {
  if (!startupInteractionHoldOpen_) return;
  startupInteractionHoldOpen_ = false;
  model_.initialSetupForceOverflowOpen = false;
  startupInteractionMonitor_.reset();
  if (settings().autoHideEnabled) scheduleAutoHideCheck();
}

void AutoHide::setTaskResizePaused(bool paused) {
  if (paused) {
    stopTimers();
  } else if (settings().autoHideEnabled) {
    scheduleAutoHideCheck();
  }
}

// ---- reactions ----------------------------------------------------------------------------------

void AutoHide::panelsRebuilt() {
  for (const auto& panel : panels_.panels())
    lastPointerInside_[panel->serial] = now();
  panelsAreFullyHidden_ = false;
  popupsDismissedForCurrentHide_ = false;
  if (settings().autoHideEnabled) scheduleAutoHideCheck();
}

void AutoHide::noticeSettings() {
  const Settings& s = settings();
  if (s.autoHideEnabled != lastAutoHideEnabled_) {
    lastAutoHideEnabled_ = s.autoHideEnabled;
    if (s.autoHideEnabled) {
      autoHideTick();
      scheduleAutoHideCheck();
    } else {
      panelsAreFullyHidden_ = false;
      popupsDismissedForCurrentHide_ = false;
      deactivateHiddenEdgeTriggers();
      autoHideTick();
      stopTimers();
    }
  }
  if (s.appRefreshRate != lastAppRefreshRate_) {
    lastAppRefreshRate_ = s.appRefreshRate;
    if (running(fadeTimer_)) {
      fadeTimer_.reset();
      startFadeTimer();
    }
  }
  systemInactiveChanged();
}

void AutoHide::systemInactiveChanged() {
  bool now = paused();
  if (now == lastPaused_) return;
  lastPaused_ = now;
  if (now) {
    stopTimers();
    for (const auto& trigger : panels_.edgeTriggerPanels())
      trigger->window->orderOut();
  } else if (hiddenEdgeTriggersActive_) {
    for (const auto& trigger : panels_.edgeTriggerPanels())
      trigger->window->orderFront();
  } else {
    autoHideTick();
    if (settings().autoHideEnabled) scheduleAutoHideCheck();
  }
}

}  // namespace tolv
