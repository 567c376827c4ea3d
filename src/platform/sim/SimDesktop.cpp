#include "platform/sim/SimDesktop.h"

#include <stdlib.h>

#include <algorithm>

#include <filesystem>

#include "platform/posix/PosixFileSystem.h"
#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimImages.h"
#include "platform/sim/SimInput.h"
#include "platform/sim/SimPointer.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimRestart.h"
#include "platform/sim/SimScreenCapture.h"
#include "platform/sim/SimScreens.h"
#include "platform/sim/SimSpaces.h"
#include "platform/sim/SimSystemCommands.h"
#include "platform/sim/SimTray.h"
#include "platform/sim/SimUserDefaults.h"
#include "platform/sim/SimWindowServer.h"
#include "platform/sim/SimWorkspace.h"

namespace tolv::sim {

SimDesktop::SimDesktop()
    : runLoop_(std::make_unique<SimRunLoop>()),
      clock_(std::make_unique<SimClock>(*runLoop_)),
      accessibility_(std::make_unique<SimAccessibility>(*this, calls_)),
      workspace_(std::make_unique<SimWorkspace>(*this, calls_)),
      windowServer_(std::make_unique<SimWindowServer>(*this, calls_)),
      defaults_(std::make_unique<SimUserDefaults>(calls_)),
      images_(std::make_unique<SimImages>(calls_)),
      screens_(std::make_unique<SimScreens>(calls_)),
      pointer_(std::make_unique<SimPointer>(calls_)),
      processes_(std::make_unique<SimProcesses>(*runLoop_, calls_, kOwnPid)),
      hotKeys_(std::make_unique<SimHotKeys>(calls_)),
      input_(std::make_unique<SimInput>(*this, calls_)),
      spacesService_(std::make_unique<SimSpaces>(*this, calls_)),
      dock_(std::make_unique<SimDock>(*this, calls_)),
      power_(std::make_unique<SimPower>(calls_)),
      audio_(std::make_unique<SimAudio>(calls_)),
      brightness_(std::make_unique<SimBrightness>(calls_)),
      systemCommands_(std::make_unique<SimSystemCommands>(*this, *input_, calls_)),
      instanceLauncher_(std::make_unique<SimInstanceLauncher>(*this, calls_)),
      fileViewer_(std::make_unique<SimFileViewer>(*this, calls_)),
      screenCapture_(std::make_unique<SimScreenCapture>(*this)),
      applications_(std::make_unique<SimApplications>(*this, calls_)) {
  setSpaces({});
  alerts_ = std::make_unique<SimAlerts>(screens_.get());
  std::string pattern = (std::filesystem::temp_directory_path() / "tolv-sim-XXXXXX").string();
  if (::mkdtemp(pattern.data())) supportFolder_ = pattern + "/Tolv";
  fileSystem_ = std::make_unique<PosixFileSystem>(supportFolder_);

  AppSetup activityMonitor;
  activityMonitor.bundleIdentifier = "com.apple.ActivityMonitor";
  activityMonitor.name = "Activity Monitor";
  activityMonitor.bundleURL = "/System/Applications/Utilities/Activity Monitor.app";
  WindowSetup mainWindow;
  mainWindow.title = "Activity Monitor";
  activityMonitor.windows.push_back(mainWindow);
  installApplication(activityMonitor);
}

SimDesktop::~SimDesktop() {
  if (supportFolder_.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(supportFolder_).parent_path(), ignored);
}

Platform SimDesktop::platform() {
  Platform platform;
  platform.runLoop = runLoop_.get();
  platform.clock = clock_.get();
  platform.accessibility = accessibility_.get();
  platform.workspace = workspace_.get();
  platform.windowServer = windowServer_.get();
  platform.userDefaults = defaults_.get();
  platform.images = images_.get();
  platform.fileSystem = fileSystem_.get();
  platform.alerts = alerts_.get();
  platform.screens = screens_.get();
  platform.pointer = pointer_.get();
  platform.notificationCenter = &notificationCenter_;
  platform.distributedNotificationCenter = &distributedCenter_;
  platform.processes = processes_.get();
  platform.hotKeys = hotKeys_.get();
  platform.input = input_.get();
  platform.badges = dock_.get();
  platform.power = power_.get();
  platform.audio = audio_.get();
  platform.brightness = brightness_.get();
  platform.systemCommands = systemCommands_.get();
  platform.runtimeIssueLog = runtimeIssueLog_;
  platform.spaces = spacesService_.get();
  platform.instanceLauncher = instanceLauncher_.get();
  platform.fileViewer = fileViewer_.get();
  platform.screenCapture = screenCapture_.get();
  platform.applications = applications_.get();
  return platform;
}

const SimApp* SimDesktop::app(Pid pid) const {
  auto found = apps_.find(pid);
  return found == apps_.end() ? nullptr : &found->second;
}

SimApp* SimDesktop::app(Pid pid) {
  auto found = apps_.find(pid);
  return found == apps_.end() ? nullptr : &found->second;
}

const SimWindow* SimDesktop::window(uint64_t id) const {
  auto found = windows_.find(id);
  return found == windows_.end() ? nullptr : &found->second;
}

std::vector<const SimApp*> SimDesktop::apps() const {
  std::vector<const SimApp*> result;
  for (Pid pid : launchOrder_)
    result.push_back(&apps_.at(pid));
  return result;
}

bool SimDesktop::isOnScreen(const SimWindow& window) const {
  const SimApp* owner = app(window.pid);
  return owner && !owner->setup.hidden && !window.setup.minimized && isOnCurrentSpace(window);
}

std::vector<const SimWindow*> SimDesktop::listedWindows(Pid pid) const {
  // AXWindows lists the windows of the current space, minimised ones included,
  // front to back.
  std::vector<const SimWindow*> result;
  for (uint64_t id : stacking_) {
    const SimWindow& window = windows_.at(id);
    if (window.pid != pid) continue;
    if (isOnCurrentSpace(window)) result.push_back(&window);
  }
  return result;
}

const SimWindow* SimDesktop::findWindow(Pid pid, const WindowSelector& selector) const {
  const SimApp* owner = app(pid);
  if (!owner) return nullptr;
  if (selector.index) {
    return *selector.index < owner->windows.size() ? &windows_.at(owner->windows[*selector.index])
                                                   : nullptr;
  }
  for (uint64_t id : owner->windows) {
    const SimWindow& window = windows_.at(id);
    if (selector.title && window.setup.title == *selector.title) return &window;
    if (selector.number && window.number == *selector.number) return &window;
  }
  return nullptr;
}

SimWindow* SimDesktop::findWindowMutable(Pid pid, const WindowSelector& selector) {
  return const_cast<SimWindow*>(findWindow(pid, selector));
}

uint32_t SimDesktop::nextFreeNumber() {
  do {
    ++lastNumber_;
  } while (usedNumbers_.count(lastNumber_));
  return lastNumber_;
}

void SimDesktop::bringToFront(uint64_t window) {
  auto found = std::find(stacking_.begin(), stacking_.end(), window);
  if (found != stacking_.end()) stacking_.erase(found);
  stacking_.insert(stacking_.begin(), window);
}

void SimDesktop::postWorkspaceNotification(const char* name, std::optional<Pid> pid) {
  Notification notification{name, pid};
  runLoop_->post([this, notification] { workspace_->notificationCenter().post(notification); });
}

std::vector<uint64_t> SimDesktop::addApp(const AppSetup& setup) {
  if (apps_.count(setup.pid)) quitApp(setup.pid);
  SimApp& added = apps_[setup.pid];
  added.setup = setup;
  added.setup.windows.clear();
  added.element = std::make_shared<SimElement>();
  added.element->kind = SimElement::Kind::Application;
  added.element->pid = setup.pid;
  added.element->hash = freshHash();
  added.icon = images_->named("icon:" + setup.name.value_or(std::to_string(setup.pid)));
  if (setup.bundleURL) {
    images_->setFileIcon(*setup.bundleURL, added.icon);
    if (!installed_.count(*setup.bundleURL)) installApplication(setup);
  }
  launchOrder_.push_back(setup.pid);
  for (const WindowSetup& window : setup.windows)
    openWindow(setup.pid, window);
  return added.windows;
}

void SimDesktop::populate(const std::vector<AppSetup>& apps) {
  std::vector<uint64_t> inOrder;
  for (const AppSetup& setup : apps) {
    auto windows = addApp(setup);
    inOrder.insert(inOrder.end(), windows.begin(), windows.end());
    if (setup.active) activePid_ = setup.pid;
  }
  for (auto id = inOrder.rbegin(); id != inOrder.rend(); ++id)
    bringToFront(*id);
  if (activePid_) {
    if (const SimApp* active = app(*activePid_); active && active->focusedWindow) {
      bringToFront(*active->focusedWindow);
    }
  }
}

void SimDesktop::launchApp(const AppSetup& setup) {
  // The new application's windows come up in front, in the order given.
  auto opened = addApp(setup);
  for (auto id = opened.rbegin(); id != opened.rend(); ++id)
    bringToFront(*id);
  postWorkspaceNotification(workspace_notification::DidLaunchApplication, setup.pid);
  if (setup.active) activateApp(setup.pid);
}

void SimDesktop::quitApp(Pid pid) {
  SimApp* quitting = app(pid);
  if (!quitting) return;
  for (uint64_t id : std::vector<uint64_t>(quitting->windows))
    removeWindow(id);
  apps_.erase(pid);
  launchOrder_.erase(std::remove(launchOrder_.begin(), launchOrder_.end(), pid),
                     launchOrder_.end());
  if (activePid_ == pid) activePid_.reset();
  postWorkspaceNotification(workspace_notification::DidTerminateApplication, pid);
}

void SimDesktop::activateApp(Pid pid, bool allWindows) {
  SimApp* activated = app(pid);
  if (!activated) return;
  unhideApp(pid);
  activePid_ = pid;
  if (allWindows) {
    std::vector<uint64_t> own;
    for (uint64_t id : stacking_) {
      if (windows_.at(id).pid == pid) own.push_back(id);
    }
    for (auto id = own.rbegin(); id != own.rend(); ++id)
      bringToFront(*id);
  }
  if (activated->focusedWindow) bringToFront(*activated->focusedWindow);
  postWorkspaceNotification(workspace_notification::DidActivateApplication, pid);
}

void SimDesktop::setWindowMinimized(uint64_t id, bool minimized) {
  auto found = windows_.find(id);
  if (found == windows_.end() || found->second.setup.minimized == minimized) return;
  SimWindow& changed = found->second;
  changed.setup.minimized = minimized;
  SimApp& owner = *app(changed.pid);
  if (!minimized) {
    raiseWindow(id);
    return;
  }
  if (owner.focusedWindow != id) return;
  std::optional<uint64_t> next;
  for (uint64_t candidate : stacking_) {
    const SimWindow& other = windows_.at(candidate);
    if (other.pid == changed.pid && !other.setup.minimized) {
      next = candidate;
      break;
    }
  }
  setFocusedWindow(owner, next);
}

void SimDesktop::raiseWindow(uint64_t id) {
  const SimWindow* raised = window(id);
  if (!raised) return;
  setFocusedWindow(*app(raised->pid), id);
  bringToFront(id);
}

void SimDesktop::moveWindow(uint64_t id, AXPoint position) {
  if (auto found = windows_.find(id); found != windows_.end())
    found->second.setup.position = position;
}

void SimDesktop::resizeWindow(uint64_t id, AXSize size) {
  if (auto found = windows_.find(id); found != windows_.end()) found->second.setup.size = size;
}

std::optional<uint64_t> SimDesktop::keyWindow() const {
  if (!activePid_) return std::nullopt;
  const SimApp* active = app(*activePid_);
  if (!active || !active->focusedWindow) return std::nullopt;
  const SimWindow* focused = window(*active->focusedWindow);
  if (!focused || focused->setup.minimized) return std::nullopt;
  return focused->id;
}

void SimDesktop::logAction(const std::string& kind, nlohmann::json fields) {
  nlohmann::json entry = {{"time", runLoop_->now()}, {"kind", kind}};
  entry.update(fields);
  actionLog_.push_back(std::move(entry));
}

nlohmann::json SimDesktop::actionLogJson() const {
  return nlohmann::json(actionLog_);
}

nlohmann::json SimDesktop::windowFields(uint64_t id) const {
  const SimWindow* described = window(id);
  if (!described) return nlohmann::json::object();
  return {
      {"pid", described->pid}, {"window", described->setup.title}, {"number", described->number}};
}

void SimDesktop::hideApp(Pid pid) {
  SimApp* hidden = app(pid);
  if (!hidden || hidden->setup.hidden) return;
  hidden->setup.hidden = true;
  if (activePid_ == pid) activePid_.reset();
  postWorkspaceNotification(workspace_notification::DidHideApplication, pid);
}

void SimDesktop::unhideApp(Pid pid) {
  SimApp* shown = app(pid);
  if (!shown || !shown->setup.hidden) return;
  shown->setup.hidden = false;
  postWorkspaceNotification(workspace_notification::DidUnhideApplication, pid);
}

uint32_t SimDesktop::openWindow(Pid pid, const WindowSetup& setup) {
  SimApp* owner = app(pid);
  if (!owner) return 0;
  SimWindow window;
  window.id = nextWindowId_++;
  window.pid = pid;
  window.setup = setup;
  if (window.setup.space.empty()) window.setup.space = currentSpace();
  window.number = setup.number ? *setup.number : nextFreeNumber();
  if (window.number != 0) usedNumbers_.insert(window.number);
  window.element = std::make_shared<SimElement>();
  window.element->kind = SimElement::Kind::Window;
  window.element->pid = pid;
  window.element->window = window.id;
  window.element->hash = setup.hash ? *setup.hash : freshHash();
  if (setup.hasCloseButton) {
    window.closeButton = std::make_shared<SimElement>();
    window.closeButton->kind = SimElement::Kind::CloseButton;
    window.closeButton->pid = pid;
    window.closeButton->window = window.id;
    window.closeButton->hash = freshHash();
  }
  uint64_t id = window.id;
  uint32_t number = window.number;
  windows_.emplace(id, std::move(window));
  owner->windows.push_back(id);
  bringToFront(id);
  announceToApplication(pid, id, ax::WindowCreatedNotification);
  // An application's focused window is the one marked focused, else its first.
  if (setup.focused || !owner->focusedWindow) setFocusedWindow(*owner, id);
  return number;
}

void SimDesktop::setFocusedWindow(SimApp& app, std::optional<uint64_t> window) {
  if (app.focusedWindow == window) return;
  app.focusedWindow = window;
  if (window) announceToApplication(app.setup.pid, *window, ax::FocusedWindowChangedNotification);
}

void SimDesktop::announceToApplication(Pid pid, uint64_t window, const char* notification) {
  const SimApp* owner = app(pid);
  const SimWindow* subject = this->window(window);
  if (!owner || !subject) return;
  accessibility_->announce(pid, *owner->element, AXElement(subject->element), notification);
}

void SimDesktop::announceToWindow(uint64_t window, const char* notification) {
  const SimWindow* subject = this->window(window);
  if (!subject) return;
  accessibility_->announce(subject->pid, *subject->element, AXElement(subject->element),
                           notification);
}

void SimDesktop::removeWindow(uint64_t id) {
  auto found = windows_.find(id);
  if (found == windows_.end()) return;
  announceToWindow(id, ax::UIElementDestroyedNotification);
  accessibility_->forgetRegistrations(*found->second.element);
  Pid pid = found->second.pid;
  usedNumbers_.erase(found->second.number);
  // A full-screen window takes its space with it.
  std::optional<std::string> ownSpace;
  if (spaceBeforeFullScreen_.erase(id)) ownSpace = found->second.setup.space;
  windows_.erase(found);
  if (ownSpace) removeSpace(*ownSpace);
  stacking_.erase(std::remove(stacking_.begin(), stacking_.end(), id), stacking_.end());
  if (SimApp* owner = app(pid)) {
    owner->windows.erase(std::remove(owner->windows.begin(), owner->windows.end(), id),
                         owner->windows.end());
    if (owner->focusedWindow == id) {
      // Focus passes to the frontmost remaining window of the application.
      std::optional<uint64_t> next;
      for (uint64_t candidate : stacking_) {
        if (windows_.at(candidate).pid == pid) {
          next = candidate;
          break;
        }
      }
      setFocusedWindow(*owner, next);
    }
  }
}

bool SimDesktop::closeWindow(Pid pid, const WindowSelector& selector) {
  const SimWindow* closing = findWindow(pid, selector);
  if (!closing) return false;
  removeWindow(closing->id);
  return true;
}

bool SimDesktop::changeWindow(Pid pid, const WindowSelector& selector, const WindowChange& change) {
  SimWindow* changed = findWindowMutable(pid, selector);
  if (!changed) return false;
  WindowSetup& setup = changed->setup;
  if (change.title && *change.title != setup.title) {
    setup.title = *change.title;
    announceToWindow(changed->id, ax::TitleChangedNotification);
  }
  if (change.identifier) setup.identifier = *change.identifier;
  if (change.size) setup.size = *change.size;
  if (change.position) setup.position = *change.position;
  if (change.minimized) setup.minimized = *change.minimized;
  if (change.space && *change.space != setup.space) {
    setup.space = *change.space;
    ++spacesGeneration_;
  }
  if (change.layer) setup.layer = *change.layer;
  return true;
}

bool SimDesktop::focusWindow(Pid pid, const WindowSelector& selector) {
  const SimWindow* focused = findWindow(pid, selector);
  if (!focused) return false;
  setFocusedWindow(*app(pid), focused->id);
  bringToFront(focused->id);
  if (activePid_ != pid) activateApp(pid);
  return true;
}

void SimDesktop::installApplication(const AppSetup& setup) {
  if (!setup.bundleURL) return;
  installed_[*setup.bundleURL] = setup;
}

const AppSetup* SimDesktop::installedApplication(const std::string& bundlePath) const {
  auto found = installed_.find(bundlePath);
  return found == installed_.end() ? nullptr : &found->second;
}

bool SimDesktop::openApplication(const std::string& bundleIdentifier) {
  for (Pid pid : launchOrder_) {
    if (apps_.at(pid).setup.bundleIdentifier == bundleIdentifier) {
      activateApp(pid);
      return true;
    }
  }
  for (const auto& [path, setup] : installed_) {
    if (setup.bundleIdentifier != bundleIdentifier) continue;
    AppSetup launched = setup;
    launched.pid = std::max<Pid>(2000, apps_.empty() ? 0 : apps_.rbegin()->first + 1);
    launched.active = true;
    launchApp(launched);
    return true;
  }
  return false;
}

void SimDesktop::sleepDisplays() {
  postWorkspaceNotification(workspace_notification::ScreensDidSleep, std::nullopt);
}

void SimDesktop::wakeDisplays() {
  postWorkspaceNotification(workspace_notification::ScreensDidWake, std::nullopt);
}

void SimDesktop::resignSession() {
  postWorkspaceNotification(workspace_notification::SessionDidResignActive, std::nullopt);
}

void SimDesktop::activateSession() {
  postWorkspaceNotification(workspace_notification::SessionDidBecomeActive, std::nullopt);
}

void SimDesktop::startScreenSaver() {
  postDistributedNotification("com.apple.screensaver.didstart");
}

void SimDesktop::stopScreenSaver() {
  postDistributedNotification("com.apple.screensaver.didstop");
}

void SimDesktop::postDistributedNotification(const char* name) {
  Notification notification{name, std::nullopt};
  runLoop_->post([this, notification] { distributedCenter_.post(notification); });
}

void SimDesktop::setAppResponding(Pid pid, bool responding) {
  if (SimApp* target = app(pid)) target->setup.responding = responding;
}

void SimDesktop::setMultipleAttributeCallsFail(Pid pid, bool fail) {
  if (SimApp* target = app(pid)) target->multipleAttributeCallsFail = fail;
}

namespace {

void setMembership(std::set<std::string>& set, const std::string& name, bool member) {
  if (member) {
    set.insert(name);
  } else {
    set.erase(name);
  }
}

}  // namespace

bool SimDesktop::failAttribute(Pid pid, const WindowSelector& selector,
                               const std::string& attribute, bool fail) {
  SimWindow* target = findWindowMutable(pid, selector);
  if (!target) return false;
  setMembership(target->failingAttributes, attribute, fail);
  return true;
}

bool SimDesktop::failAttributeWrite(Pid pid, const WindowSelector& selector,
                                    const std::string& attribute, bool fail) {
  SimWindow* target = findWindowMutable(pid, selector);
  if (!target) return false;
  setMembership(target->failingWrites, attribute, fail);
  return true;
}

void SimDesktop::failObserverCreation(Pid pid, std::optional<AXError> error) {
  if (SimApp* target = app(pid)) target->observerCreationError = error;
}

void SimDesktop::failNotificationRegistration(Pid pid, const std::string& notification,
                                              std::optional<AXError> error) {
  SimApp* target = app(pid);
  if (!target) return;
  if (error) {
    target->registrationErrors[notification] = *error;
  } else {
    target->registrationErrors.erase(notification);
  }
}

bool SimDesktop::listWindowTwice(Pid pid, const WindowSelector& selector, bool twice) {
  SimWindow* target = findWindowMutable(pid, selector);
  if (!target) return false;
  target->listedTwice = twice;
  return true;
}

}  // namespace tolv::sim
