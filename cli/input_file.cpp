#include "cli/input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "cli/system_error.h"

namespace depcalc {

InputFile::InputFile(const std::string& path)
    : descriptor_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      owned_(path != "-") {
  if (descriptor_ < 0) failure_ = systemErrorText(errno);
}

InputFile::~InputFile() {
  if (owned_ && descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::size_t> InputFile::read(std::span<char> buffer) {
  if (!failure_.empty()) return std::nullopt;
  ssize_t count = 0;
  do {
    count = ::read(descriptor_, buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  if (count >= 0) return static_cast<std::size_t>(count);
  failure_ = systemErrorText(errno);
  return std::nullopt;
}

}  // namespace depcalc
