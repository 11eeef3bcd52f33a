#include "host/sqlite/lock_holder.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <charconv>
#include <fstream>
#include <memory>
#include <sstream>
#include <string_view>

namespace depcalc {
namespace {

std::string programOf(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

/// The process of a line of /proc/locks that locks the file, 0 for other lines:
/// "1: POSIX  ADVISORY  WRITE 1234 fe:00:12345 1073741824 1073742335".
int processOf(const std::string& line, const std::string& file_id) {
  std::istringstream words(line);
  std::string number;
  std::string kind;
  std::string advisory;
  std::string mode;
  std::string process;
  std::string file;
  words >> number >> kind >> advisory >> mode >> process >> file;
  int id = 0;
  if (file == file_id) {
    std::from_chars(process.data(), process.data() + process.size(), id);
  }
  return id;
}

std::string idInLocks(const struct stat& status) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto hex = [&](unsigned number) {
    return std::string{digits[(number >> 4U) & 0xFU], digits[number & 0xFU]};
  };
  return hex(major(status.st_dev)) + ":" + hex(minor(status.st_dev)) + ":" +
         std::to_string(status.st_ino);
}

/// Whether /proc/self/fdinfo tells of a lock that is the descriptor's, not the process's, and was
/// taken here, not before this process began: "lock:\t1: FLOCK  ADVISORY  WRITE 1234 …".
bool hasLockOfItsOwn(const std::string& descriptor) {
  std::ifstream info("/proc/self/fdinfo/" + descriptor);
  std::string line;
  while (std::getline(info, line)) {
    const std::string taker = " " + std::to_string(::getpid()) + " ";
    const bool whole =
        line.find("FLOCK") != std::string::npos && line.find(taker) != std::string::npos;
    if (line.starts_with("lock:") && (whole || line.find("OFDLCK") != std::string::npos)) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::string lockHolder(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return "";
  const std::string file_id = idInLocks(status);
  std::ifstream locks("/proc/locks");
  std::string line;
  while (std::getline(locks, line)) {
    const int process = processOf(line, file_id);
    if (process <= 0) continue;
    if (process == ::getpid()) return " by this program";
    const std::string program = programOf(process);
    return program.empty() ? " by process " + std::to_string(process)
                           : " by " + program + " (process " + std::to_string(process) + ")";
  }
  return "";
}

bool isLockedHere(const std::string& path) {
  struct stat file {};
  // The standard library's iterator ends the process where it has no memory.
  const std::unique_ptr<DIR, int (*)(DIR*)> open_ones(::opendir("/proc/self/fd"), ::closedir);
  if (open_ones == nullptr || ::stat(path.c_str(), &file) != 0) return false;
  while (const dirent* entry = ::readdir(open_ones.get())) {
    struct stat open {};
    if (::fstatat(::dirfd(open_ones.get()), entry->d_name, &open, 0) != 0) continue;
    const bool same = open.st_dev == file.st_dev && open.st_ino == file.st_ino;
    if (same && hasLockOfItsOwn(entry->d_name)) return true;
  }
  return false;
}

}  // namespace depcalc
