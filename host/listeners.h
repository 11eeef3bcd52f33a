// Who listens to a host's events.
#pragma once

#include <algorithm>
#include <vector>

namespace depcalc {

/// The listeners of one object, told in the order in which they came. One that comes or goes
/// while an event is under way is told from the next one on.
template <typename Events>
class Listeners {
 public:
  void add(Events& listener) { listeners_.push_back(&listener); }
  void remove(Events& listener) { std::erase(listeners_, &listener); }

  template <typename Event>
  void raise(Event event) const {
    const auto told = listeners_;
    for (Events* listener : told) {
      if (std::find(listeners_.begin(), listeners_.end(), listener) == listeners_.end()) continue;
      (listener->*event)();
    }
  }

 private:
  std::vector<Events*> listeners_;
};

}  // namespace depcalc
