#pragma once

#include <string>

namespace tolv {

// Shows a file of the program's own to the user. Stands for NSWorkspace
// activateFileViewerSelectingURLs:, and for opening the file in TextEdit by
// openApplication(at:configuration:) with the path as argument, else openURL:.
class FileViewer {
 public:
  virtual ~FileViewer() = default;

  // Opens the file manager on the file's folder with the file selected.
  virtual void revealInFileManager(const std::string& path) = 0;
  // Opens the file in the user's text editor, else in the default application of its type.
  virtual void openInTextEditor(const std::string& path) = 0;
};

}  // namespace tolv
