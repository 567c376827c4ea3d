// Scenarios that can't run as written are refused before anything runs, with
// the place of the problem.

#include <gtest/gtest.h>

#include "app/scenario/Operations.h"
#include "app/scenario/ScenarioTestSupport.h"

namespace tolv::testing {
namespace {

std::string withTimeline(const std::string& timeline) {
  return "{" + twoAppsDesktop() + R"(, "timeline": [)" + timeline + "] }";
}

TEST(ScenarioValidation, UnknownKeysAreNamedWithTheirPlace) {
  EXPECT_EQ(readingError(R"({ "desktop": {}, "timelines": [] })"), "timelines: unknown key");
  EXPECT_EQ(readingError(R"({ "desktop": { "apps": [ { "pid": 5, "windows": [
                 { "title": "A" }, { "title": "B", "colour": "red" } ] } ] } })"),
            "desktop.apps[0].windows[1].colour: unknown key");
  EXPECT_EQ(readingError(withTimeline(R"({ "at": 1, "checkpoint": "a", "colour": 1 })")),
            "timeline[0].colour: unknown key");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "setWindow", "pid": 501,
                 "window": { "index": 0 }, "set": { "hidden": true } })")),
            "timeline[0].set.hidden: unknown key");
}

TEST(ScenarioValidation, WrongTypesAreNamed) {
  EXPECT_EQ(readingError(R"({ "desktop": { "accessibility": "yes" } })"),
            "desktop.accessibility: expected true or false, found a string");
  EXPECT_EQ(readingError(R"({ "desktop": { "apps": [ { "pid": "501" } ] } })"),
            "desktop.apps[0].pid: expected a whole number, found a string");
  EXPECT_EQ(readingError(R"({ "desktop": { "screens": [ { "frame": [0, 0, 100] } ] } })"),
            "desktop.screens[0].frame: expected a list of 4 numbers");
  EXPECT_EQ(readingError(R"({ "desktop": { "textMeasure": "exact" } })"),
            "desktop.textMeasure: expected \"fixed\" or \"toolkit\", found \"exact\"");
  EXPECT_EQ(readingError(R"({ "timeline": { "at": 1 } })"),
            "timeline: expected a list, found an object");
  EXPECT_EQ(readingError("{ \"desktop\": ").rfind("not valid JSON: ", 0), 0u);
}

TEST(ScenarioValidation, ApplicationsMustBeKnownWhenTheEntryRuns) {
  EXPECT_EQ(readingError(withTimeline(R"({ "at": 1, "checkpoint": "a" },
                 { "at": 1, "event": "hideApp", "pid": 501 },
                 { "at": 2, "event": "activateApp", "pid": 502 },
                 { "at": 3, "event": "quitApp", "pid": 999 })")),
            "timeline[3].pid: unknown application 999");
  // A launched application is known from its launch on, in time order rather
  // than file order.
  EXPECT_EQ(readingError(withTimeline(R"({ "at": 5, "event": "launchApp", "app": { "pid": 700 } },
                 { "at": 2, "event": "quitApp", "pid": 700 })")),
            "timeline[1].pid: unknown application 700");
  EXPECT_EQ(readingError(withTimeline(R"({ "at": 2, "event": "launchApp", "app": { "pid": 700 } },
                 { "at": 5, "event": "quitApp", "pid": 700 })")),
            "");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "createCustomGroup",
                 "args": [ [ { "title": "Apple", "pid": 503 } ] ] })")),
            "timeline[0].args[0][0].pid: unknown application 503");
  EXPECT_EQ(readingError(R"({ "desktop": { "apps": [ { "pid": 5 }, { "pid": 5 } ] } })"),
            "desktop.apps[1].pid: a second application with pid 5");
}

TEST(ScenarioValidation, OtherCopiesOfTolvAreOtherProcesses) {
  EXPECT_EQ(readingError(R"({ "desktop": { "otherCopies": [ { "pid": 99 } ] } })"),
            "desktop.otherCopies[0].pid: expected a pid other than Tolv's own (99)");
  EXPECT_EQ(readingError(R"({ "desktop": { "otherCopies": [ { "pid": 7, "quitDelay": -1 } ] } })"),
            "desktop.otherCopies[0].quitDelay: expected seconds, 0 or more");
  EXPECT_EQ(readingError(R"({ "desktop": { "otherCopies": [ { "pid": 7, "stubborn": true } ] } })"),
            "desktop.otherCopies[0].stubborn: unknown key");
}

TEST(ScenarioValidation, EntriesNameOneKnownKind) {
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "shake" })")),
            "timeline[0].event: unknown event \"shake\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "sleep", "checkpoint": "x" })")),
            "timeline[0]: an entry has exactly one of \"event\", \"call\", \"checkpoint\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "at": -1, "checkpoint": "x" })")),
            "timeline[0].at: a time from 0");
  EXPECT_EQ(readingError(withTimeline(R"({ "checkpoint": "x", "fields": [ "tasks" ] })")),
            "timeline[0].fields[0]: unknown field \"tasks\"");
}

