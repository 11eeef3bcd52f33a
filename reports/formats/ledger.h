// A journal as plain-text accounting programs read it.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// The journal `report` (reports/journal.h) in the form that ledger and hledger read: one
/// transaction for each entry, amounts without a currency, credits below 0. In names two blanks,
/// tabs, line ends and ";" become one blank, which would end them there.
std::string ledgerReport(const Report& report);

}  // namespace depcalc
