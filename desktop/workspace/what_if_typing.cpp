#include "desktop/workspace/what_if_typing.h"

#include <algorithm>

namespace depcalc::desktop {
namespace {

void typeInto(User& user, TextBox& box, const std::string& text) {
  if (!user.moveFocus(box)) return;
  user.clear();
  user.type(text);
  user.tab();
}

void choose(User& user, DropDownList& list, const std::string& text) {
  const auto found = std::find(list.items().begin(), list.items().end(), text);
  if (found == list.items().end() || !user.moveFocus(list)) return;
  user.chooseItem(list, static_cast<int>(found - list.items().begin()));
  user.tab();
}

}  // namespace

void typeIntoForm(User& user, DepCalcCtl& form, const WhatIfRow& row) {
  if (!form.isShown()) return;
  switch (row.changed) {
    case WhatIfField::none:
      return;
    case WhatIfField::convention:
      return choose(user, form.DConvList, row.text);
    case WhatIfField::life:
      return typeInto(user, form.DRecoveryText, row.text);
    case WhatIfField::salvage:
      return typeInto(user, form.SalvageText, row.text);
  }
}

}  // namespace depcalc::desktop
