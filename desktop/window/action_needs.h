// Which actions of the menus can be used now.
#pragma once

#include <QAction>
#include <QList>
#include <array>
#include <cstdint>
#include <functional>

namespace depcalc::desktop {

/// What must be there for an action.
enum class Need : std::uint8_t { company, calculator, assets, saved_asset, disposed_asset };

/// Each action is enabled while that is there which it needs.
class ActionNeeds {
 public:
  /// `action` outlives this.
  void add(Need need, QAction* action);
  /// Something may be there now, or be gone. Each need is asked about once.
  void follow(const std::function<bool(Need)>& is_there);

 private:
  std::array<QList<QAction*>, 5> actions_;  ///< of each need
};

}  // namespace depcalc::desktop
