#pragma once

#include <string>

#include "platform/FileViewer.h"

namespace tolv::x11 {

// The file manager and text editor of a freedesktop session. Revealing asks
// the file manager on the session bus (org.freedesktop.FileManager1.ShowItems)
// without waiting; when no file manager answers there, the folder is opened in
// the default application for folders. The text editor is GIO's default
// application for text/plain, else the file's own default application.
// Nothing here waits for another process.
class DesktopFileViewer : public FileViewer {
 public:
  void revealInFileManager(const std::string& path) override;
  void openInTextEditor(const std::string& path) override;
};

// Opens a file or folder in GIO's default application for its URI; false when
// there is none or it couldn't be started.
bool openWithDefaultApplication(const std::string& path);

}  // namespace tolv::x11
