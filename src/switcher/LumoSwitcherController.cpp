// The switcher's life: opening, the keyboard, the commit, closing, and the hot keys.

#include "switcher/LumoSwitcherController.h"

#include <algorithm>

#include "model/AppModel.h"
#include "switcher/SwitcherLists.h"

namespace tolv {

LumoSwitcherController::LumoSwitcherController(AppModel& model,
                                               std::unique_ptr<SwitcherOverlay> overlay)
    : model_(model), overlay_(std::move(overlay)) {
  RunLoop* runLoop = model_.platform().runLoop;
  watchdog_ = std::make_unique<LumoSafetyWatchdog>(LumoSafetyWatchdog::systemHooks(
      [runLoop](std::function<void()> work) { runLoop->postFromAnyThread(std::move(work)); }));
  Defaults& defaults = model_.defaults();
  state_.previewMode = previewModeFromText(stringValue(defaults.value(kLumoPreviewModeKey)));
  state_.thumbnailSize =
      thumbnailSizeFromSetting(doubleValue(defaults.value(kLumoThumbnailSizeKey)));
}

LumoSwitcherController::~LumoSwitcherController() {
  stop();
}

void LumoSwitcherController::post(std::function<void(LumoSwitcherController&)> work) {
  std::weak_ptr<bool> alive = alive_;
  model_.platform().runLoop->post([this, alive, work = std::move(work)] {
    if (!alive.expired()) work(*this);
  });
}

void LumoSwitcherController::notify() {
  if (overlay_) overlay_->stateChanged();
  changed.emit();
}

bool LumoSwitcherController::panelIsVisible() const {
  return overlay_ && overlay_->isVisible();
}

// ---- hot keys ------------------------------------------------------------------------------

void LumoSwitcherController::start() {
  std::weak_ptr<bool> alive = alive_;
  if (NotificationCenter* center = model_.platform().notificationCenter) {
    settingObserver_ =
        center->addObserver(kControlTabLumoSettingChanged, [this, alive](const Notification&) {
          if (alive.expired()) return;
          post([](auto& c) { c.applyHotKeySetting(); });
        });
  }
  applyHotKeySetting();
}

void LumoSwitcherController::stop() {
  const Platform& platform = model_.platform();
  if (settingObserver_ && platform.notificationCenter) {
    platform.notificationCenter->removeObserver(*settingObserver_);
  }
  settingObserver_.reset();
  HotKeys& keys = *platform.hotKeys;
  for (auto* ref : {&forwardHotKeyRef_, &reverseHotKeyRef_}) {
    if (*ref) keys.unregisterHotKey(**ref);
    ref->reset();
  }
  if (hotKeyHandler_) keys.removeHandler(*hotKeyHandler_);
  hotKeyHandler_.reset();
  removeMonitors();
  watchdog_->stop();
  resetCaptures(true);
  if (overlay_ && overlay_->isVisible()) overlay_->hide();
}

void LumoSwitcherController::applyHotKeySetting() {
  HotKeys& keys = *model_.platform().hotKeys;
  if (!model_.settings.controlTabLumoSwitcherEnabled) {
    for (auto* ref : {&forwardHotKeyRef_, &reverseHotKeyRef_}) {
      if (*ref) keys.unregisterHotKey(**ref);
      ref->reset();
    }
    close();
    return;
  }
  if (!hotKeyHandler_) {
    std::weak_ptr<bool> alive = alive_;
    hotKeyHandler_ = keys.installHandler([this, alive](const HotKeyID& id) {
      if (alive.expired() || id.signature != kLumoHotKeySignature) return false;
      if (id.id != lumo_hot_key::Forward && id.id != lumo_hot_key::Reverse) return false;
      const bool reverse = id.id == lumo_hot_key::Reverse;
      post([reverse](auto& c) { c.handleHotKey(reverse); });
      return true;
    });
  }
  // A combination another client holds stays unregistered until the next call.
  if (!forwardHotKeyRef_) {
    forwardHotKeyRef_ = keys.registerHotKey({kLumoHotKeySignature, lumo_hot_key::Forward},
                                            key_code::Tab, key_modifier::Control);
  }
  if (!reverseHotKeyRef_) {
    reverseHotKeyRef_ =
        keys.registerHotKey({kLumoHotKeySignature, lumo_hot_key::Reverse}, key_code::Tab,
                            key_modifier::Control | key_modifier::Shift);
  }
}

bool LumoSwitcherController::stepAllowed() {
  const double now = model_.platform().runLoop->now();
  if (now - lastKeyboardNavigationTime_ < kKeyStepSeconds) return false;
  lastKeyboardNavigationTime_ = now;
  return true;
}

void LumoSwitcherController::handleHotKey(bool reverse) {
  if (!model_.settings.controlTabLumoSwitcherEnabled) return;
  if (!panelIsVisible()) {
    open(false);
    return;
  }
  if (stepAllowed()) moveSelection(reverse);
}

// ---- opening and closing -------------------------------------------------------------------

void LumoSwitcherController::resetState(bool lockOpen) {
  state_.lockOpen = lockOpen;
  state_.selection = {};
  state_.expansionOverrides.clear();
  state_.previousStripWindows.clear();
  state_.workspaces.clear();
  state_.recentTabWindows.clear();
  state_.priorityGroups.clear();
  state_.normalGroups.clear();
  state_.thumbnailImage.reset();
  state_.thumbnailImages.clear();
  state_.closedWindowIDs.clear();
  state_.frozenActiveStripWindowIDs.clear();
  state_.frozenPreviousStripWindowIDs.clear();
  state_.scrollRequestTarget = lumo_id::LockRow;
  ++state_.scrollRequestSerial;
}

void LumoSwitcherController::fillSections(const LumoGroups& groups) {
  state_.priorityGroups = groups.priority;
  state_.normalGroups = groups.normal;
  std::set<std::string> listed;
  for (const auto* list : {&groups.priority, &groups.normal}) {
    for (const auto& group : *list) {
      for (const auto& window : group.windows)
        listed.insert(window.id);
    }
  }
  state_.previousStripWindows.clear();
  for (const auto& item : model_.runningApps.get()) {
    if (listed.count(item.id) && model_.showsPreviousStrip(item)) {
      state_.previousStripWindows.push_back(item);
    }
  }
  state_.workspaces = model_.managedWorkspaceTasks.get();
  state_.recentTabWindows.clear();
  for (const auto& item : model_.recentWindowItems()) {
    if (listed.count(item.id)) state_.recentTabWindows.push_back(item);
  }
}

void LumoSwitcherController::freezeStrips() {
  state_.frozenActiveStripWindowIDs.clear();
  state_.frozenPreviousStripWindowIDs.clear();
  const auto& active = model_.activeBlueStripWindowID.get();
  for (const auto* list : {&state_.priorityGroups, &state_.normalGroups}) {
    for (const auto& group : *list) {
      for (const auto& window : group.windows) {
        if (window.isActive || (active && *active == window.id)) {
          state_.frozenActiveStripWindowIDs.insert(window.id);
        }
        if (model_.showsPreviousStrip(window)) {
          state_.frozenPreviousStripWindowIDs.insert(window.id);
        }
      }
    }
  }
}

std::optional<Rect> LumoSwitcherController::overlayScreenFrame() const {
  const Platform& platform = model_.platform();
  auto screens = platform.screens->screens();
  if (screens.empty()) return std::nullopt;
  if (platform.pointer) {
    const Point mouse = platform.pointer->location();
    for (const auto& screen : screens) {
      if (screen.frame.contains(mouse)) return screen.frame;
    }
  }
  const size_t main = platform.screens->mainScreenIndex();
  return main < screens.size() ? screens[main].frame : screens.front().frame;
}

void LumoSwitcherController::open(bool lockOpen) {
  if (panelIsVisible() && lockOpen) {
    cancelPreview();
    state_.lockOpen = true;
    overlay_->bringToFront();
    watchdog_->start();
    watchdog_->beat();
    notify();
    return;
  }
  Defaults& defaults = model_.defaults();
  const auto storedText = stringValue(defaults.value(kLumoPreviewModeKey));
  const LumoPreviewMode stored = previewModeFromText(storedText);
  ScreenCapture* capture = model_.platform().screenCapture;
  state_.screenCaptureTrusted = capture && capture->preflightAccess();
  if (!state_.screenCaptureTrusted) {
    // This opening runs without previews; the user's stored choice stays.
    state_.previewMode = LumoPreviewMode::NoPreview;
    if (capture && !accessRequestedBefore_) {
      accessRequestedBefore_ = true;
      state_.screenCaptureTrusted = capture->requestAccess();
    }
  } else {
    state_.previewMode = stored;
  }

  model_.refreshRunningApps({.publish = true});
  const LumoGroups groups = lumoSwitcherGroups(model_);
  resetState(false);
  fillSections(groups);
  freezeStrips();
  state_.lockOpen = lockOpen;
  rebuildNavigation();
  navigationIndex_ = 0;

  auto frame = overlayScreenFrame();
  if (!frame || !overlay_) {
    close();
    return;
  }
  overlay_->showCovering(*frame);
  removeMonitors();
  installMonitors();
  watchdog_->start();
  watchdog_->beat();
  notify();
  // A tap quicker than the opening: Control is up already.
  if (!controlHeld()) releaseControl();
}

void LumoSwitcherController::close() {
  watchdog_->stop();
  removeMonitors();
  resetCaptures(true);
  if (overlay_ && overlay_->isVisible()) overlay_->hide();
  resetState(false);
  navigation_.clear();
  navigationIndex_ = 0;
  notify();
}

// ---- the keyboard --------------------------------------------------------------------------

void LumoSwitcherController::installMonitors() {
  HotKeys& keys = *model_.platform().hotKeys;
  std::weak_ptr<bool> alive = alive_;
  keyboardTaken_ = keys.takeKeyboard();
  localKeyMonitor_ =
      keys.addKeyDownMonitor(KeyMonitorScope::Local, [this, alive](int keyCode, uint32_t mods) {
        if (!alive.expired()) handleKeyDown(keyCode, mods);
      });
  localFlagsMonitor_ =
      keys.addFlagsChangedMonitor(KeyMonitorScope::Local, [this, alive](uint32_t modifiers) {
        if (!alive.expired()) handleFlagsChanged(modifiers);
      });
  // Control may come up while another application has the keyboard.
  globalFlagsMonitor_ =
      keys.addFlagsChangedMonitor(KeyMonitorScope::Global, [this, alive](uint32_t modifiers) {
        if (alive.expired()) return;
        post([modifiers](auto& c) { c.handleFlagsChanged(modifiers); });
      });
}

void LumoSwitcherController::removeMonitors() {
  HotKeys& keys = *model_.platform().hotKeys;
  if (localKeyMonitor_) keys.removeKeyDownMonitor(*localKeyMonitor_);
  localKeyMonitor_.reset();
  for (auto* monitor : {&localFlagsMonitor_, &globalFlagsMonitor_}) {
    if (*monitor) keys.removeFlagsChangedMonitor(**monitor);
    monitor->reset();
  }
  if (keyboardTaken_) keys.releaseKeyboard();
  keyboardTaken_ = false;
}

bool LumoSwitcherController::controlHeld() {
  return (model_.platform().hotKeys->heldModifiers() & key_modifier::Control) != 0;
}

bool LumoSwitcherController::handleKeyDown(int keyCode, uint32_t modifiers) {
  if (!panelIsVisible()) return false;
  switch (keyCode) {
    case key_code::Tab:
      // With Control held the hot key takes the press.
      if (!(modifiers & key_modifier::Control) && stepAllowed()) {
        moveSelection((modifiers & key_modifier::Shift) != 0);
      }
      return true;
    case key_code::Return:
    case key_code::Enter:
    case key_code::Space:
      commit();
      return true;
    case key_code::Escape:
      close();
      return true;
    case key_code::Down:
    case key_code::Up:
      if (stepAllowed()) moveSelectionAmongWindows(keyCode == key_code::Down ? 1 : -1);
      return true;
    default:
      return false;
  }
}

void LumoSwitcherController::handleFlagsChanged(uint32_t modifiers) {
  if (!panelIsVisible() || (modifiers & key_modifier::Control)) return;
  releaseControl();
}

void LumoSwitcherController::releaseControl() {
  if (state_.lockOpen) return;
  if (!state_.selection.applicationID) {
    close();
  } else {
    commit();
  }
}

// ---- the selection -------------------------------------------------------------------------

void LumoSwitcherController::rebuildNavigation() {
  navigation_ = buildNavigation(state_);
  navigationIndex_ = navigationIndexOf(navigation_, state_.selection);
}

void LumoSwitcherController::select(const NavTarget& target, bool scroll) {
  if (target.applicationID) state_.expansionOverrides.erase(*target.applicationID);
  state_.selection = {target.applicationID, target.windowID};
  if (scroll) {
    state_.scrollRequestTarget = target.scrollID;
    ++state_.scrollRequestSerial;
  }
  updatePreview();
  notify();
}

void LumoSwitcherController::moveSelection(bool reverse) {
  if (navigation_.empty()) return;
  navigationIndex_ = steppedIndex(navigationIndex_, navigation_.size(), reverse);
  select(navigation_[navigationIndex_], true);
}

void LumoSwitcherController::moveSelectionAmongWindows(int step) {
  auto index = windowStepIndex(navigation_, state_.selection, step);
  if (!index) return;
  navigationIndex_ = *index;
  select(navigation_[navigationIndex_], true);
}

void LumoSwitcherController::selectBy(Selection selection) {
  if (!panelIsVisible()) return;
  if (selection.applicationID) state_.expansionOverrides.erase(*selection.applicationID);
  state_.selection = std::move(selection);
  navigationIndex_ = navigationIndexOf(navigation_, state_.selection);
  updatePreview();
  notify();
}

void LumoSwitcherController::selectWindow(const std::string& windowID) {
  if (!resolveSwitcherWindow(state_, windowID)) return;
  for (const auto& target : navigation_) {
    if (target.windowID == windowID) {
      selectBy({target.applicationID, windowID});
      return;
    }
  }
}

void LumoSwitcherController::selectApplication(const std::string& groupID) {
  selectBy({groupID, std::nullopt});
}

void LumoSwitcherController::selectWorkspace(const std::string& workspaceID) {
  selectBy({lumo_id::Workspaces, workspaceID});
}

void LumoSwitcherController::selectSpecialWindow(const std::string& applicationID,
                                                 const std::string& windowID) {
  selectBy({applicationID, windowID});
}

void LumoSwitcherController::selectShowDesktop() {
  selectBy({lumo_id::RecentTabs, lumo_id::ShowDesktop});
  if (panelIsVisible() && state_.previewMode == LumoPreviewMode::FocusWindow) {
    runShowDesktop();
    overlay_->bringToFront();
  }
}

void LumoSwitcherController::setExpanded(const std::string& sectionID, bool expanded) {
  state_.expansionOverrides[sectionID] = expanded;
  notify();
}

// ---- committing ----------------------------------------------------------------------------

void LumoSwitcherController::commit() {
  const Selection selection = state_.selection;
  if (!selection.applicationID) {
    toggleLock();
    return;
  }
  if (selection.windowID == lumo_id::ShowDesktop) {
    openShowDesktop();
    return;
  }
  if (*selection.applicationID == lumo_id::Workspaces && selection.windowID) {
    openWorkspace(*selection.windowID);
    return;
  }
  if (!selection.windowID) {
    openApplication(*selection.applicationID);
    return;
  }
  openWindow(*selection.windowID);
}

void LumoSwitcherController::openWindow(const std::string& windowID) {
  auto item = resolveSwitcherWindow(state_, windowID);
  close();
  if (item) bringForward(*item);
}

void LumoSwitcherController::openApplication(const std::string& groupID) {
  auto group = findSwitcherGroup(state_, groupID);
  close();
  if (group) model_.activateGroup(*group);
}

void LumoSwitcherController::openWorkspace(const std::string& workspaceID) {
  std::optional<ManagedWorkspaceTask> task;
  for (const auto& workspace : state_.workspaces) {
    if (workspace.id == workspaceID) task = workspace;
  }
  close();
  if (task) model_.activateWorkspaceTask(*task);
}

void LumoSwitcherController::bringForward(const RunningAppItem& item) {
  model_.bringWindowForward(item);
}

// The desktop comes forward by hiding every other application.
void LumoSwitcherController::runShowDesktop() {
  model_.hideAllApplications();
}

void LumoSwitcherController::openShowDesktop() {
  runShowDesktop();
  if (state_.previewMode == LumoPreviewMode::FocusWindow && state_.lockOpen) {
    if (overlay_) overlay_->bringToFront();
    return;
  }
  close();
}

void LumoSwitcherController::toggleLock() {
  cancelPreview();
  state_.lockOpen = !state_.lockOpen;
  state_.selection = {};
  navigationIndex_ = 0;
  state_.scrollRequestTarget = lumo_id::LockRow;
  ++state_.scrollRequestSerial;
  notify();
  if (!state_.lockOpen && !controlHeld()) close();
}

// ---- acting on rows ------------------------------------------------------------------------

void LumoSwitcherController::hideAllWindows() {
  model_.hideAllWindows();
  if (overlay_ && panelIsVisible()) overlay_->bringToFront();
}

void LumoSwitcherController::closeAllWindows() {
  model_.closeAllWindows();
  if (overlay_ && panelIsVisible()) overlay_->bringToFront();
}

void LumoSwitcherController::closeWindow(const RunningAppItem& item) {
  model_.closeTask(item);
  if (!panelIsVisible()) return;
  bool stillListed = false;
  for (const auto& running : model_.runningApps.get())
    stillListed = stillListed || running.id == item.id;
  if (!stillListed) state_.closedWindowIDs.insert(item.id);
  overlay_->bringToFront();
  notify();
}

void LumoSwitcherController::quitWindow(const RunningAppItem& item) {
  model_.quitTaskApplication(item);
  if (panelIsVisible()) reload({}, item.processIdentifier);
}

void LumoSwitcherController::refreshList() {
  if (panelIsVisible()) reload({}, std::nullopt);
}

void LumoSwitcherController::reload(const std::set<std::string>& droppedIDs,
                                    std::optional<Pid> droppedProcess) {
  resetCaptures(false);
  model_.refreshRunningApps({.publish = true});
  LumoGroups groups = lumoSwitcherGroups(model_);
  for (auto* list : {&groups.priority, &groups.normal}) {
    for (auto& group : *list) {
      std::erase_if(group.windows, [&](const RunningAppItem& window) {
        return droppedIDs.count(window.id) || window.processIdentifier == droppedProcess;
      });
    }
    std::erase_if(*list, [](const RunningAppGroup& group) { return group.windows.empty(); });
  }
  state_.closedWindowIDs.clear();
  fillSections(groups);
  if (state_.previewMode == LumoPreviewMode::FocusWindow) freezeStrips();

  const Selection& selection = state_.selection;
  bool gone = false;
  if (selection.applicationID == lumo_id::Workspaces && selection.windowID) {
    gone = std::none_of(state_.workspaces.begin(), state_.workspaces.end(),
                        [&](const auto& task) { return task.id == *selection.windowID; });
  } else if (selection.windowID && selection.windowID != lumo_id::ShowDesktop) {
    gone = !resolveSwitcherWindow(state_, *selection.windowID);
  } else if (selection.applicationID && !selection.windowID) {
    gone = !findSwitcherGroup(state_, *selection.applicationID);
  }
  if (gone) {
    state_.selection = {};
    state_.scrollRequestTarget = lumo_id::LockRow;
    ++state_.scrollRequestSerial;
  }
  rebuildNavigation();
  updatePreview();
  overlay_->bringToFront();
  notify();
}

void LumoSwitcherController::setPreviewMode(LumoPreviewMode mode) {
  if (!panelIsVisible() || mode == state_.previewMode) return;
  state_.previewMode = mode;
  model_.defaults().set(kLumoPreviewModeKey, previewModeText(mode));
  resetCaptures(false);
  state_.thumbnailImage.reset();
  state_.thumbnailImages.clear();
  if (mode == LumoPreviewMode::FocusWindow) freezeStrips();
  rebuildNavigation();
  updatePreview();
  notify();
}

}  // namespace tolv
