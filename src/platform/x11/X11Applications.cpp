#include "platform/x11/X11Applications.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <memory>
#include <string_view>

namespace tolv::x11 {

namespace {

constexpr std::string_view kDesktopSuffix = ".desktop";

struct ObjectUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using DesktopAppInfo = std::unique_ptr<GDesktopAppInfo, ObjectUnref>;

std::string withoutDesktopSuffix(std::string id) {
  if (id.size() > kDesktopSuffix.size() && id.ends_with(kDesktopSuffix)) {
    id.resize(id.size() - kDesktopSuffix.size());
  }
  return id;
}

// Launches with a launch context of the default display, so that GIO passes
// the display on and the application starts where Tolv runs.
bool launch(GDesktopAppInfo* info) {
  if (!info) return false;
  GAppLaunchContext* context = g_app_launch_context_new();
  GError* error = nullptr;
  bool launched = g_app_info_launch(G_APP_INFO(info), nullptr, context, &error);
  if (error) g_error_free(error);
  g_object_unref(context);
  return launched;
}

}  // namespace

std::vector<InstalledApplication> X11Applications::installedApplications() {
  std::vector<InstalledApplication> listed;
  GList* all = g_app_info_get_all();
  for (GList* node = all; node; node = node->next) {
    auto* info = static_cast<GAppInfo*>(node->data);
    if (!G_IS_DESKTOP_APP_INFO(info) || !g_app_info_should_show(info)) continue;
    const char* id = g_app_info_get_id(info);
    const char* name = g_app_info_get_name(info);
    const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info));
    if (!id || !name || !file || !g_utf8_validate(name, -1, nullptr)) continue;
    listed.push_back({name, withoutDesktopSuffix(id), file});
  }
  g_list_free_full(all, g_object_unref);
  return listed;
}

bool X11Applications::openApplication(const std::string& location) {
  DesktopAppInfo info(g_desktop_app_info_new_from_filename(location.c_str()));
  return launch(info.get());
}

bool X11Applications::launchApplication(const std::string& identifier) {
  std::string id = identifier + std::string(kDesktopSuffix);
  DesktopAppInfo info(g_desktop_app_info_new(id.c_str()));
  return launch(info.get());
}

}  // namespace tolv::x11
