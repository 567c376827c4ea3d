// A restart on the live desktop: the running program is replaced by a new
// process of the same file, with the same arguments, which waits for the old
// one to end instead of asking the user.

#include <gtest/gtest.h>

#include <signal.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include <nlohmann/json.hpp>

#include "LiveDesktop.h"

namespace tolv::x11::testing {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

std::vector<Json> dumpLines(const std::string& path) {
  std::vector<Json> parsed;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    Json value = Json::parse(line, nullptr, false);
    if (!value.is_discarded()) parsed.push_back(std::move(value));
  }
  return parsed;
}

std::string contents(const std::string& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

// A process's arguments as the kernel keeps them, the program's name first.
std::vector<std::string> commandLineOf(Pid pid) {
  std::string raw = contents("/proc/" + std::to_string(pid) + "/cmdline");
  std::vector<std::string> arguments;
  std::string current;
  for (char c : raw) {
    if (c == '\0') {
      arguments.push_back(current);
      current.clear();
    } else {
      current += c;
    }
  }
  return arguments;
}

// The copies of Tolv that announce themselves in a runtime folder.
std::vector<Pid> announcedCopies(const std::string& runtimeFolder) {
  std::vector<Pid> pids;
  const std::string prefix = "com.example.Tolv-";
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(runtimeFolder + "/Tolv", error)) {
    std::string name = entry.path().filename().string();
    if (name.starts_with(prefix) && name.ends_with(".pid")) {
      pids.push_back(std::stoi(name.substr(prefix.size())));
    }
  }
  return pids;
}

bool alive(Pid pid) {
  return ::kill(pid, 0) == 0;
}

class LiveRestart : public LiveDesktopTest {};

TEST_F(LiveRestart, ARestartReplacesTheProcessFromAPathWithAQuoteKeepingTheArrangement) {
  Pid alpha = spawn({"xterm", "-T", "Tolv Alpha"});
  spawn({"xterm", "-T", "Tolv Beta"});
  ASSERT_TRUE(waitUntil([&] { return desktop->clients().taskPids().size() == 2; }));

  // The program, run from a folder whose name a shell would misread.
  const std::string folder = scratchFolder() + "/it's \"here\" $HOME";
  fs::create_directories(folder);
  const std::string program = folder + "/tolv";
  std::error_code linked;
  fs::create_hard_link(tolvProgram(), program, linked);
  if (linked) fs::copy_file(tolvProgram(), program);

  const std::string scenario = folder + "/restart.json";
  const std::string dump = folder + "/out $1.jsonl";
  const std::string output = scratchFolder() + "/tolv.out";
  const Json fields = {"taskOrder", "runningApps"};
  std::ofstream(scenario)
      << Json{{"runFor", 30},
              {"timeline",
               {{{"at", 1.5},
                 {"call", "moveTaskToEdge"},
                 {"args", {{{"title", "Tolv Alpha"}, {"pid", alpha}}, false}}},
                {{"at", 2}, {"checkpoint", "before"}, {"fields", fields}},
                {{"at", 4}, {"call", "performRestart"}, {"args", {true, true}}}}}}
             .dump();
  Pid old = spawn({program, "--scenario", scenario, "--dump", dump}, output);
  ASSERT_TRUE(waitUntil([&] { return dumpLines(dump).size() == 1; })) << contents(output);
  const Json before = dumpLines(dump).front();
  ASSERT_EQ(before["runningApps"].size(), 2u) << before.dump();

  // The new process reads the same file: from now on it holds a run that only looks.
  std::ofstream(scenario + ".new")
      << Json{{"runFor", 3},
              {"timeline", {{{"at", 2}, {"checkpoint", "after"}, {"fields", fields}}}}}
             .dump();
  fs::rename(scenario + ".new", scenario);

  ASSERT_EQ(waitForExit(old), 0) << contents(output);
  const std::string runtime = scratchFolder() + "/runtime";
  std::vector<Pid> copies;
  ASSERT_TRUE(waitUntil([&] {
    copies = announcedCopies(runtime);
    return copies.size() == 1;
  })) << contents(output);
  const Pid replacement = copies.front();
  // Not a child of the test: ended here whatever the checks below find.
  std::shared_ptr<void> endReplacement(nullptr, [replacement](void*) {
    if (alive(replacement)) ::kill(replacement, SIGTERM);
  });
  EXPECT_NE(replacement, old);
  EXPECT_EQ(fs::read_symlink("/proc/" + std::to_string(replacement) + "/exe"), program);
  std::vector<std::string> arguments = commandLineOf(replacement);
  ASSERT_FALSE(arguments.empty());
  EXPECT_EQ(std::vector<std::string>(arguments.begin() + 1, arguments.end()),
            (std::vector<std::string>{"--scenario", scenario, "--dump", dump}));

  // The new process ran without a question (a modal one would hold it) and
  // found the tasks in the order the old one kept.
  ASSERT_TRUE(waitUntil([&] { return !alive(replacement); }, 20)) << contents(output);
  const auto lines = dumpLines(dump);
  ASSERT_EQ(lines.size(), 1u) << contents(dump);
  EXPECT_EQ(lines[0]["checkpoint"], "after");
  // The arrangement was the user's: Alpha moved to the end.
  ASSERT_EQ(before["taskOrder"].size(), 2u) << before.dump();
  for (const auto& task : before["runningApps"]) {
    if (task["name"] == "Tolv Alpha") {
      EXPECT_EQ(task["id"], before["taskOrder"][1]);
    }
  }
  EXPECT_EQ(lines[0]["taskOrder"], before["taskOrder"]);
}

// "Show Error Log" and the settings' log row reach the desktop's own default
// applications: the test installs one for text and folders that notes what it
// was asked to open.
TEST_F(LiveRestart, TheLogOpensInTheDefaultEditorAndItsFolderInTheFileManager) {
  const std::string record = scratchFolder() + "/opened.txt";
  const std::string script = scratchFolder() + "/record-open";
  std::ofstream(script) << "#!/bin/sh\nfor f in \"$@\"; do printf '%s\\n' \"$f\" >> '" + record +
                               "'; done\n";
  fs::permissions(script, fs::perms::owner_all);
  fs::create_directories(scratchFolder() + "/data/applications");
  fs::create_directories(scratchFolder() + "/config");
  std::ofstream(scratchFolder() + "/data/applications/tolv-test-recorder.desktop")
      << "[Desktop Entry]\nType=Application\nName=Recorder\nExec=" + script +
             " %F\nMimeType=text/plain;inode/directory;\n";
  std::ofstream(scratchFolder() + "/config/mimeapps.list")
      << "[Default Applications]\ntext/plain=tolv-test-recorder.desktop\n"
         "inode/directory=tolv-test-recorder.desktop\n";

  const std::string scenario = scratchFolder() + "/log.json";
  std::ofstream(scenario)
      << Json{{"runFor", 2}, {"timeline", {{{"at", 1}, {"call", "openRuntimeLog"}}}}}.dump();
  const std::string output = scratchFolder() + "/tolv.out";
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario}, output);
  ASSERT_EQ(waitForExit(tolv), 0) << contents(output);

  const std::string log = dataFolder + "/runtime-errors.log";
  EXPECT_TRUE(fs::exists(log));
  ASSERT_TRUE(waitUntil([&] {
    const std::string opened = contents(record);
    return opened.find(log + "\n") != std::string::npos &&
           opened.find(dataFolder + "\n") != std::string::npos;
  })) << contents(record)
      << contents(output);
}

}  // namespace
}  // namespace tolv::x11::testing
