#include "desktop/window/edit_help.h"

#include "desktop/window/beforehand.h"
#include "desktop/window/held_painting.h"
#include "entry/dep_calc_ctl.h"

namespace depcalc::desktop {

EditHelp::EditHelp(DepCalcCont& container, Surface& surface)
    : container_(container),
      surface_(surface),
      view_(dynamic_cast<DepCalcView*>(container.child("DepCalcView1"))) {
  auto* const form = dynamic_cast<DepCalcCtl*>(container.child("DepCalcCtl1"));
  if (view_ == nullptr || form == nullptr) return;
  view_all_tab_ = &form->ViewAllLabel;
  beforehand(view_->EditButton.normal.onMouseUp, [this] { return help(); });
}

bool EditHelp::help() {
  if (!isNeeded()) return true;
  QWidget* const page = surface_.widget(container_);
  const HeldPainting held(page == nullptr ? nullptr : page->window());
  takeTheWayRound(view_->AssetViewTable.row(), view_->AssetViewTable.column());
  return view_->isShown();
}

bool EditHelp::isNeeded() const {
  const CalculateDepPtr& record = container_.CurrentRecord();
  return view_->AssetViewTable.column() > 0 && record != nullptr && record->RecNew();
}

void EditHelp::takeTheWayRound(int row, int column) {
  Stage& stage = surface_.stage();
  User user(stage);
  user.click(view_->NewButton.normal);
  stage.pumpPaint();
  user.click(*view_all_tab_);
  stage.pumpPaint();
  if (column < view_->AssetViewTable.columns()) {
    user.clickCell(view_->AssetViewTable, row, column);
  }
}

}  // namespace depcalc::desktop
