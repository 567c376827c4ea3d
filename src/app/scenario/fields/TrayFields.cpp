// Badges and the tray: the attention list, the badged names, the levels of the
// media controls and the drawn tray controls.

#include <cmath>

#include "app/scenario/Checkpoints.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

// Levels are 32-bit values; six decimals say all they hold.
Field levelJson(const std::optional<float>& level) {
  if (!level) return std::nullopt;
  return std::round(static_cast<double>(*level) * 1e6) / 1e6;
}

OutJson attentionJson(const AttentionAppItem& item) {
  OutJson json{{"id", item.id}, {"processIdentifier", item.processIdentifier}, {"name", item.name}};
  if (item.bundleIdentifier) json["bundleIdentifier"] = *item.bundleIdentifier;
  return json;
}

const FieldRegistration kTrayFields{{
    {"attentionApps",
     [](RunContext& run) -> Field {
       OutJson items = OutJson::array();
       for (const auto& item : run.model.attentionApps.get())
         items.push_back(attentionJson(item));
       return items;
     }},
    {"cachedBadgedApps",
     [](RunContext& run) -> Field { return run.model.discovery.cachedBadgedApps; }},
    {"volume", [](RunContext& run) { return levelJson(run.model.volumeLevel.get()); }},
    {"brightness", [](RunContext& run) { return levelJson(run.model.brightnessLevel.get()); }},
    {"tray",
     [](RunContext& run) -> Field {
       if (!run.views) return std::nullopt;
       auto tray = run.views->describeTray();
       if (!tray) return std::nullopt;
       return OutJson(*tray);
     }},
}};

}  // namespace
}  // namespace tolv::scenario
