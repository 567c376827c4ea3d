// Where application icons come from: every icon goes through appIconCache, and
// from there to one raw bitmap file per key, so that starting up reads icons
// without decoding any image.

#include <functional>

#include "model/AppModel.h"
#include "startmenu/IconCacheFiles.h"

namespace tolv {

namespace {

// The icon cached under `key`; otherwise the picture `source` gives, normalised,
// kept in memory and written to disk. A missing picture is not cached.
Image iconThroughCache(AppModel& model, const std::string& key,
                       const std::function<Image()>& source) {
  auto found = model.appIconCache.find(key);
  if (found != model.appIconCache.end()) return found->second;
  Image picture = source();
  if (!picture) return picture;
  Image icon = model.normaliseIcon(picture);
  model.appIconCache[key] = icon;
  model.storeIconOnDisk(icon, key);
  return icon;
}

}  // namespace

std::string AppModel::iconCacheFolder() const {
  return platform_.fileSystem->applicationSupportFolder() + "/" + kIconCacheFolderName;
}

Image AppModel::normaliseIcon(const Image& image) {
  return platform_.images->redrawnAsBitmap(image, kIconPixels, kIconPixels);
}

void AppModel::storeIconOnDisk(const Image& image, const std::string& key) {
  FileSystem& files = *platform_.fileSystem;
  files.createDirectories(iconCacheFolder());
  auto bitmap = platform_.images->firstBitmap(image);
  if (!bitmap || bitmap->width != kIconPixels || bitmap->height != kIconPixels ||
      bitmap->bytesPerRow != kIconBytesPerRow || bitmap->bytes.size() < kIconFileBytes) {
    return;
  }
  bitmap->bytes.resize(kIconFileBytes);
  files.writeFileAtomically(iconCacheFolder() + "/" + iconCacheFileName(key), bitmap->bytes);
}

void AppModel::loadIconCache() {
  FileSystem& files = *platform_.fileSystem;
  std::string folder = iconCacheFolder();
  files.createDirectories(folder);
  for (const std::string& name : files.listDirectory(folder).value_or(std::vector<std::string>{})) {
    auto key = iconCacheKey(name);
    if (!key) continue;
    auto bytes = files.readFile(folder + "/" + name);
    if (!bytes || bytes->size() != kIconFileBytes) continue;
    RgbaBitmap bitmap{kIconPixels, kIconPixels, kIconBytesPerRow, std::move(*bytes)};
    appIconCache[*key] = platform_.images->imageFromBitmap(bitmap);
  }
}

void AppModel::clearIconCaches() {
  appIconCache.clear();
  discovery.appMetadataCache.clear();
  discovery.axApplicationWindowCache.clear();
  // The observers go too; the next refresh makes them anew with fresh application data.
  removeAllAXObservers();
  FileSystem& files = *platform_.fileSystem;
  std::string folder = iconCacheFolder();
  for (const std::string& name : files.listDirectory(folder).value_or(std::vector<std::string>{}))
    files.removeFile(folder + "/" + name);
}

Image AppModel::applicationIcon(const std::string& path,
                                const std::optional<std::string>& bundleIdentifier,
                                const Image& given) {
  std::string resolved = platform_.fileSystem->resolvingSymlinks(path);
  auto identifier =
      bundleIdentifier ? bundleIdentifier : platform_.workspace->bundleIdentifier(resolved);
  std::string key = identifier ? "bundle:" + *identifier : "path:" + resolved;
  return iconThroughCache(*this, key,
                          [&] { return given ? given : platform_.images->iconForFile(resolved); });
}

Image AppModel::ownApplicationIcon() {
  std::string key = "tolv:" + platform_.workspace->mainBundle().identifier.value_or("application");
  return iconThroughCache(*this, key, [&] { return platform_.images->applicationIconImage(); });
}

Image AppModel::runningApplicationIcon(const RunningApplication& app) {
  if (app.bundleURL) return applicationIcon(*app.bundleURL, app.bundleIdentifier);
  if (!app.icon) return platform_.images->systemSymbol("app");
  std::string key = "running:" + app.bundleIdentifier.value_or(app.localizedName.value_or(
                                     std::to_string(app.processIdentifier)));
  return iconThroughCache(*this, key, [&] { return app.icon; });
}

}  // namespace tolv
