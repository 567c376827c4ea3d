#pragma once

#include <optional>
#include <string_view>

#include "platform/AXTypes.h"

namespace tolv {

// The badge labels that applications show, read as a tree of items: an item
// has a title, a subrole ("AXApplicationDockItem" for an application), a
// status label while it shows a badge, the URL of its application and its
// children. Stands for the Dock's own accessibility tree:
// NSRunningApplication.runningApplicationsWithBundleIdentifier with
// "com.apple.dock", AXUIElementCreateApplication and
// AXUIElementCopyAttributeValue for AXTitle, AXSubrole, AXStatusLabel, AXURL
// and AXChildren.
class Badges {
 public:
  virtual ~Badges() = default;

  // The root of the tree; nothing when no one publishes badges (no Dock runs).
  virtual std::optional<AXElement> badgeTreeRoot() = 0;
  // One attribute of an item; a failed read is the AXError alternative.
  virtual AXValue copyAttribute(const AXElement& item, std::string_view attribute) = 0;
};

namespace badge_attribute {
inline constexpr const char* Title = "AXTitle";
inline constexpr const char* Subrole = "AXSubrole";
inline constexpr const char* StatusLabel = "AXStatusLabel";
inline constexpr const char* URL = "AXURL";
inline constexpr const char* Children = "AXChildren";
inline constexpr const char* ApplicationItem = "AXApplicationDockItem";
}  // namespace badge_attribute

}  // namespace tolv
