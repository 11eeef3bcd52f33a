#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "cli/clock.h"
#include "cli/command_line.h"

namespace {

/// A standard stream that is closed would give its number to the next file opened. Each is
/// opened the wrong way round, so that using it still fails.
void fillStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1) continue;
    ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  fillStandardStreams();
  // A broken pipe and a file that reaches its size limit are failures of writing like others.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  depcalc::Output out(STDOUT_FILENO);
  depcalc::Output errors(STDERR_FILENO);
  depcalc::Surroundings surroundings{out, errors, depcalc::todayByTheClock()};
  return depcalc::runCommandLine(argc, argv, surroundings);
}
