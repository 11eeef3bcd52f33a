#include "tests/desktop/real/display.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <vector>

namespace depcalc::testing {
namespace {

constexpr auto patience = std::chrono::seconds(60);

/// Runs a program that says nothing and ends when we do; `kept` stays open in it.
pid_t start(std::vector<std::string> words, int kept = -1) {
  const pid_t process = ::fork();
  if (process != 0) return process;
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (const int stream : {0, 1, 2}) ::dup2(nowhere, stream);
  if (kept >= 0) ::fcntl(kept, F_SETFD, 0);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::execvp(arguments.front(), arguments.data());
  ::_exit(127);
}

void end(pid_t process) {
  if (process <= 0) return;
  ::kill(process, SIGTERM);
  ::waitpid(process, nullptr, 0);
}

bool succeeds(const char* command) { return std::system(command) == 0; }

}  // namespace

Display::Display() {
  startServer();
  startWindowManager();
}

Display::~Display() {
  end(manager_);
  end(server_);
}

// A server starts anew when its last client has gone, and takes those with it that just came.
void Display::startServer() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const char* const size = std::getenv("DEPCALC_SCREEN");
  server_ = start({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                   size == nullptr ? "1280x900x24" : size, "-nolisten", "tcp", "-noreset"},
                  ends[1]);
  ::close(ends[1]);
  std::string number;
  for (char digit = 0; ::read(ends[0], &digit, 1) == 1 && std::isdigit(digit) != 0;) {
    number += digit;
  }
  ::close(ends[0]);
  if (number.empty()) throw std::runtime_error("Xvfb does not start");
  ::setenv("DISPLAY", (":" + number).c_str(), 1);
}

/// It is there once it says how many desktops it has.
void Display::startWindowManager() {
  manager_ = start({"openbox", "--sm-disable"});
  const auto start_of_wait = std::chrono::steady_clock::now();
  while (!succeeds("xdotool get_num_desktops >/dev/null 2>&1")) {
    if (std::chrono::steady_clock::now() - start_of_wait > patience) {
      throw std::runtime_error("openbox does not start");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

}  // namespace depcalc::testing
