#include "cli/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "cli/system_error.h"

namespace depcalc {

Output::Output(int descriptor)
    : descriptor_(descriptor), buffer_(std::make_unique_for_overwrite<char[]>(buffer_size)) {}

Output::Output(Drain drain)
    : drain_(std::move(drain)), buffer_(std::make_unique_for_overwrite<char[]>(buffer_size)) {}

void Output::write(std::string_view text) {
  while (!text.empty()) {
    if (used_ == buffer_size) flush();
    const std::size_t count = std::min(text.size(), buffer_size - used_);
    std::copy_n(text.begin(), count, &buffer_[used_]);
    used_ += count;
    text.remove_prefix(count);
  }
}

bool Output::flush() {
  std::string_view rest(&buffer_[0], used_);
  used_ = 0;
  if (drain_) {
    if (!rest.empty()) drain_(rest);
    return true;
  }
  while (!rest.empty() && !failed()) {
    const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
    if (count >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      unwanted_ = errno == EPIPE;
      failure_ = systemErrorText(errno);
    }
  }
  return !failed();
}

bool Output::isTerminal() const { return ::isatty(descriptor_) == 1; }

bool Output::finish() {
  flush();
  if (::close(descriptor_) != 0 && !failed()) failure_ = systemErrorText(errno);
  return !failed();
}

}  // namespace depcalc
