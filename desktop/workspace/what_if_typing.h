// Puts a value into the entry form as its user would.
#pragma once

#include "controls/user.h"
#include "entry/dep_calc_ctl.h"
#include "reports/what_if.h"

namespace depcalc::desktop {

/// Goes to the field of `row`, empties it, types the value (or chooses it from the list) and goes
/// on with Tab. A field that refuses to be left, the one that has the focus or this one, says so
/// itself and keeps the focus. Nothing where the form is not shown.
void typeIntoForm(User& user, DepCalcCtl& form, const WhatIfRow& row);

}  // namespace depcalc::desktop
