// The refresh pipeline, the model's life and the observers.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kRefreshOps{{
    {"refreshRunningApps",
     {{"forceBadgeScan", K::Flag},
      {"allowCacheSkip", K::Flag},
      {"onlyIfDirty", K::Flag},
      {"publish", K::Flag}},
     [](AppModel& m, A a) {
       m.refreshRunningApps({.forceBadgeScan = a.flag(0),
                             .allowCacheSkip = a.flag(1),
                             .onlyIfDirty = a.flag(2),
                             .publish = a.flag(3)});
     }},
    {"publishScannedApps", {}, [](AppModel& m, A) { m.publishScannedApps(); }},
    {"setTaskbarHidden",
     {{"hidden", K::Flag}},
     [](AppModel& m, A a) { m.setTaskbarHidden(a.flag(0)); }},
    {"scheduleActionRefresh", {}, [](AppModel& m, A) { m.scheduleActionRefresh(); }},
    {"restoreLastGoodDesktopList", {}, [](AppModel& m, A) { m.restoreLastGoodDesktopList(); }},
    {"configureTimers", {}, [](AppModel& m, A) { m.configureTimers(); }},
    {"runWindowScanTick", {}, [](AppModel& m, A) { m.runWindowScanTick(); }},
    {"runRefreshTick", {}, [](AppModel& m, A) { m.runRefreshTick(); }},
    {"runBackgroundRefreshTick", {}, [](AppModel& m, A) { m.runBackgroundRefreshTick(); }},
    {"beginInitialRefresh",
     {{"forceBadgeScan", K::Flag}},
     [](AppModel& m, A a) { m.beginInitialRefresh(a.flag(0)); }},
    {"refreshAccessibilityTrust", {}, [](AppModel& m, A) { m.refreshAccessibilityTrust(); }},
    {"setSystemInactive",
     {{"reason", K::String}, {"inactive", K::Flag}},
     [](AppModel& m, A a) { m.setSystemInactive(a.string(0), a.flag(1)); }},
    {"handleActiveSpaceChange", {}, [](AppModel& m, A) { m.handleActiveSpaceChange(); }},
    {"removeAllAXObservers", {}, [](AppModel& m, A) { m.removeAllAXObservers(); }},
    {"setAXObserverDeliverySuspended",
     {{"suspended", K::Flag}},
     [](AppModel& m, A a) { m.setAXObserverDeliverySuspended(a.flag(0)); }},
    {"forgetObservedApplication",
     {{"pid", K::Pid}},
     [](AppModel& m, A a) { m.forgetObservedApplication(a.pid(0)); }},
    {"addAlternateIdentifierApp",
     {{"bundleIdentifier", K::String}},
     [](AppModel& m, A a) { m.addAlternateIdentifierApp(a.string(0)); }},
    {"removeAlternateIdentifierApp",
     {{"bundleIdentifier", K::String}},
     [](AppModel& m, A a) { m.removeAlternateIdentifierApp(a.string(0)); }},
}};

}  // namespace
}  // namespace tolv::scenario
