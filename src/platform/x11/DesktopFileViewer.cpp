#include "platform/x11/DesktopFileViewer.h"

#include <gio/gio.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>

#include <filesystem>

namespace tolv::x11 {

namespace {

// A URI of a local path, as GIO writes it.
std::string fileURI(const std::string& path) {
  GFile* file = g_file_new_for_path(path.c_str());
  char* uri = g_file_get_uri(file);
  std::string result = uri ? uri : "";
  g_free(uri);
  g_object_unref(file);
  return result;
}

}  // namespace

bool openWithDefaultApplication(const std::string& path) {
  GError* error = nullptr;
  bool opened = g_app_info_launch_default_for_uri(fileURI(path).c_str(), nullptr, &error);
  if (error) g_error_free(error);
  return opened;
}

void DesktopFileViewer::revealInFileManager(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    openWithDefaultApplication(folder);
    return;
  }
  QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.FileManager1",
                                                     "/org/freedesktop/FileManager1",
                                                     "org.freedesktop.FileManager1", "ShowItems");
  call << QStringList{QString::fromStdString(fileURI(path))} << QString();
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, [folder](auto* finished) {
    if (finished->isError()) openWithDefaultApplication(folder);
    finished->deleteLater();
  });
}

void DesktopFileViewer::openInTextEditor(const std::string& path) {
  GAppInfo* editor = g_app_info_get_default_for_type("text/plain", FALSE);
  if (!editor) {
    openWithDefaultApplication(path);
    return;
  }
  GFile* file = g_file_new_for_path(path.c_str());
  GList* files = g_list_append(nullptr, file);
  GError* error = nullptr;
  if (!g_app_info_launch(editor, files, nullptr, &error)) openWithDefaultApplication(path);
  if (error) g_error_free(error);
  g_list_free(files);
  g_object_unref(file);
  g_object_unref(editor);
}

}  // namespace tolv::x11
