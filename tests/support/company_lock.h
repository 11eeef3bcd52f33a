// Who has a company file.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

namespace depcalc::testing_support {

/// Whether `process` has the file for itself. Asks without taking a lock, which could be in the way
/// of one that is just being taken.
inline bool holds(pid_t process, const std::string& path) {
  constexpr off_t shared_first = 0x40000002;  // where SQLite locks
  constexpr off_t shared_size = 510;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct flock lock {};
  lock.l_type = F_RDLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = shared_first;
  lock.l_len = shared_size;
  const bool asked = ::fcntl(file, F_GETLK, &lock) == 0;
  ::close(file);
  return asked && lock.l_type == F_WRLCK && lock.l_pid == process;
}

/// Waits until it has, half a minute at most.
inline bool comesToHold(pid_t process, const std::string& path) {
  for (int i = 0; i < 3'000 && !holds(process, path); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return holds(process, path);
}

}  // namespace depcalc::testing_support
