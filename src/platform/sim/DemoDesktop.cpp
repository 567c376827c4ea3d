#include "platform/sim/DemoDesktop.h"

namespace tolv::sim {

const char* demoScenario() {
  return R"json({
  "desktop": {
    "spaces": [
      { "uuid": "DESKTOP-1", "current": true },
      { "uuid": "DESKTOP-2" },
      { "uuid": "NOTES-FULL-SCREEN", "type": 4, "pid": 503 }
    ],
    "apps": [
      { "pid": 301, "bundleIdentifier": "com.apple.finder", "name": "Finder",
        "bundleURL": "/System/Library/CoreServices/Finder.app",
        "windows": [ { "title": "Documents", "position": [60, 120], "size": [620, 420] }, { "title": "Downloads", "position": [110, 170], "size": [620, 420] } ] },
      { "pid": 501, "bundleIdentifier": "com.apple.Safari", "name": "Safari",
        "bundleURL": "/Applications/Safari.app", "active": true,
        "windows": [ { "title": "Apple", "focused": true, "position": [400, 110], "size": [900, 600] }, { "title": "Tolv — Wikipedia", "position": [450, 150], "size": [900, 600] } ] },
      { "pid": 502, "bundleIdentifier": "com.apple.mail", "name": "Mail",
        "bundleURL": "/Applications/Mail.app",
        "windows": [ { "title": "Inbox – 3 messages", "position": [780, 200], "size": [600, 440] } ] },
      { "pid": 503, "bundleIdentifier": "com.apple.Notes", "name": "Notes",
        "bundleURL": "/Applications/Notes.app",
        "windows": [ { "title": "Shopping list", "position": [160, 430], "size": [420, 360] },
                     { "title": "Recipes", "space": "NOTES-FULL-SCREEN" } ] },
      { "pid": 504, "bundleIdentifier": "com.apple.Terminal", "name": "Terminal",
        "bundleURL": "/Applications/Terminal.app",
        "windows": [ { "title": "~ — zsh — 80×24", "position": [880, 470], "size": [520, 330] }, { "title": "build — make — 120×40", "position": [920, 520], "size": [480, 300] } ] },
      { "pid": 505, "bundleIdentifier": "com.apple.TextEdit", "name": "TextEdit",
        "bundleURL": "/Applications/TextEdit.app",
        "windows": [ { "title": "Untitled 2.txt", "space": "DESKTOP-2" } ] },
      { "pid": 506, "bundleIdentifier": "com.example.Clipper", "name": "Clipper",
        "bundleURL": "/Applications/Clipper.app", "policy": "accessory" }
    ],
    "defaults": { "com.example.Tolv": { "showTimeAndDate": true } },
    "dock": { "badges": { "Mail": "3", "Messages": "1" } },
    "battery": { "capacity": 76, "charging": false, "state": "Battery Power" },
    "volume": 0.6,
    "brightness": 0.8
  },
  "timeline": [
    { "at": 3.0, "checkpoint": "desktop" },
    { "at": 6.0, "event": "openWindow", "pid": 502, "window": { "title": "New Message", "focused": true,
                                                          "position": [540, 260], "size": [560, 420] } },
    { "at": 6.0, "event": "activateApp", "pid": 502 },
    { "at": 9.0, "checkpoint": "new-message" }
  ]
})json";
}

}  // namespace tolv::sim
