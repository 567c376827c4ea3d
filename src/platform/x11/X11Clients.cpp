#include "platform/x11/X11Clients.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/x11/EwmhDesktops.h"

namespace tolv::x11 {

X11Clients::X11Clients(X11Connection& connection) : connection_(connection) {
  connection_.addListener([this](const xcb_generic_event_t& event) { handle(event); });
  readCurrentDesktop();
  refresh();
}

bool X11Clients::readCurrentDesktop() {
  auto current = connection_.cardinals(connection_.root(), "_NET_CURRENT_DESKTOP");
  std::optional<uint32_t> now;
  if (current && !current->empty()) now = current->front();
  return std::exchange(currentDesktop_, now) != now;
}

namespace {

// The flag of WM_HINTS that marks a window urgent (ICCCM 4.1.2.4).
constexpr uint32_t kUrgencyHint = 1u << 8;

void noteHints(const std::optional<std::vector<uint32_t>>& hints, ClientFacts& facts) {
  facts.urgent = hints && !hints->empty() && ((*hints)[0] & kUrgencyHint) != 0;
}

void noteDesktop(const std::optional<std::vector<uint32_t>>& desktop, ClientFacts& facts) {
  facts.desktop = desktop && !desktop->empty() ? std::optional(desktop->front()) : std::nullopt;
}

}  // namespace

const ClientFacts* X11Clients::factsOf(xcb_window_t window) const {
  auto found = facts_.find(window);
  return found == facts_.end() ? nullptr : &found->second;
}

void X11Clients::noteWindowType(const std::optional<std::vector<uint32_t>>& types,
                                ClientFacts& facts) {
  // The first type the window names that the window manager knows is the one it has.
  facts.normalOrDialog = !types || types->empty() ||
                         types->front() == connection_.atom("_NET_WM_WINDOW_TYPE_NORMAL") ||
                         types->front() == connection_.atom("_NET_WM_WINDOW_TYPE_DIALOG");
}

void X11Clients::readFacts(const std::vector<xcb_window_t>& windows) {
  static constexpr const char* kProperties[] = {"_NET_WM_PID", "_NET_WM_WINDOW_TYPE",
                                                "_NET_WM_STATE", "WM_HINTS", "_NET_WM_DESKTOP"};
  std::vector<X11Connection::PropertyRequest> requests;
  for (xcb_window_t window : windows) {
    for (const char* property : kProperties)
      requests.push_back({window, property});
  }
  auto answers = connection_.cardinalsOfEach(requests);
  for (size_t index = 0; index < windows.size(); ++index) {
    auto* answer = &answers[index * std::size(kProperties)];
    ClientFacts facts;
    facts.pid = answer[0] && !answer[0]->empty() ? static_cast<Pid>(answer[0]->front()) : 0;
    noteWindowType(answer[1], facts);
    facts.states = answer[2].value_or(std::vector<uint32_t>{});
    noteHints(answer[3], facts);
    noteDesktop(answer[4], facts);
    facts_.insert_or_assign(windows[index], std::move(facts));
  }
}

std::optional<uint32_t> X11Clients::desktopOf(xcb_window_t window) const {
  const ClientFacts* facts = factsOf(window);
  return facts ? facts->desktop : std::nullopt;
}

bool X11Clients::isOnCurrentDesktop(xcb_window_t window) const {
  // A window without a desktop, or a window manager without desktops, shows everywhere.
  auto desktop = desktopOf(window);
  return !desktop || *desktop == kAllDesktops || !currentDesktop_ || *desktop == *currentDesktop_;
}

std::vector<xcb_window_t> X11Clients::taskWindowsOnCurrentDesktop(Pid pid) const {
  std::vector<xcb_window_t> result = taskWindowsOf(pid);
  std::erase_if(result, [this](xcb_window_t window) { return !isOnCurrentDesktop(window); });
  return result;
}

std::optional<Pid> X11Clients::pidOf(xcb_window_t window) const {
  const ClientFacts* facts = factsOf(window);
  if (!facts || facts->pid <= 0) return std::nullopt;
  return facts->pid;
}

bool X11Clients::isNormalOrDialog(xcb_window_t window) const {
  const ClientFacts* facts = factsOf(window);
  return facts && facts->normalOrDialog;
}

bool X11Clients::hasState(xcb_window_t window, const char* state) const {
  const ClientFacts* facts = factsOf(window);
  return facts && std::find(facts->states.begin(), facts->states.end(), connection_.atom(state)) !=
                      facts->states.end();
}

bool X11Clients::wantsAttention(xcb_window_t window) const {
  const ClientFacts* facts = factsOf(window);
  return facts && (facts->urgent || hasState(window, "_NET_WM_STATE_DEMANDS_ATTENTION"));
}

bool X11Clients::isTaskWindow(xcb_window_t window) const {
  return isNormalOrDialog(window) && !hasState(window, "_NET_WM_STATE_SKIP_TASKBAR");
}

std::vector<xcb_window_t> X11Clients::taskWindowsOf(Pid pid) const {
  std::vector<xcb_window_t> result;
  for (xcb_window_t window : windows_) {
    if (pidOf(window) == pid && isTaskWindow(window)) result.push_back(window);
  }
  return result;
}

std::vector<Pid> X11Clients::taskPids() const {
  std::vector<Pid> result;
  for (xcb_window_t window : windows_) {
    auto pid = pidOf(window);
    if (!pid || std::find(result.begin(), result.end(), *pid) != result.end()) continue;
    if (isTaskWindow(window)) result.push_back(*pid);
  }
  return result;
}

void X11Clients::refresh() {
  std::vector<uint32_t> listed = connection_.cardinals(connection_.root(), "_NET_CLIENT_LIST")
                                     .value_or(std::vector<uint32_t>{});
  std::set<xcb_window_t> now(listed.begin(), listed.end());
  std::vector<std::pair<xcb_window_t, Pid>> gone;
  for (const auto& [window, facts] : facts_) {
    if (!now.count(window)) gone.emplace_back(window, facts.pid);
  }
  std::vector<xcb_window_t> newcomers;
  for (xcb_window_t window : listed) {
    if (facts_.count(window)) continue;
    // Watched before it is read, so no change between the read and the watch is lost.
    connection_.watch(window);
    newcomers.push_back(window);
  }
  readFacts(newcomers);
  std::vector<std::pair<xcb_window_t, Pid>> added;
  for (xcb_window_t window : newcomers)
    added.emplace_back(window, facts_.at(window).pid);
  for (const auto& [window, pid] : gone)
    facts_.erase(window);
  windows_.assign(listed.begin(), listed.end());

  auto active = connection_.cardinals(connection_.root(), "_NET_ACTIVE_WINDOW");
  xcb_window_t nowActive =
      active && !active->empty() ? active->front() : xcb_window_t{XCB_WINDOW_NONE};
  const xcb_window_t wasActive = std::exchange(active_, nowActive);

  for (const auto& [window, pid] : gone)
    disappeared_.emit(window, pid);
  for (const auto& [window, pid] : added)
    appeared_.emit(window, pid);
  if (wasActive != nowActive) activeChanged_.emit(wasActive, nowActive);
}

void X11Clients::handle(const xcb_generic_event_t& event) {
  const uint8_t type = event.response_type & 0x7F;
  if (type == XCB_PROPERTY_NOTIFY) {
    const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notify.window == connection_.root()) {
      if (notify.atom == connection_.atom("_NET_CLIENT_LIST") ||
          notify.atom == connection_.atom("_NET_ACTIVE_WINDOW")) {
        refresh();
      } else if (notify.atom == connection_.atom("_NET_CURRENT_DESKTOP")) {
        desktopsChanged_.emit(readCurrentDesktop());
      } else if (notify.atom == connection_.atom("_NET_NUMBER_OF_DESKTOPS") ||
                 notify.atom == connection_.atom("_NET_DESKTOP_NAMES")) {
        desktopsChanged_.emit(false);
      }
      return;
    }
    auto found = facts_.find(notify.window);
    if (found == facts_.end()) return;
    ClientFacts& facts = found->second;
    if (notify.atom == connection_.atom("_NET_WM_NAME") || notify.atom == XCB_ATOM_WM_NAME) {
      titleChanged_.emit(notify.window, facts.pid);
    } else if (notify.atom == connection_.atom("_NET_WM_STATE")) {
      facts.states =
          connection_.cardinals(notify.window, "_NET_WM_STATE").value_or(std::vector<uint32_t>{});
      stateChanged_.emit(notify.window, facts.pid);
    } else if (notify.atom == XCB_ATOM_WM_HINTS) {
      // Urgency changes what the badges show, not the window's tab.
      noteHints(connection_.cardinals(notify.window, "WM_HINTS"), facts);
    } else if (notify.atom == connection_.atom("_NET_WM_WINDOW_TYPE")) {
      noteWindowType(connection_.cardinals(notify.window, "_NET_WM_WINDOW_TYPE"), facts);
      stateChanged_.emit(notify.window, facts.pid);
    } else if (notify.atom == connection_.atom("_NET_WM_DESKTOP")) {
      // The window left or joined the current desktop: its application's list changed.
      noteDesktop(connection_.cardinals(notify.window, "_NET_WM_DESKTOP"), facts);
      stateChanged_.emit(notify.window, facts.pid);
      desktopsChanged_.emit(false);
    } else if (notify.atom == connection_.atom("_NET_WM_PID")) {
      auto pid = connection_.cardinals(notify.window, "_NET_WM_PID");
      if (pid && !pid->empty()) facts.pid = static_cast<Pid>(pid->front());
    }
  } else if (type == XCB_DESTROY_NOTIFY) {
    const auto& notify = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
    if (facts_.count(notify.window)) refresh();
  }
}

}  // namespace tolv::x11
