#include "tests/support/postgres_server.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace depcalc::testing_support {
namespace {

/// Runs `arguments` with the ends of two pipes as standard input and output, in a session of its
/// own: what ends the test by the keyboard leaves it to end by itself.
pid_t spawn(std::vector<std::string> arguments, int input, int output) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::setsid();
  ::dup2(input, STDIN_FILENO);
  if (output >= 0) ::dup2(output, STDOUT_FILENO);
  ::execvp(pointers[0], pointers.data());
  ::_exit(127);
}

std::string readAll(int descriptor) {
  std::string text;
  char buffer[4096];
  for (ssize_t count = 0; (count = ::read(descriptor, buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  return text;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Pipe {
  Pipe() {
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  int ends[2] = {};
};

std::vector<std::string> arguments(const PostgresOptions& options) {
  std::vector<std::string> result{DEPCALC_POSTGRES_SERVER};
  if (options.durable) result.emplace_back("--durable");
  if (!options.replica_of.empty()) {
    result.emplace_back("--replica-of");
    result.push_back(options.replica_of);
  }
  result.insert(result.end(), options.settings.begin(), options.settings.end());
  return result;
}

}  // namespace

PostgresServer::PostgresServer(const PostgresOptions& options) {
  std::signal(SIGPIPE, SIG_IGN);
  const Pipe commands;
  const Pipe answers;
  keeper_ = spawn(arguments(options), commands.ends[0], answers.ends[1]);
  ::close(commands.ends[0]);
  ::close(answers.ends[1]);
  to_ = commands.ends[1];
  from_ = answers.ends[0];
  const std::string ready = answer();
  if (!ready.starts_with("ready ")) {
    end();
    throw std::runtime_error("The server did not start: " + ready);
  }
  directory_ = ready.substr(6);
}

PostgresServer::~PostgresServer() { end(); }

void PostgresServer::end() {
  ::close(to_);
  readAll(from_);
  ::close(from_);
  ::waitpid(keeper_, nullptr, 0);
}

std::string PostgresServer::answer() {
  std::string line;
  char c = 0;
  while (::read(from_, &c, 1) == 1 && c != '\n') line += c;
  return line;
}

void PostgresServer::tell(const std::string& command) {
  const std::string line = command + "\n";
  const auto size = static_cast<ssize_t>(line.size());
  const std::string said = ::write(to_, line.data(), line.size()) == size ? answer() : "";
  if (said != "ok") throw std::runtime_error(command + ": " + said + "\n" + log());
}

std::string PostgresServer::connection(const std::string& database, const std::string& user) const {
  return "host=" + directory_ + " user=" + user + " dbname=" + database;
}

std::string PostgresServer::address(const std::string& database, const std::string& user) const {
  std::string host;
  for (const char c : directory_) host += c == '/' ? "%2F" : std::string(1, c);
  return "postgresql://" + user + "@" + host + "/" + database;
}

std::string PostgresServer::sql(const std::string& commands, const std::string& database) const {
  const Pipe input;
  const Pipe output;
  const pid_t psql = spawn({"psql", "-XAtq", "-v", "ON_ERROR_STOP=1", "-d", connection(database)},
                           input.ends[0], output.ends[1]);
  ::close(input.ends[0]);
  ::close(output.ends[1]);
  const bool written = ::write(input.ends[1], commands.data(), commands.size()) ==
                       static_cast<ssize_t>(commands.size());
  ::close(input.ends[1]);
  std::string result = readAll(output.ends[0]);
  ::close(output.ends[0]);
  int status = 0;
  ::waitpid(psql, &status, 0);
  if (status != 0 || !written) throw std::runtime_error("psql failed: " + commands);
  return result;
}

pid_t PostgresServer::process() const {
  pid_t process = 0;
  std::istringstream(readFile(directory_ + "/data/postmaster.pid")) >> process;
  return process;
}

std::string PostgresServer::log() const { return readFile(directory_ + "/log"); }

}  // namespace depcalc::testing_support
