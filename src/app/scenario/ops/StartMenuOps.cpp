// The start menu: its lists and search, favourites and opening applications.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kStartMenuOps{{
    {"addApplicationToStartFavorites",
     {{"group", K::Group}},
     [](AppModel& m, A a) { m.addApplicationToStartFavorites(a.group(0)); }},
    {"removeStartFavorite",
     {{"id", K::String}},
     [](AppModel& m, A a) { m.removeStartFavorite(a.string(0)); }},
    {"moveStartFavorite",
     {{"draggedID", K::String}, {"targetID", K::String}},
     [](AppModel& m, A a) { m.moveStartFavorite(a.string(0), a.string(1)); }},
    {"selectStartMenuList",
     {{"list", K::String}},
     [](AppModel& m, A a) { m.selectStartMenuList(a.string(0)); }},
    {"setApplicationSearch",
     {{"text", K::String}},
     [](AppModel& m, A a) { m.setApplicationSearch(a.string(0)); }},
    {"loadRunningApplications", {}, [](AppModel& m, A) { m.loadRunningApplications(); }},
    {"openApplicationByBundleIdentifier",
     {{"identifier", K::String}},
     [](AppModel& m, A a) { m.openApplicationByBundleIdentifier(a.string(0)); }},
    {"searchFiles", {{"query", K::String}}, [](AppModel& m, A a) { m.searchFiles(a.string(0)); }},
}};

}  // namespace
}  // namespace tolv::scenario
