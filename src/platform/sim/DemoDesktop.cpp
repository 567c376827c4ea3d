#include "platform/sim/DemoDesktop.h"

namespace tolv::sim {

namespace {
WindowSpec window(std::string title, bool focused = false) {
  WindowSpec spec;
  spec.title = std::move(title);
  spec.focused = focused;
  return spec;
}

AppSpec app(Pid pid, std::string bundle, std::string name, std::vector<WindowSpec> windows) {
  AppSpec spec;
  spec.pid = pid;
  spec.bundleIdentifier = std::move(bundle);
  spec.name = std::move(name);
  spec.bundleURL = "/Applications/" + *spec.name + ".app";
  spec.windows = std::move(windows);
  return spec;
}
}  // namespace

std::vector<AppSpec> demoApplications() {
  AppSpec finder =
      app(301, "com.apple.finder", "Finder", {window("Documents"), window("Downloads")});
  finder.bundleURL = "/System/Library/CoreServices/Finder.app";
  AppSpec safari =
      app(501, "com.apple.Safari", "Safari", {window("Apple", true), window("Tolv — Wikipedia")});
  safari.active = true;
  AppSpec mail = app(502, "com.apple.mail", "Mail", {window("Inbox – 3 messages")});
  AppSpec notes = app(503, "com.apple.Notes", "Notes", {window("Shopping list")});
  AppSpec terminal = app(504, "com.apple.Terminal", "Terminal",
                         {window("~ — zsh — 80×24"), window("build — make — 120×40")});
  AppSpec textEdit = app(505, "com.apple.TextEdit", "TextEdit", {window("Untitled 2.txt")});
  AppSpec menuExtra = app(506, "com.example.Clipper", "Clipper", {});
  menuExtra.policy = ActivationPolicy::Accessory;
  return {finder, safari, mail, notes, terminal, textEdit, menuExtra};
}

}  // namespace tolv::sim
