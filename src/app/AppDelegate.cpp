// The launch order, the global keys and the termination.

#include "app/AppDelegate.h"

#include "app/SingleInstance.h"

namespace tolv {

namespace {

// The platform with a runtime log: its own, else `own`, made over it.
Platform withRuntimeLog(Platform platform, std::unique_ptr<RuntimeIssueFile>& own) {
  if (!platform.runtimeIssueLog) {
    own = std::make_unique<RuntimeIssueFile>(platform);
    platform.runtimeIssueLog = own.get();
  }
  return platform;
}

}  // namespace

AppDelegate::AppDelegate(const Platform& platform, ControllerFactories factories)
    : platform_(withRuntimeLog(platform, ownRuntimeLog_)),
      factories_(std::move(factories)),
      model_(AppModel::make(platform_)),
      recovery_(std::make_unique<RuntimeRecovery>(platform_, *model_)) {}

AppDelegate::~AppDelegate() {
  releaseRegistrations();
}

void AppDelegate::post(std::function<void(AppDelegate&)> work) {
  std::weak_ptr<bool> alive = alive_;
  platform_.runLoop->post([this, alive, work = std::move(work)] {
    if (!alive.expired()) work(*this);
  });
}

void AppDelegate::applicationDidFinishLaunching() {
  state_ = State::Launching;
  platform_.processes->setActivationPolicy(ActivationPolicy::Accessory);
  if (!ensureSingleInstance()) return;

  recovery_->observe();
  buildControllers();
  installEscapeMonitors();
  if (taskbar_) {
    taskbar_->rebuildPanels();
    taskbar_->autoHide().beginStartupInteractionHold();
  }
  model_->start();
  showInitialTaskbar();
  observeExternalActivation();
  if (switcher_) switcher_->start();
  configureHotKeys();
  settingsSubscription_ = model_->modelChanged.subscribe([this] { configureHotKeys(); });
  state_ = State::Running;
  recovery_->presentPendingRuntimeIssue();
}

void AppDelegate::applicationWillTerminate() {
  state_ = State::Terminating;
  releaseRegistrations();
  if (switcher_) switcher_->stop();
  model_->stop();
}

void AppDelegate::releaseRegistrations() {
  settingsSubscription_.reset();
  recovery_->stopObserving();
  if (externalActivationObserver_) {
    platform_.workspace->notificationCenter().removeObserver(*externalActivationObserver_);
    externalActivationObserver_.reset();
  }
  removeEscapeMonitors();
  unregisterHotKeys();
  if (hotKeyHandler_) {
    platform_.hotKeys->removeHandler(*hotKeyHandler_);
    hotKeyHandler_.reset();
  }
}

bool AppDelegate::ensureSingleInstance() {
  InstanceCheck check{*platform_.processes, *platform_.runLoop, platform_.workspace->mainBundle(),
                      platform_.workspace->ownProcessIdentifier(), [this](const Alert& alert) {
                        return model_->presentAlert(alert, false, 0.5);
                      }};
  return tolv::ensureSingleInstance(check);
}

// ---- controllers -------------------------------------------------------------------------

void AppDelegate::buildControllers() {
  if (factories_.makeSettings) settings_ = factories_.makeSettings(*model_);
  if (factories_.makeStartMenu) startMenu_ = factories_.makeStartMenu(*model_);
  if (factories_.makeSwitcher) switcher_ = factories_.makeSwitcher(*model_);
  if (factories_.makeTaskbar) taskbar_ = factories_.makeTaskbar(*model_, taskbarHooks());
}

AutoHideHooks AppDelegate::taskbarHooks() {
  std::weak_ptr<bool> alive = alive_;
  AutoHideHooks hooks;
  hooks.onStart = [this, alive](const Rect& frame) {
    if (alive.expired() || !startMenu_) return;
    if (startMenu_->isVisible()) {
      if (taskbar_) taskbar_->autoHide().hidePanelsImmediately();
    } else {
      startMenu_->show(frame);
    }
  };
  hooks.onStartHover = [this, alive](const Rect& frame) {
    if (!alive.expired()) openStartMenu(frame);
  };
  hooks.setStartMenuOpacity = [this, alive](double alpha) {
    if (!alive.expired() && startMenu_) startMenu_->setOpacity(alpha);
  };
  hooks.startMenuContainsMouse = [this, alive] {
    return !alive.expired() && startMenu_ && startMenu_->containsPointer();
  };
  hooks.setTaskbarHidden = [this, alive](bool hidden) {
    if (!alive.expired()) model_->setTaskbarHidden(hidden);
  };
  hooks.systemIsInactive = [this, alive] {
    return !alive.expired() && model_->systemIsInactive.get();
  };
  return hooks;
}

void AppDelegate::warpPointerToBottomLeft(const Screen& screen) {
  platform_.pointer->warp({screen.frame.minX() + 8, screen.frame.minY() + 8});
}

void AppDelegate::openStartMenu(const Rect& taskbarFrame) {
  if (startMenu_ && !startMenu_->isVisible()) startMenu_->show(taskbarFrame);
}

// ---- launch steps ------------------------------------------------------------------------

void AppDelegate::showInitialTaskbar() {
  Defaults& defaults = model_->defaults();
  if (!boolValue(defaults.value(kShowInitialTaskbarKey)).value_or(false)) return;
  if (!platform_.accessibility->isProcessTrusted()) return;
  defaults.remove(kShowInitialTaskbarKey);
  defaults.synchronize();
  if (!taskbar_) return;

  const std::string& location = model_->settings.taskbarLocation;
  if (location == "topL") {
    model_->initialSetupForceOverflowOpen = true;
    if (auto frame = taskbar_->autoHide().revealPanelsForStart()) openStartMenu(*frame);
  } else if (location == "bottomL") {
    auto screens = platform_.screens->screens();
    size_t main = platform_.screens->mainScreenIndex();
    if (main < screens.size()) warpPointerToBottomLeft(screens[main]);
    if (auto frame = taskbar_->autoHide().revealPanelsForStart()) openStartMenu(*frame);
  }
}

void AppDelegate::observeExternalActivation() {
  std::weak_ptr<bool> alive = alive_;
  externalActivationObserver_ = platform_.workspace->notificationCenter().addObserver(
      workspace_notification::DidActivateApplication, [this, alive](const Notification&) {
        if (alive.expired()) return;
        post([](AppDelegate& delegate) {
          delegate.model_->refreshRunningApps({.allowCacheSkip = true});
        });
      });
}

// ---- the Escape monitors -------------------------------------------------------------------

void AppDelegate::installEscapeMonitors() {
  std::weak_ptr<bool> alive = alive_;
  HotKeys& keys = *platform_.hotKeys;
  taskbarEscapeLocalMonitor_ =
      keys.addKeyDownMonitor(KeyMonitorScope::Local, [this, alive](int keyCode, uint32_t) {
        if (!alive.expired()) hideBarOnEscape(keyCode);
      });
  taskbarEscapeGlobalMonitor_ =
      keys.addKeyDownMonitor(KeyMonitorScope::Global, [this, alive](int keyCode, uint32_t) {
        if (alive.expired()) return;
        post([keyCode](AppDelegate& delegate) { delegate.hideBarOnEscape(keyCode); });
      });
}

void AppDelegate::removeEscapeMonitors() {
  for (auto* monitor : {&taskbarEscapeLocalMonitor_, &taskbarEscapeGlobalMonitor_}) {
    if (*monitor) platform_.hotKeys->removeKeyDownMonitor(**monitor);
    monitor->reset();
  }
}

void AppDelegate::hideBarOnEscape(int keyCode) {
  if (keyCode != key_code::Escape || model_->taskbarIsHidden.get() || !taskbar_) return;
  taskbar_->autoHide().hidePanelsImmediately();
}

// ---- the global hot keys ---------------------------------------------------------------------

void AppDelegate::configureHotKeys() {
  if (!model_->settings.controlEscapeHotKeysEnabled) {
    unregisterHotKeys();
    return;
  }
  HotKeys& keys = *platform_.hotKeys;
  if (!hotKeyHandler_) {
    std::weak_ptr<bool> alive = alive_;
    hotKeyHandler_ = keys.installHandler([this, alive](const HotKeyID& id) {
      if (alive.expired() || id.signature != kHotKeySignature) return false;
      post([number = id.id](AppDelegate& delegate) { delegate.handleHotKey(number); });
      return true;
    });
  }
  if (!hotKeyRef_) {
    hotKeyRef_ = keys.registerHotKey({kHotKeySignature, hot_key_id::StartMenu}, key_code::Escape,
                                     key_modifier::Control);
  }
  if (!activityMonitorHotKeyRef_) {
    activityMonitorHotKeyRef_ =
        keys.registerHotKey({kHotKeySignature, hot_key_id::ActivityMonitor}, key_code::Escape,
                            key_modifier::Control | key_modifier::Shift);
  }
}

void AppDelegate::unregisterHotKeys() {
  for (auto* ref : {&hotKeyRef_, &activityMonitorHotKeyRef_}) {
    if (*ref) platform_.hotKeys->unregisterHotKey(**ref);
    ref->reset();
  }
}

void AppDelegate::handleHotKey(uint32_t id) {
  if (id == hot_key_id::ActivityMonitor) {
    platform_.workspace->openApplication(kActivityMonitorBundleIdentifier);
  } else if (id == hot_key_id::StartMenu) {
    if (switcher_ && switcher_->panelIsVisible()) {
      switcher_->close();
    } else {
      openStartMenuFromKeyboard();
    }
  }
}

void AppDelegate::openStartMenuFromKeyboard() {
  if (!taskbar_) return;
  auto frame = taskbar_->autoHide().revealPanelsForStart();
  if (!frame) return;
  if (model_->settings.taskbarLocation == "bottomL") {
    auto screens = platform_.screens->screens();
    const Screen* target = nullptr;
    for (const auto& screen : screens) {
      if (screen.frame.intersects(*frame)) {
        target = &screen;
        break;
      }
    }
    size_t main = platform_.screens->mainScreenIndex();
    if (!target && main < screens.size()) target = &screens[main];
    if (target) warpPointerToBottomLeft(*target);
  }
  openStartMenu(*frame);
}

}  // namespace tolv
