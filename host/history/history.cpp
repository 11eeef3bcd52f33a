#include "host/history/history.h"

#include <utility>

namespace depcalc {
namespace {

std::size_t sizeOf(const Step& step) {
  return sizeof(Step) + step.title.subject.size() + step.changes.size();
}

}  // namespace

void History::add(Step step) {
  for (; steps_.size() > position_; steps_.pop_back()) bytes_ -= sizeOf(steps_.back());
  bytes_ += sizeOf(step);
  steps_.push_back(std::move(step));
  for (; steps_.size() > 1 && (steps_.size() > most_steps || bytes_ > most_bytes); ++forgotten_) {
    bytes_ -= sizeOf(steps_.front());
    steps_.pop_front();
  }
  position_ = steps_.size();
}

}  // namespace depcalc
