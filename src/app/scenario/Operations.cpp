#include "app/scenario/Operations.h"

#include <map>

namespace tolv::scenario {

namespace {

std::map<std::string, Operation, std::less<>>& operationRegistry() {
  static std::map<std::string, Operation, std::less<>> registry;
  return registry;
}

[[noreturn]] void failAt(const std::string& place, const std::string& problem) {
  throw ScenarioError(place + ": " + problem);
}

void expectType(bool matches, const Json& given, const std::string& place, const char* expected) {
  if (!matches)
    failAt(place, std::string("expected ") + expected + ", found " + describeType(given));
}

// A task given as an id, or as a selector of known keys and a known pid.
void checkTask(const Json& given, const std::string& place, const CompileContext& context) {
  if (given.is_string()) return;
  expectType(given.is_object(), given, place, "a task id or a selector { \"title\", \"pid\" }");
  JsonReader selector(given, place);
  auto title = selector.string("title");
  std::optional<int64_t> pid = selector.integer("pid");
  selector.finish();
  if (!title && !pid) failAt(place, "a task selector needs \"title\" or \"pid\"");
  if (pid && !context.knows(static_cast<Pid>(*pid))) {
    failAt(place + ".pid", "unknown application " + std::to_string(*pid));
  }
}

void checkList(const Json& given, const std::string& place, const CompileContext& context) {
  expectType(given.is_array(), given, place, "a list of tasks");
  for (size_t i = 0; i < given.size(); ++i)
    checkTask(given[i], place + "[" + std::to_string(i) + "]", context);
}

void checkArgument(ArgKind kind, const Json& given, const std::string& place,
                   const CompileContext& context) {
  switch (kind) {
    case ArgKind::Task:
    case ArgKind::TaskID:
      return checkTask(given, place, context);
    case ArgKind::TaskList:
    case ArgKind::TaskIDList:
      return checkList(given, place, context);
    case ArgKind::Group: {
      expectType(given.is_string(), given, place, "a group id");
      std::string id = given.get<std::string>();
      if (id.rfind("auto:", 0) != 0 && id.rfind("custom:", 0) != 0) {
        failAt(place, "expected a group id (\"auto:PID\" or \"custom:KEY\"), found \"" + id + "\"");
      }
      return;
    }
    case ArgKind::WorkspaceTask:
      return expectType(given.is_string(), given, place, "a workspace task id");
    case ArgKind::Flag:
      return expectType(given.is_boolean(), given, place, "true or false");
    case ArgKind::Number:
      return expectType(given.is_number(), given, place, "a number");
    case ArgKind::Pid:
      expectType(given.is_number_integer(), given, place, "a pid");
      if (!context.knows(static_cast<Pid>(given.get<int64_t>()))) {
        failAt(place, "unknown application " + std::to_string(given.get<int64_t>()));
      }
      return;
    case ArgKind::String:
      return expectType(given.is_string(), given, place, "a string");
    case ArgKind::OptionalString:
      return expectType(given.is_string() || given.is_null(), given, place, "a string or null");
  }
}

std::string describeSelector(const Json& selector) {
  std::string text;
  if (selector.contains("title")) text = "titled \"" + selector["title"].get<std::string>() + "\"";
  if (selector.contains("pid")) {
    if (!text.empty()) text += " ";
    text += "of pid " + std::to_string(selector["pid"].get<int64_t>());
  }
  return text;
}

std::string resolveTaskID(const AppModel& model, const Json& given, const std::string& place) {
  if (given.is_string()) return given.get<std::string>();
  return resolveTask(model, given, place).id;
}

template <class Resolve>
auto resolveEach(const Json& list, const std::string& place, Resolve resolve) {
  std::vector<decltype(resolve(list[0], place))> result;
  for (size_t i = 0; i < list.size(); ++i)
    result.push_back(resolve(list[i], place + "[" + std::to_string(i) + "]"));
  return result;
}

ManagedWorkspaceTask resolveWorkspace(const AppModel& model, const std::string& id,
                                      const std::string& place) {
  for (const auto& task : model.managedWorkspaceTasks.get()) {
    if (task.id == id || "workspace:" + task.id == id) return task;
  }
  failAt(place, "no workspace task \"" + id + "\"");
}

Argument resolveArgument(const AppModel& model, ArgKind kind, const Json& given,
                         const std::string& place) {
  switch (kind) {
    case ArgKind::Task:
      return resolveTask(model, given, place);
    case ArgKind::TaskID:
      return resolveTaskID(model, given, place);
    case ArgKind::TaskList:
      return resolveEach(given, place, [&](const Json& task, const std::string& at) {
        return resolveTask(model, task, at);
      });
    case ArgKind::TaskIDList:
      return resolveEach(given, place, [&](const Json& task, const std::string& at) {
        return resolveTaskID(model, task, at);
      });
    case ArgKind::Group:
      return resolveGroup(model, given.get<std::string>(), place);
    case ArgKind::WorkspaceTask:
      return resolveWorkspace(model, given.get<std::string>(), place);
    case ArgKind::Flag:
      return given.get<bool>();
    case ArgKind::Number:
      return given.get<double>();
    case ArgKind::Pid:
      return static_cast<Pid>(given.get<int64_t>());
    case ArgKind::String:
      return given.get<std::string>();
    case ArgKind::OptionalString:
      return given.is_null() ? std::optional<std::string>() : given.get<std::string>();
  }
  failAt(place, "unreadable argument");
}

}  // namespace

OperationRegistration::OperationRegistration(std::vector<Operation> operations) {
  for (auto& operation : operations) {
    std::string name = operation.name;
    operationRegistry()[name] = std::move(operation);
  }
}

const Operation* findOperation(std::string_view name) {
  auto found = operationRegistry().find(name);
  return found == operationRegistry().end() ? nullptr : &found->second;
}

RunningAppItem resolveTask(const AppModel& model, const Json& given, const std::string& place) {
  const auto& tasks = model.runningApps.get();
  if (given.is_string()) {
    std::string id = given.get<std::string>();
    for (const auto& task : tasks) {
      if (task.id == id) return task;
    }
    failAt(place, "no task \"" + id + "\"");
  }
  std::optional<std::string> title;
  std::optional<Pid> pid;
  if (given.contains("title")) title = given["title"].get<std::string>();
  if (given.contains("pid")) pid = static_cast<Pid>(given["pid"].get<int64_t>());
  std::vector<const RunningAppItem*> matches;
  for (const auto& task : tasks) {
    if ((!title || task.name == *title) && (!pid || task.processIdentifier == *pid)) {
      matches.push_back(&task);
    }
  }
  if (matches.empty()) failAt(place, "no task " + describeSelector(given));
  if (matches.size() > 1) {
    failAt(place, std::to_string(matches.size()) + " tasks " + describeSelector(given) +
                      "; give the task's id or its pid as well");
  }
  return *matches.front();
}

RunningAppGroup resolveGroup(const AppModel& model, const std::string& id,
                             const std::string& place) {
  // A group the grouping mode doesn't form now is found among the groups
  // that grouping everything would form.
  for (bool groupAll : {false, true}) {
    for (const auto& entry :
         model.taskbarEntries({.groupAll = groupAll, .includeWorkspaces = true})) {
      if (entry.group && entry.group->id == id) return *entry.group;
    }
  }
  failAt(place, "no group \"" + id + "\"");
}

StepAction readCall(JsonReader& entry, const CompileContext& context) {
  std::string name = entry.requireString("call");
  const Operation* operation = findOperation(name);
  if (!operation) entry.fail("call", "unknown operation \"" + name + "\"");
  const auto& parameters = operation->parameters;

  // Each parameter's JSON value and its place, in the operation's order.
  std::vector<std::pair<Json, std::string>> given;
  const Json* args = entry.take("args");
  std::string argsPlace = entry.placeOf("args");
  if (!args || args->is_array()) {
    size_t count = args ? args->size() : 0;
    if (count != parameters.size()) {
      failAt(argsPlace, "\"" + name + "\" takes " + std::to_string(parameters.size()) +
                            " argument" + (parameters.size() == 1 ? "" : "s") + ", found " +
                            std::to_string(count));
    }
    for (size_t i = 0; i < count; ++i)
      given.emplace_back((*args)[i], argsPlace + "[" + std::to_string(i) + "]");
  } else if (args->is_object()) {
    JsonReader named(*args, argsPlace);
    for (const auto& parameter : parameters) {
      given.emplace_back(named.require(parameter.name), named.placeOf(parameter.name));
    }
    named.finish();
  } else {
    failAt(argsPlace, "expected a list or an object, found " + describeType(*args));
  }
  for (size_t i = 0; i < parameters.size(); ++i)
    checkArgument(parameters[i].kind, given[i].first, given[i].second, context);

  return [operation, given](RunContext& run) {
    std::vector<Argument> resolved;
    for (size_t i = 0; i < given.size(); ++i) {
      resolved.push_back(resolveArgument(run.model, operation->parameters[i].kind, given[i].first,
                                         given[i].second));
    }
    if (operation->runInApplication) {
      operation->runInApplication(run, Arguments(std::move(resolved)));
    } else {
      operation->run(run.model, Arguments(std::move(resolved)));
    }
  };
}

}  // namespace tolv::scenario
