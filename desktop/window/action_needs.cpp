#include "desktop/window/action_needs.h"

namespace depcalc::desktop {

void ActionNeeds::add(Need need, QAction* action) {
  actions_.at(static_cast<std::size_t>(need)) << action;
}

void ActionNeeds::follow(const std::function<bool(Need)>& is_there) {
  for (std::size_t need = 0; need < actions_.size(); ++need) {
    const bool there = is_there(static_cast<Need>(need));
    for (QAction* action : actions_[need]) action->setEnabled(there);
  }
}

}  // namespace depcalc::desktop
