#include "platform/qt/QtInstanceLauncher.h"

#include <unistd.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <filesystem>

extern char** environ;

namespace tolv::qt {

CommandLine CommandLine::ofThisProcess(int argc, char** argv) {
  CommandLine line;
  for (int i = 1; i < argc; ++i)
    line.arguments.emplace_back(argv[i]);
  for (char** variable = environ; variable && *variable; ++variable)
    line.environment.emplace_back(*variable);
  std::error_code error;
  line.workingDirectory = std::filesystem::current_path(error).string();
  return line;
}

std::string runningExecutable() {
  std::error_code error;
  std::string path = std::filesystem::read_symlink("/proc/self/exe", error).string();
  return error ? std::string() : path;
}

bool QtInstanceLauncher::canLaunchNewInstance() {
  std::error_code error;
  return std::filesystem::is_regular_file("/proc/self/exe", error);
}

void QtInstanceLauncher::launchNewInstance(Completion done) {
  // The file as it is now, even when it has been replaced or removed since the
  // start: /proc/self/exe still opens the one that runs.
  std::string program = runningExecutable();
  std::error_code error;
  if (program.empty() || !std::filesystem::is_regular_file(program, error)) {
    program = "/proc/self/exe";
  }
  QStringList arguments;
  for (const auto& argument : commandLine_.arguments)
    arguments << QString::fromLocal8Bit(argument);
  QProcessEnvironment environment;
  for (const auto& variable : commandLine_.environment) {
    auto equals = variable.find('=');
    if (equals == std::string::npos) continue;
    environment.insert(QString::fromLocal8Bit(variable.substr(0, equals)),
                       QString::fromLocal8Bit(variable.substr(equals + 1)));
  }
  QProcess process;
  process.setProgram(QString::fromLocal8Bit(program));
  process.setArguments(arguments);
  process.setProcessEnvironment(environment);
  process.setWorkingDirectory(QString::fromLocal8Bit(commandLine_.workingDirectory));
  std::optional<std::string> failure;
  if (!process.startDetached()) failure = process.errorString().toStdString();
  runLoop_.post([done = std::move(done), failure] { done(failure); });
}

}  // namespace tolv::qt
