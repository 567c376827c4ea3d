#include "platform/x11/X11Workspace.h"

#include <unistd.h>

#include <QIcon>
#include <QImage>

#include <algorithm>

#include "platform/qt/QtImages.h"
#include "platform/x11/HintsIcon.h"

namespace tolv::x11 {

namespace {

// Width, height, then ARGB pixels, for every size the window offers; the largest wins.
std::optional<QImage> largestNetWmIcon(const std::vector<uint32_t>& data) {
  size_t best = 0;
  uint32_t bestArea = 0;
  for (size_t at = 0; at + 2 <= data.size();) {
    const uint64_t width = data[at];
    const uint64_t height = data[at + 1];
    const uint64_t area = width * height;
    if (width == 0 || height == 0 || at + 2 + area > data.size()) break;
    if (area > bestArea) {
      bestArea = static_cast<uint32_t>(area);
      best = at;
    }
    at += 2 + area;
  }
  if (bestArea == 0) return std::nullopt;
  const int width = static_cast<int>(data[best]);
  const int height = static_cast<int>(data[best + 1]);
  QImage image(width, height, QImage::Format_ARGB32);
  for (int y = 0; y < height; ++y) {
    auto* line = reinterpret_cast<uint32_t*>(image.scanLine(y));
    for (int x = 0; x < width; ++x)
      line[x] = data[best + 2 + size_t(y) * width + x];
  }
  return image;
}

}  // namespace

X11Workspace::X11Workspace(X11Connection& connection, X11Clients& clients,
                           X11WindowActions& actions, RunLoop& runLoop, DesktopEntries entries)
    : connection_(connection),
      clients_(clients),
      actions_(actions),
      runLoop_(runLoop),
      entries_(std::move(entries)) {
  for (Pid pid : clients_.taskPids())
    running_.insert(pid);
  activePid_ = clients_.pidOf(clients_.activeWindow());
  auto changed = [this](xcb_window_t, Pid) { announceChanges(); };
  subscriptions_.push_back(clients_.appeared().subscribe(changed));
  subscriptions_.push_back(clients_.disappeared().subscribe(changed));
  subscriptions_.push_back(clients_.stateChanged().subscribe(changed));
  subscriptions_.push_back(clients_.activeChanged().subscribe(
      [this](xcb_window_t, xcb_window_t) { announceChanges(); }));
  subscriptions_.push_back(clients_.desktopsChanged().subscribe([this](bool currentChanged) {
    if (currentChanged) post(workspace_notification::ActiveSpaceDidChange, 0);
  }));
}

X11Workspace::~X11Workspace() = default;

void X11Workspace::post(const char* name, Pid pid) {
  std::string copy = name;
  // The centre lives as long as the workspace; work posted on the loop may outlive both.
  runLoop_.post([this, alive = std::weak_ptr<int>(lifetime_), copy, pid] {
    if (alive.lock()) center_.post({copy, pid});
  });
}

void X11Workspace::announceChanges() {
  std::set<Pid> now;
  for (Pid pid : clients_.taskPids())
    now.insert(pid);
  for (Pid pid : running_) {
    if (!now.count(pid)) {
      identities_.erase(pid);
      hiddenWindows_.erase(pid);
      post(workspace_notification::DidTerminateApplication, pid);
    }
  }
  for (Pid pid : now) {
    if (!running_.count(pid)) post(workspace_notification::DidLaunchApplication, pid);
  }
  running_ = std::move(now);
  auto active = clients_.pidOf(clients_.activeWindow());
  if (active != activePid_) {
    activePid_ = active;
    if (active) post(workspace_notification::DidActivateApplication, *active);
  }
}

Image X11Workspace::windowIcon(xcb_window_t window) {
  if (auto data = connection_.cardinals(window, "_NET_WM_ICON")) {
    if (auto image = largestNetWmIcon(*data)) return qt::wrap(std::move(*image));
  }
  if (auto hinted = hintsIcon(connection_, window)) return qt::wrap(std::move(*hinted));
  return {};
}

const X11Workspace::Identity& X11Workspace::identityOf(Pid pid, xcb_window_t window) {
  if (auto found = identities_.find(pid); found != identities_.end()) return found->second;
  Identity identity;
  if (auto windowClass = connection_.windowClass(window))
    identity.windowClass = windowClass->second;
  if (auto entry = entries_.forWindowClass(identity.windowClass)) {
    identity.bundleIdentifier = entry->id;
    if (!entry->name.empty()) identity.name = entry->name;
    identity.iconName = entry->icon;
  } else if (!identity.windowClass.empty()) {
    identity.bundleIdentifier = identity.windowClass;
  }
  if (!identity.name && !identity.windowClass.empty()) identity.name = identity.windowClass;
  identity.icon = windowIcon(window);
  if (!identity.icon && !identity.iconName.empty()) {
    QIcon themed = QIcon::fromTheme(QString::fromStdString(identity.iconName));
    if (!themed.isNull()) identity.icon = qt::wrap(themed.pixmap(128).toImage());
  }
  return identities_.emplace(pid, std::move(identity)).first->second;
}

RunningApplication X11Workspace::describe(Pid pid, const std::vector<xcb_window_t>& windows) {
  const Identity& identity = identityOf(pid, windows.front());
  RunningApplication app;
  app.processIdentifier = pid;
  app.activationPolicy = ActivationPolicy::Regular;
  app.isActive = clients_.pidOf(clients_.activeWindow()) == pid;
  app.isHidden = std::all_of(windows.begin(), windows.end(),
                             [&](xcb_window_t window) { return actions_.isMinimized(window); });
  app.localizedName = identity.name;
  app.bundleIdentifier = identity.bundleIdentifier;
  app.icon = identity.icon;
  return app;
}

std::vector<RunningApplication> X11Workspace::runningApplications() {
  std::vector<RunningApplication> apps;
  for (Pid pid : clients_.taskPids())
    apps.push_back(describe(pid, clients_.taskWindowsOf(pid)));
  return apps;
}

std::optional<RunningApplication> X11Workspace::runningApplication(Pid pid) {
  auto windows = clients_.taskWindowsOf(pid);
  if (windows.empty()) return std::nullopt;
  return describe(pid, windows);
}

Pid X11Workspace::ownProcessIdentifier() {
  return static_cast<Pid>(::getpid());
}

bool X11Workspace::activate(Pid pid, uint32_t options) {
  const xcb_window_t front = actions_.frontWindowOf(pid);
  if (front == XCB_WINDOW_NONE) return false;
  // The other windows come forward first, the front one last, over them all.
  if (options & activation_option::AllWindows) {
    for (xcb_window_t window : clients_.taskWindowsOf(pid)) {
      if (window != front && !actions_.isMinimized(window)) actions_.activate(window);
    }
  }
  actions_.activate(front);
  return true;
}

bool X11Workspace::hide(Pid pid) {
  auto windows = clients_.taskWindowsOf(pid);
  if (windows.empty()) return false;
  auto& hidden = hiddenWindows_[pid];
  for (xcb_window_t window : windows) {
    if (actions_.isMinimized(window)) continue;
    actions_.minimize(window);
    hidden.push_back(window);
  }
  post(workspace_notification::DidHideApplication, pid);
  return true;
}

bool X11Workspace::unhide(Pid pid) {
  if (clients_.taskWindowsOf(pid).empty()) return false;
  auto hidden = hiddenWindows_.find(pid);
  if (hidden == hiddenWindows_.end()) return true;
  for (xcb_window_t window : hidden->second) {
    if (clients_.pidOf(window) == pid) actions_.restore(window);
  }
  hiddenWindows_.erase(hidden);
  post(workspace_notification::DidUnhideApplication, pid);
  return true;
}

bool X11Workspace::terminate(Pid pid) {
  auto windows = clients_.taskWindowsOf(pid);
  if (windows.empty()) return false;
  for (xcb_window_t window : windows)
    actions_.close(window);
  return true;
}

BundleInfo X11Workspace::mainBundle() {
  BundleInfo info;
  info.identifier = "com.example.Tolv";
  info.shortVersion = TOLV_VERSION;
  info.version = TOLV_VERSION;
  char path[4096];
  ssize_t length = ::readlink("/proc/self/exe", path, sizeof path - 1);
  if (length > 0) info.path.assign(path, static_cast<size_t>(length));
  return info;
}

// Linux applications are no bundles.
std::optional<std::string> X11Workspace::bundleIdentifier(const std::string&) {
  return std::nullopt;
}

bool X11Workspace::openApplication(const std::string&) {
  return false;
}

}  // namespace tolv::x11