TEST(ScenarioValidation, WindowSelectorsNameExactlyOneWindow) {
  EXPECT_EQ(
      readingError(withTimeline(
          R"({ "event": "closeWindow", "pid": 501, "window": { "title": "A", "index": 0 } })")),
      "timeline[0].window: a window selector names exactly one of \"title\", \"number\", "
      "\"index\"");
  EXPECT_EQ(readingError(withTimeline(
                R"({ "event": "focusWindow", "pid": 501, "window": { "index": -1 } })")),
            "timeline[0].window.index: expected a position from 0");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "openWindow", "pid": 501,
                 "window": { "title": "X", "space": "S9" } })")),
            "timeline[0].window.space: unknown space \"S9\"");
}

TEST(ScenarioValidation, EventsAreCheckedBeforeTheRunStarts) {
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "click", "point": [10] })")),
            "timeline[0].point: expected a list of 2 numbers");
  EXPECT_EQ(
      readingError(withTimeline(R"({ "event": "click", "point": [1, 2], "button": "middle" })")),
      "timeline[0].button: expected \"left\" or \"right\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "chooseMenuItem" })")),
            "timeline[0].title: missing");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "key", "key": "tab", "phase": "hold" })")),
            "timeline[0].phase: expected \"press\", \"down\" or \"up\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "setBadge", "name": "Mail", "label": 3 })")),
            "timeline[0].label: expected a string, found a number");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "setVolume" })")),
            "timeline[0].level: missing");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "scroll", "deltaY": 1 })")),
            "timeline[0].point: missing");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "switchSpace", "space": "Main", "x": 1 })")),
            "timeline[0].x: unknown key");
}

TEST(ScenarioValidation, SpacesNeedAKeyAndEventsNameSpacesThatExistThen) {
  EXPECT_EQ(readingError(R"({ "desktop": { "spaces": [ { "type": 4 } ] } })"),
            "desktop.spaces[0].uuid: a space needs a uuid or a managedSpaceID");
  EXPECT_EQ(
      readingError(R"({ "desktop": { "spaces": [ { "uuid": "A", "tileApps": "Safari" } ] } })"),
      "desktop.spaces[0].tileApps: expected a list of application names");
  EXPECT_EQ(readingError(R"({ "desktop": { "spaces": [ { "managedSpaceID": 4 },
                                                      { "uuid": "msid:4" } ] } })"),
            "desktop.spaces[1].uuid: a second space \"msid:4\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "removeSpace", "uuid": "Main" },
                                        { "event": "switchSpace", "space": "Main" })")),
            "timeline[1].space: unknown space \"Main\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "event": "addSpace", "space": { "uuid": "Main" } })")),
            "timeline[0].space: a second space \"Main\"");
}

TEST(ScenarioValidation, CallsMatchTheOperationsParameters) {
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveWindowSomewhere", "args": [] })")),
            "timeline[0].call: unknown operation \"moveWindowSomewhere\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask", "args": [ "a", "b" ] })")),
            "timeline[0].args: \"moveTask\" takes 3 arguments, found 2");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "publishScannedApps", "args": [ 1 ] })")),
            "timeline[0].args: \"publishScannedApps\" takes 0 arguments, found 1");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask", "args": [ "a", "b", "yes" ] })")),
            "timeline[0].args[2]: expected true or false, found a string");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask", "args": [ 4, "b", true ] })")),
            "timeline[0].args[0]: expected a task id or a selector { \"title\", \"pid\" }, found "
            "a number");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "ungroupList", "args": [ "501" ] })")),
            "timeline[0].args[0]: expected a group id (\"auto:PID\" or \"custom:KEY\"), found "
            "\"501\"");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask",
                 "args": { "dragged": "a", "target": "b" } })")),
            "timeline[0].args.placeAfter: missing");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask",
                 "args": { "dragged": "a", "target": "b", "placeAfter": true, "after": 1 } })")),
            "timeline[0].args.after: unknown key");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask",
                 "args": [ { "name": "Apple" }, "b", true ] })")),
            "timeline[0].args[0].name: unknown key");
  EXPECT_EQ(readingError(withTimeline(R"({ "call": "moveTask", "args": [ {}, "b", true ] })")),
            "timeline[0].args[0]: a task selector needs \"title\" or \"pid\"");
}

TEST(ScenarioValidation, TheOperationsOfEveryTopicAreRegistered) {
  for (const char* name :
       {"refreshRunningApps", "publishScannedApps", "setTaskbarHidden", "moveTask", "moveTaskSet",
        "setTaskOrder", "resetTaskbarArrangement", "createCustomGroup", "dropTaskOntoTask",
        "renameCustomGroup", "clearRecents", "taskbarGroupingModeChanged", "persistSettings"}) {
    EXPECT_NE(scenario::findOperation(name), nullptr) << name;
  }
}

}  // namespace
}  // namespace tolv::testing
