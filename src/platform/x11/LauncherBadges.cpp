#include "platform/x11/LauncherBadges.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>
#include <set>
#include <vector>

namespace tolv::x11 {

namespace {

constexpr const char* kInterface = "com.canonical.Unity.LauncherEntry";
constexpr const char* kUriScheme = "application://";
constexpr const char* kDesktopSuffix = ".desktop";
constexpr int64_t kLargestShownCount = 9999;
constexpr const char* kAttentionLabel = "!";

// One item of the tree, with the values it answers.
struct BadgeItem {
  std::optional<std::string> title;
  std::optional<std::string> subrole;
  std::optional<std::string> label;
  std::vector<BadgeItem> children;
};

std::optional<int64_t> integerOf(const QVariant& value) {
  bool ok = false;
  qlonglong number = value.toLongLong(&ok);
  if (!ok) return std::nullopt;
  switch (value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UChar:
      return number;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<LauncherEntryUpdate> parseLauncherEntryUpdate(const QDBusMessage& message) {
  if (message.interface() != kInterface || message.member() != "Update") return std::nullopt;
  const QList<QVariant> arguments = message.arguments();
  if (arguments.size() != 2 || arguments[0].metaType().id() != QMetaType::QString) {
    return std::nullopt;
  }
  std::string uri = arguments[0].toString().toStdString();
  std::string_view id = uri;
  if (!id.starts_with(kUriScheme)) return std::nullopt;
  id.remove_prefix(std::string_view(kUriScheme).size());
  if (id.ends_with(kDesktopSuffix)) id.remove_suffix(std::string_view(kDesktopSuffix).size());
  if (id.empty()) return std::nullopt;

  // Received messages carry the dictionary marshalled; messages made here carry it plain.
  QVariantMap properties;
  if (arguments[1].metaType() == QMetaType::fromType<QDBusArgument>()) {
    const auto argument = arguments[1].value<QDBusArgument>();
    if (argument.currentSignature() != "a{sv}") return std::nullopt;
    argument >> properties;
  } else if (arguments[1].metaType() == QMetaType::fromType<QVariantMap>()) {
    properties = arguments[1].toMap();
  } else {
    return std::nullopt;
  }

  LauncherEntryUpdate update;
  update.desktopId = std::string(id);
  auto unwrap = [](const QVariant& value) {
    return value.metaType() == QMetaType::fromType<QDBusVariant>()
               ? value.value<QDBusVariant>().variant()
               : value;
  };
  if (auto count = properties.find("count"); count != properties.end()) {
    update.count = integerOf(unwrap(*count));
  }
  if (auto visible = properties.find("count-visible"); visible != properties.end()) {
    QVariant flag = unwrap(*visible);
    if (flag.metaType().id() == QMetaType::Bool) update.countVisible = flag.toBool();
  }
  return update;
}

std::optional<std::string> badgeLabel(const LauncherEntryState& state) {
  if (!state.countVisible || state.count < 1) return std::nullopt;
  if (state.count > kLargestShownCount) return std::to_string(kLargestShownCount) + "+";
  return std::to_string(state.count);
}

LauncherBadges::LauncherBadges(X11Connection& connection, X11Clients& clients,
                               DesktopEntries entries)
    : connection_(connection), clients_(clients), entries_(std::move(entries)) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (bus.isConnected()) {
    bus.connect(QString(), QString(), kInterface, "Update", this,
                SLOT(launcherEntryUpdated(QDBusMessage)));
  }
}

LauncherBadges::~LauncherBadges() = default;

void LauncherBadges::launcherEntryUpdated(const QDBusMessage& message) {
  if (auto update = parseLauncherEntryUpdate(message)) apply(*update);
}

void LauncherBadges::apply(const LauncherEntryUpdate& update) {
  LauncherEntryState& state = states_[update.desktopId];
  if (update.count) state.count = *update.count;
  if (update.countVisible) state.countVisible = *update.countVisible;
  if (!badgeLabel(state)) states_.erase(update.desktopId);
}

std::optional<std::string> LauncherBadges::nameOfWindowApplication(xcb_window_t window) {
  auto windowClass = connection_.windowClass(window);
  if (!windowClass) return std::nullopt;
  if (auto entry = entries_.forWindowClass(windowClass->second); entry && !entry->name.empty()) {
    return entry->name;
  }
  if (windowClass->second.empty()) return std::nullopt;
  return windowClass->second;
}

std::optional<AXElement> LauncherBadges::badgeTreeRoot() {
  auto root = std::make_shared<BadgeItem>();
  std::set<std::string> titles;
  for (const auto& [id, state] : states_) {
    auto entry = entries_.forId(id);
    std::string title = entry && !entry->name.empty() ? entry->name : id;
    if (!titles.insert(title).second) continue;
    root->children.push_back(
        {title, std::string(badge_attribute::ApplicationItem), badgeLabel(state), {}});
  }
  for (xcb_window_t window : clients_.windows()) {
    if (!clients_.isTaskWindow(window) || !clients_.wantsAttention(window)) continue;
    auto title = nameOfWindowApplication(window);
    if (!title || !titles.insert(*title).second) continue;
    root->children.push_back(
        {*title, std::string(badge_attribute::ApplicationItem), std::string(kAttentionLabel), {}});
  }
  return AXElement(std::shared_ptr<const void>(root, root.get()));
}

AXValue LauncherBadges::copyAttribute(const AXElement& element, std::string_view attribute) {
  const auto* item = element.as<BadgeItem>();
  if (!item) return AXError::InvalidUIElement;
  auto answer = [](const std::optional<std::string>& value) -> AXValue {
    if (!value) return AXError::NoValue;
    return *value;
  };
  if (attribute == badge_attribute::Title) return answer(item->title);
  if (attribute == badge_attribute::Subrole) return answer(item->subrole);
  if (attribute == badge_attribute::StatusLabel) return answer(item->label);
  if (attribute == badge_attribute::URL) return AXError::NoValue;
  if (attribute == badge_attribute::Children) {
    AXElementList children;
    for (const auto& child : item->children)
      children.push_back(AXElement(std::make_shared<const BadgeItem>(child)));
    return children;
  }
  return AXError::AttributeUnsupported;
}

}  // namespace tolv::x11
