#include "desktop/window/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

namespace depcalc::desktop {
namespace {

constexpr std::array heard_signals = {SIGTERM, SIGINT, SIGHUP};

/// A handler may do little more than write; what it writes wakes the event loop.
int write_end = -1;

void passOn(int signal) {
  const int kept = errno;
  const auto byte = static_cast<char>(signal);
  // A full pipe holds enough of them already.
  [[maybe_unused]] const ssize_t written = ::write(write_end, &byte, 1);
  errno = kept;
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction before {};
  if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  ::sigemptyset(&action.sa_mask);
  ::sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void(int signal)> heard) : heard_(std::move(heard)) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  read_end_ = ends[0];
  write_end = ends[1];
  notifier_ = new QSocketNotifier(read_end_, QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, &EndSignals::read);
  for (const int signal : heard_signals) handle(signal, passOn);
}

EndSignals::~EndSignals() {
  if (read_end_ < 0) return;
  for (const int signal : heard_signals) handle(signal, SIG_DFL);
  ::close(std::exchange(write_end, -1));
  ::close(read_end_);
}

/// What hears of a signal may open a dialog, which must be able to hear of the next one.
void EndSignals::read() {
  char byte = 0;
  while (::read(read_end_, &byte, 1) == 1) {
    QMetaObject::invokeMethod(
        this, [this, byte] { heard_(byte); }, Qt::QueuedConnection);
  }
}

}  // namespace depcalc::desktop
