#include "cli/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "cli/system_error.h"

namespace depcalc {

namespace {

constexpr std::size_t usual_room = 262'144;
/// So long a text is passed on from where it stands.
constexpr std::size_t long_text = 65'536;

}  // namespace

Output::Output(int descriptor)
    : descriptor_(descriptor),
      room_(usual_room),
      buffer_(std::make_unique_for_overwrite<char[]>(room_)) {}

Output::Output(Kept kept)
    : room_(kept.room), buffer_(std::make_unique_for_overwrite<char[]>(room_)) {}

void Output::write(std::string_view text) {
  if (text.size() >= long_text && descriptor_ != nowhere) {
    flush();
    return passOn(text);
  }
  while (!text.empty()) {
    if (used_ == room_) flush();
    const std::size_t count = std::min(text.size(), room_ - used_);
    std::copy_n(text.begin(), count, &buffer_[used_]);
    used_ += count;
    text.remove_prefix(count);
  }
}

bool Output::flush() {
  if (descriptor_ == nowhere) {
    grow();
  } else {
    passOn({&buffer_[0], std::exchange(used_, 0)});
  }
  return !failed();
}

void Output::makeRoom(std::size_t size) {
  flush();
  while (room_ - used_ < size) grow();
}

void Output::grow() {
  auto larger = std::make_unique_for_overwrite<char[]>(2 * room_);
  std::copy_n(&buffer_[0], used_, &larger[0]);
  buffer_ = std::move(larger);
  room_ *= 2;
}

void Output::passOn(std::string_view text) {
  while (!text.empty() && !failed()) {
    const ssize_t count = ::write(descriptor_, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      unwanted_ = errno == EPIPE;
      failure_ = systemErrorText(errno);
    }
  }
}

bool Output::isTerminal() const { return ::isatty(descriptor_) == 1; }

bool Output::finish() {
  flush();
  if (::close(descriptor_) != 0 && !failed()) failure_ = systemErrorText(errno);
  return !failed();
}

}  // namespace depcalc
