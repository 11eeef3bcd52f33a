#include "cli/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "cli/system_error.h"

namespace depcalc {
namespace {

/// Whether everything was written and the descriptor closed; errno says why not.
bool writeAndClose(int descriptor, std::string_view content, bool to_disk) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      const int error = errno;
      ::close(descriptor);
      errno = error;
      return false;
    }
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  if (to_disk && ::fsync(descriptor) != 0) {
    const int error = errno;
    ::close(descriptor);
    errno = error;
    return false;
  }
  return ::close(descriptor) == 0;
}

bool writeInPlace(const std::string& path, std::string_view content) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  return descriptor >= 0 && writeAndClose(descriptor, content, false);
}

bool writeBesideAndRename(const std::string& path, std::string_view content) {
  const std::string beside = path + ".part-" + std::to_string(::getpid());
  const int descriptor = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) return false;
  if (writeAndClose(descriptor, content, true) && ::rename(beside.c_str(), path.c_str()) == 0) {
    return true;
  }
  const int error = errno;
  ::unlink(beside.c_str());
  errno = error;
  return false;
}

}  // namespace

std::string writeWholeFile(const std::string& path, std::string_view content) {
  std::error_code unresolved;
  const std::string target = std::filesystem::weakly_canonical(path, unresolved).string();
  struct stat status {};
  const bool exists = ::stat(path.c_str(), &status) == 0;
  bool done = false;
  if (exists && S_ISDIR(status.st_mode)) {
    errno = EISDIR;
  } else if (exists && !S_ISREG(status.st_mode)) {
    done = writeInPlace(path, content);
  } else if (!exists || ::access(path.c_str(), W_OK) == 0) {
    done = writeBesideAndRename(unresolved ? path : target, content);
  }
  return done ? std::string() : systemErrorText(errno);
}

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code missing;
  return std::filesystem::equivalent(a, b, missing);
}

}  // namespace depcalc
