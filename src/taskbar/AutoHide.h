#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "platform/Geometry.h"
#include "platform/RunLoop.h"
#include "platform/Signal.h"
#include "taskbar/AutoHideReasons.h"
#include "taskbar/FadeCurves.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

class AppModel;
struct Settings;

// What the auto-hide logic asks of the rest of the application. Each has a
// harmless default, so that a part not built yet simply isn't there.
struct AutoHideHooks {
  // Open the start menu from a panel's frame, for a press or a hover.
  std::function<void(const Rect&)> onStart;
  std::function<void(const Rect&)> onStartHover;
  std::function<bool()> startMenuContainsMouse;
  std::function<void(double)> setStartMenuOpacity;
  std::function<void()> dismissOpenPopups;
  // The bar went out of view or came back; the refresh pipeline pauses meanwhile.
  std::function<void(bool)> setTaskbarHidden;
  std::function<bool()> systemIsInactive;
  // The workspace popup is shown and holds the pointer or its own context menu.
  std::function<bool()> workspacePopupHoldsBar;
};

// Hides the bar when the pointer leaves it and brings it back from the screen
// edge: one tick over all panels, driven by a one-shot delay timer and a fade
// timer on the run loop, pointer tracking on panels and triggers, extra waits
// for top bars (whose edge the menu bar shares) and a hold at launch.
class AutoHide {
 public:
  AutoHide(AppModel& model, TaskbarPanels& panels, AutoHideHooks hooks);
  ~AutoHide();
  AutoHide(const AutoHide&) = delete;
  AutoHide& operator=(const AutoHide&) = delete;

  void autoHideTick();
  void scheduleAutoHideCheck();

  // Every panel out of view at once, its triggers in.
  void hidePanelsImmediately();
  // Shows every panel and gives the frame of the main screen's panel.
  std::optional<Rect> revealPanelsForStart();
  // Keeps the bar open after launch until the user's first click or key.
  void beginStartupInteractionHold();
  void endStartupInteractionHold();

  void panelPointerEntered(TaskbarPanel& panel);
  void panelPointerExited(TaskbarPanel& panel);
  void edgeTriggerEntered();
  void edgeTriggerExited();
  void topCornerEntered(const Screen& screen, bool isLeft);

  // Reactions to state that has no notification of its own.
  void systemInactiveChanged();
  // A tab resize stops the timers while it lasts.
  void setTaskResizePaused(bool paused);

  // State, for views and tests.
  AutoHideState state() const;
  bool panelsAreFullyHidden() const { return panelsAreFullyHidden_; }
  bool hiddenEdgeTriggersActive() const { return hiddenEdgeTriggersActive_; }
  bool topEdgeRehideActive() const { return topEdgeRehideActive_; }
  bool startupInteractionHoldOpen() const { return startupInteractionHoldOpen_; }
  bool isReshowLockedOut();
  bool fadeTimerRunning() const;
  bool autoHideDelayTimerRunning() const;
  bool topEdgeShowPending() const;

  // Sets a panel's alpha and whether clicks pass through it, sparing the window
  // server the writes that change nothing when expertAvoidRedundantPanelWrites
  // is on. Ends a show animation of the panel.
  void setPanelVisibility(TaskbarPanel& panel, double alpha, bool ignoresMouse);

 private:
  const Settings& settings() const;
  double now() const;
  Point mouse() const;
  bool startMenuContainsMouse() const;
  bool workspacePopupHoldsBar() const;
  void setStartMenuOpacity(double opacity);
  void setTaskbarHidden(bool hidden);

  void autoHideDelayDidFire();
  void startFadeTimer();
  void stopTimers();
  bool animates() const;
  bool paused() const;
  void resetTransform(TaskbarPanel& panel);
  void refitFrame(TaskbarPanel& panel, double normalHeight);
  // The effects of the tick's decisions on one panel: shown with auto-hide off;
  // kept open by a reason to stay shown; faded by the time since the delay
  // ended (its opacity now).
  void showPanelOpen(TaskbarPanel& panel, double normalHeight);
  void keepPanelOpen(TaskbarPanel& panel, bool shown, double normalHeight);
  double fadePanel(TaskbarPanel& panel, double sinceDelayEnded);
  // Hold: every panel shown, the bar counted as shown.
  void holdEveryPanelOpen();
  // The bar stops counting as hidden; its triggers go out.
  void leaveHidden();
  // The open popups close once per hide.
  void dismissPopupsOnce();
  void animatePanelIn(TaskbarPanel& panel);
  void stepFadeIns();

  bool pointerAtEdge(const TaskbarPanel& panel, Point mouse) const;
  bool pointerInside(const TaskbarPanel& panel, Point mouse) const;
  bool pointerInRealBar(Point mouse);
  bool pointerAtHiddenEdge(Point mouse) const;
  // Lockout: the wait after a rehide is running, or the pointer has not yet
  // moved far enough from where it was.
  bool reshowLockoutHolds(Point mouse) const;

  void activateHiddenEdgeTriggers();
  void deactivateHiddenEdgeTriggers();
  void showPanelsFromEdge();
  void startTopEdgeRehide();
  void topEdgeRehideFired();
  void cancelTopEdgeRehide();
  void clearRehideState();
  void panelsRebuilt();
  void noticeSettings();
  TaskbarPanel* panelOnScreen(const Screen& screen) const;

  AppModel& model_;
  TaskbarPanels& panels_;
  AutoHideHooks hooks_;
  RunLoop& runLoop_;

  std::unique_ptr<Timer> autoHideDelayTimer_;
  std::unique_ptr<Timer> fadeTimer_;
  std::unique_ptr<Timer> topEdgeShowWorkItem_;
  std::unique_ptr<Timer> topEdgeRehideWorkItem_;
  std::unique_ptr<Timer> startupHoldTimer_;
  bool topEdgeRehideActive_ = false;
  std::optional<double> topEdgeReshowLockoutStartedAt_;
  std::optional<Point> topEdgeReshowLockoutMouse_;
  bool panelsAreFullyHidden_ = false;
  bool popupsDismissedForCurrentHide_ = false;
  bool hiddenEdgeTriggersActive_ = false;
  std::map<uint64_t, double> lastPointerInside_;
  bool startupInteractionHoldOpen_ = false;
  Subscription startupInteractionMonitor_;

  // Panels coming back into view, by panel serial.
  struct FadeIn {
    double start = 0;
    double duration = 0;
    TimingCurve curve = TimingCurve::EaseOut;
    HideTransform from;
  };
  std::map<uint64_t, FadeIn> fadeIns_;
  std::unique_ptr<Timer> fadeInTimer_;

  bool lastAutoHideEnabled_;
  int64_t lastAppRefreshRate_;
  bool lastPaused_;
  std::vector<Subscription> subscriptions_;
  uint64_t activationToken_ = 0;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv
