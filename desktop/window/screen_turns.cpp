#include "desktop/window/screen_turns.h"

#include <string>
#include <utility>

namespace depcalc::desktop {
namespace {

/// The column of an asset in the register; 0 where it is none of the register's.
int columnOf(const CalculateDep& record, const Grid& table) {
  for (int column = 1; column < table.columns(); ++column) {
    if (record.RecIndex() == std::to_string(column)) return column;
  }
  return 0;
}

}  // namespace

ScreenTurns::ScreenTurns(DepCalcCont& container, Surface& surface)
    : container_(container),
      surface_(surface),
      view_(dynamic_cast<DepCalcView*>(container.child("DepCalcView1"))) {
  for (const char* name : {"DepCalcView1", "DepCalcCtl1", "DepCalcDisplayCtl1"}) {
    auto* const screen = dynamic_cast<UserControl*>(container.child(name));
    if (screen != nullptr) watch(*screen);
  }
  connect(&surface, &Surface::acted, this, &ScreenTurns::selectCurrentAsset);
}

void ScreenTurns::watch(UserControl& screen) {
  observations_.push_back(screen.observe([this, &screen](Aspect aspect) {
    if (aspect != Aspect::visible || !screen.visible()) return;
    register_came_up_ = &screen == view_;
    emit surface_.turned();
  }));
}

void ScreenTurns::selectCurrentAsset() {
  if (!std::exchange(register_came_up_, false)) return;
  Grid& table = view_->AssetViewTable;
  const CalculateDepPtr& record = container_.CurrentRecord();
  if (record == nullptr || !table.isShown() || table.column() > 0) return;
  const int column = columnOf(*record, table);
  if (column == 0) return;
  surface_.act([&table, column](User& user) { user.clickCell(table, 0, column); });
}

}  // namespace depcalc::desktop
