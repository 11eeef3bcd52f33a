#include "cli/progress.h"

#include <utility>

namespace depcalc {

Progress::Progress(Output& errors, std::string doing, std::size_t total, Now now)
    : errors_(errors),
      doing_(std::move(doing)),
      total_(total),
      wanted_(errors.isTerminal()),
      now_(std::move(now)),
      next_(now_() + std::chrono::seconds(1)) {}

Progress::~Progress() {
  if (!shown_) return;
  errors_.write("\r\x1B[K");
  errors_.flush();
}

void Progress::reached(std::size_t done) {
  if (!wanted_) return;
  const auto now = now_();
  if (now < next_) return;
  next_ = now + std::chrono::milliseconds(100);
  shown_ = true;
  errors_.write('\r' + doing_ + ": " + std::to_string(done) + " of " + std::to_string(total_));
  errors_.flush();
}

}  // namespace depcalc
