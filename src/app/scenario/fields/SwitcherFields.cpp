// The switcher as a checkpoint sees it: whether it is shown, its lock, mode,
// list and selection, the images it published and the captures under way.

#include "app/AppDelegate.h"
#include "app/scenario/Checkpoints.h"
#include "platform/sim/SimImages.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/SwitcherLists.h"

namespace tolv::scenario {
namespace {

// What kind of row a stop of the keyboard is.
std::string rowKind(const NavTarget& target) {
  const std::string& scroll = target.scrollID;
  if (scroll == lumo_id::LockRow) return "lock";
  if (target.windowID == lumo_id::ShowDesktop) return "desktop";
  if (scroll.starts_with(lumo_id::PreviousWindowScroll)) return "previous";
  if (scroll.starts_with(lumo_id::WorkspaceScroll)) return "workspace";
  if (scroll.starts_with(lumo_id::RecentWindowScroll)) return "recent";
  if (scroll.starts_with(lumo_id::ApplicationScroll)) return "group";
  return "window";
}

// Images by id, each as the name of the picture (the simulated desktop's
// pictures are named after what they show).
OutJson imageName(const Image& image) {
  OutJson out;
  if (auto* picture = dynamic_cast<const sim::SimImage*>(image.rep()))
    out["name"] = picture->name();
  out["width"] = image.rep()->pixelWidth();
  out["height"] = image.rep()->pixelHeight();
  return out;
}

const FieldRegistration kSwitcherFields{{
    {"switcher",
     [](RunContext& run) -> std::optional<OutJson> {
       if (!run.delegate) return std::nullopt;
       auto* switcher = dynamic_cast<LumoSwitcherController*>(run.delegate->switcherController());
       if (!switcher) return std::nullopt;
       const LumoSwitcherState& state = switcher->state();
       OutJson out;
       out["visible"] = switcher->panelIsVisible();
       out["lockOpen"] = state.lockOpen;
       out["previewMode"] = previewModeText(state.previewMode);
       OutJson list = OutJson::array();
       for (const auto& target : switcher->navigation()) {
         OutJson row;
         row["kind"] = rowKind(target);
         if (target.applicationID) row["applicationID"] = *target.applicationID;
         if (target.windowID) row["windowID"] = *target.windowID;
         list.push_back(std::move(row));
       }
       out["list"] = std::move(list);
       OutJson selection = OutJson::object();
       if (state.selection.applicationID)
         selection["applicationID"] = *state.selection.applicationID;
       if (state.selection.windowID) selection["windowID"] = *state.selection.windowID;
       out["selection"] = std::move(selection);
       out["capturesInFlight"] = OutJson(switcher->activeCaptureIDs());
       OutJson images = OutJson::object();
       for (const auto& [id, image] : state.thumbnailImages)
         images[id] = imageName(image);
       out["thumbnailImages"] = std::move(images);
       if (state.thumbnailImage) out["thumbnailImage"] = imageName(*state.thumbnailImage);
       out["forwardHotKeyRegistered"] = switcher->forwardHotKeyRegistered();
       out["reverseHotKeyRegistered"] = switcher->reverseHotKeyRegistered();
       return out;
     }},
}};

}  // namespace
}  // namespace tolv::scenario
