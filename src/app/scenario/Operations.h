#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/scenario/JsonReader.h"
#include "app/scenario/RunContext.h"
#include "model/AppModel.h"

namespace tolv::scenario {

// How a model operation's argument is written in a scenario and what the
// operation receives.
enum class ArgKind {
  Task,            // a task: its id or a selector { "title", "pid" }; the task itself
  TaskID,          // the same, or any id the operation takes ("group::..."); the id
  TaskList,        // a list of Task
  TaskIDList,      // a list of TaskID
  Group,           // a group id, "auto:501" or "custom:KEY"; the group
  WorkspaceTask,   // a workspace task's id, with or without "workspace:"
  Flag,            // true or false
  Number,          // any number
  Pid,             // a known application's pid
  String,          // a string
  OptionalString,  // a string or null
};

struct Parameter {
  std::string name;  // as in the code, for the object form of "args"
  ArgKind kind;
};

using Argument = std::variant<RunningAppItem, std::string, std::vector<RunningAppItem>,
                              std::vector<std::string>, RunningAppGroup, ManagedWorkspaceTask, bool,
                              double, Pid, std::optional<std::string>>;

// The arguments of one call, resolved against the model when it runs.
class Arguments {
 public:
  explicit Arguments(std::vector<Argument> values) : values_(std::move(values)) {}

  const RunningAppItem& task(size_t i) const { return get<RunningAppItem>(i); }
  const std::string& id(size_t i) const { return get<std::string>(i); }
  const std::string& string(size_t i) const { return get<std::string>(i); }
  const std::vector<RunningAppItem>& tasks(size_t i) const {
    return get<std::vector<RunningAppItem>>(i);
  }
  const std::vector<std::string>& ids(size_t i) const { return get<std::vector<std::string>>(i); }
  const RunningAppGroup& group(size_t i) const { return get<RunningAppGroup>(i); }
  const ManagedWorkspaceTask& workspace(size_t i) const { return get<ManagedWorkspaceTask>(i); }
  bool flag(size_t i) const { return get<bool>(i); }
  double number(size_t i) const { return get<double>(i); }
  Pid pid(size_t i) const { return get<Pid>(i); }
  const std::optional<std::string>& optionalString(size_t i) const {
    return get<std::optional<std::string>>(i);
  }

 private:
  template <class T>
  const T& get(size_t i) const {
    return std::get<T>(values_.at(i));
  }
  std::vector<Argument> values_;
};

// Model operations ("call" entries of the timeline), by the names the model's
// code gives them. A topic registers its operations from its own file:
//
//   const OperationRegistration kOps{{
//       {"moveTaskToEdge", {{"identifier", ArgKind::TaskID}, {"toFirst", ArgKind::Flag}},
//        [](AppModel& m, const Arguments& a) { m.moveTaskToEdge(a.id(0), a.flag(1)); }},
//   }};
//
// The library is linked whole, so such a file needs no other change.
struct Operation {
  std::string name;
  std::vector<Parameter> parameters;
  std::function<void(AppModel&, const Arguments&)> run;
  // Instead of `run`, for the operations of the application around the model.
  std::function<void(RunContext&, const Arguments&)> runInApplication = nullptr;
};

struct OperationRegistration {
  OperationRegistration(std::vector<Operation> operations);
};

const Operation* findOperation(std::string_view name);

// Reads a "call" entry: the name, then "args" in either form, checked against
// the parameters. Tasks and groups are looked up when the call runs.
StepAction readCall(JsonReader& entry, const CompileContext& context);

// Looks a task argument up in runningApps: by id, or by a selector's title and
// pid. Errors name `place`.
RunningAppItem resolveTask(const AppModel& model, const Json& given, const std::string& place);
RunningAppGroup resolveGroup(const AppModel& model, const std::string& id,
                             const std::string& place);

}  // namespace tolv::scenario
