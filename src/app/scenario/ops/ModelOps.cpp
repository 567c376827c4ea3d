// Settings written by the model, and the icon cache.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kModelOps{{
    {"persistSettings", {}, [](AppModel& m, A) { m.persistSettings(); }},
    {"persistQuickLaunchSettings", {}, [](AppModel& m, A) { m.persistQuickLaunchSettings(); }},
    {"persistSetting",
     {{"key", K::String}},
     [](AppModel& m, A a) { m.persistSetting(a.string(0)); }},
    {"loadIconCache", {}, [](AppModel& m, A) { m.loadIconCache(); }},
    {"clearIconCaches", {}, [](AppModel& m, A) { m.clearIconCaches(); }},
}};

}  // namespace
}  // namespace tolv::scenario
