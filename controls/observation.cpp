#include "controls/observation.h"

#include <algorithm>

namespace depcalc {

Observation::Observation(const std::shared_ptr<Listeners>& listeners, Listener listener)
    : listeners_(listeners), listener_(std::make_shared<Listener>(std::move(listener))) {
  listeners->push_back(listener_);
}

Observation& Observation::operator=(Observation&& other) noexcept {
  if (this == &other) return *this;
  end();
  listeners_ = std::move(other.listeners_);
  listener_ = std::move(other.listener_);
  return *this;
}

void Observation::end() {
  if (const auto listeners = listeners_.lock()) std::erase(*listeners, listener_);
  listeners_.reset();
  listener_.reset();
}

}  // namespace depcalc
