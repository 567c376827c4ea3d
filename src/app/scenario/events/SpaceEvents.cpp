// Spaces: read and checked, refused until the desktop has them.

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/Events.h"

namespace tolv::scenario {
namespace {

const EventRegistration kSwitchSpace{"switchSpace", [](JsonReader& entry, CompileContext& context) {
                                       std::string space = entry.requireString("space");
                                       if (!context.spaces.count(space)) {
                                         entry.fail("space", "unknown space \"" + space + "\"");
                                       }
                                       refuseUnsupported(entry, "switchSpace");
                                       return StepAction();
                                     }};

const EventRegistration kAddSpace{"addSpace", [](JsonReader& entry, CompileContext&) {
                                    readSpace(entry.requireObject("space"));
                                    refuseUnsupported(entry, "addSpace");
                                    return StepAction();
                                  }};

const EventRegistration kRemoveSpace{"removeSpace", [](JsonReader& entry, CompileContext& context) {
                                       std::string uuid = entry.requireString("uuid");
                                       if (!context.spaces.count(uuid)) {
                                         entry.fail("uuid", "unknown space \"" + uuid + "\"");
                                       }
                                       refuseUnsupported(entry, "removeSpace");
                                       return StepAction();
                                     }};

}  // namespace
}  // namespace tolv::scenario
