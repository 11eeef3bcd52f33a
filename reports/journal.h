// The journal entries of a fiscal year, for the general ledger.
#pragma once

#include <string>

#include "reports/grouping.h"
#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

/// The accounts that a journal books to.
struct JournalAccounts {
  std::string expense = "Expenses:Depreciation";
  std::string accumulated = "Assets:Accumulated Depreciation";
  std::string asset = "Assets:Fixed Assets";
  std::string cash = "Assets:Cash";
  std::string gain = "Income:Gain on Disposal";
  std::string loss = "Expenses:Loss on Disposal";
};

/// One entry for the depreciation of fiscal year `year`, a pair of lines for each group, dated the
/// year's last day; then one for each asset disposed of in the year. Entries are numbered from 1; a
/// line of 0 is left out, and so is an entry without lines. Grouped by department, the department
/// is added behind a colon to the accounts of expense, accumulated depreciation and assets. A sum
/// out of range is error 6.
Report journalReport(const RegisterOfAssets& assets, int year, Grouping grouping,
                     const JournalAccounts& accounts);

/// The columns of a journal's table, for formats that write entries.
enum JournalColumn : std::size_t {
  journal_date,
  journal_entry,
  journal_account,
  journal_debit,
  journal_credit,
  journal_memo
};

}  // namespace depcalc
