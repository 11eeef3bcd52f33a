#include "reports/journal.h"

#include <utility>

#include "reports/proof.h"

namespace depcalc {
namespace {

/// Lines gathered into numbered entries.
class Journal {
 public:
  Journal()
      : table_({{"date", "Date", ColumnKind::date},
                {"entry", "Entry", ColumnKind::label},
                {"account", "Account", ColumnKind::text},
                {"debit", "Debit", ColumnKind::amount, false, true},
                {"credit", "Credit", ColumnKind::amount, false, true},
                {"memo", "Memo", ColumnKind::text}}) {}

  void begin(Date date, std::string memo) {
    end();
    date_ = date;
    memo_ = std::move(memo);
  }
  void debit(const std::string& account, Currency amount) { addLine(account, amount, true); }
  void credit(const std::string& account, Currency amount) { addLine(account, amount, false); }

  Table table() {
    end();
    return std::move(table_);
  }

 private:
  /// An amount below 0 changes sides.
  void addLine(const std::string& account, Currency amount, bool is_debit) {
    if (amount == Currency()) return;
    const bool negative = amount < Currency();
    const Currency size = negative ? Currency() - amount : amount;
    const bool left = is_debit != negative;
    lines_.push_back(table_.rowCount());
    table_.add({date_, entry_, table_.text(account), left ? size : Currency(),
                left ? Currency() : size, table_.text(memo_)});
  }

  void end() {
    if (lines_.empty()) return;
    const std::string number = "Entry " + std::to_string(entry_);
    table_.addGroup({number + ", " + longDate(date_), std::exchange(lines_, {}), number, {}});
    ++entry_;
  }

  Table table_;
  Date date_;
  std::string memo_;
  std::vector<std::size_t> lines_;
  std::int32_t entry_ = 1;
};

Currency depreciationOf(const RegisterOfAssets& assets, const std::vector<std::size_t>& members,
                        int year) {
  Currency sum;
  for (const std::size_t i : members) sum += assets.assets[i].amount(year);
  return sum;
}

std::string inDepartment(const std::string& account, const std::string& group, Grouping grouping) {
  return grouping == Grouping::department ? account + ':' + groupName(group) : account;
}

void addDepreciation(Journal& journal, const RegisterOfAssets& assets, int year, Grouping grouping,
                     const JournalAccounts& accounts) {
  auto groups = groupsOf(assets, grouping);
  if (grouping == Grouping::none) {
    for (std::size_t i = 0; i < assets.assets.size(); ++i) groups[""].push_back(i);
  }
  journal.begin(assets.years.lastDay(year), "Depreciation, " + fiscalYearName(year));
  for (const auto& [group, members] : groups) {
    const Currency amount = depreciationOf(assets, members, year);
    journal.debit(inDepartment(accounts.expense, group, grouping), amount);
    journal.credit(inDepartment(accounts.accumulated, group, grouping), amount);
  }
}

/// "Disposal of VAN-1, Delivery van".
std::string disposalMemo(const SavedAsset& asset) {
  std::string memo = "Disposal of " + asset.id;
  if (!asset.id.empty() && !asset.name.empty()) memo += ", ";
  memo += asset.name;
  return asset.id.empty() && asset.name.empty() ? memo + "asset " + std::to_string(asset.number)
                                                : memo;
}

void addDisposal(Journal& journal, const ReportAsset& asset, Grouping grouping,
                 const JournalAccounts& accounts) {
  const SavedAsset& saved = asset.saved();
  const std::string group(groupOf(asset, grouping));
  const Currency gain = asset.gain();
  journal.begin(saved.disposed, disposalMemo(saved));
  journal.debit(accounts.cash, saved.proceeds);
  journal.debit(inDepartment(accounts.accumulated, group, grouping), asset.allAmounts());
  journal.credit(inDepartment(accounts.asset, group, grouping), saved.basis);
  journal.credit(gain < Currency() ? accounts.loss : accounts.gain, gain);
}

/// Lines balance in the sums of their entry alone.
void proveBalance(Report& report) {
  const Table& table = report.tables.front();
  for (const RowGroup& entry : table.groups()) {
    const bool balances =
        amountIn(entry.total, journal_debit) == amountIn(entry.total, journal_credit);
    if (!balances) report.disproofs.push_back(entry.label + " does not balance.");
  }
  report.proofs.emplace_back("the debits of each entry = its credits");
}

}  // namespace

Report journalReport(const RegisterOfAssets& assets, int year, Grouping grouping,
                     const JournalAccounts& accounts) {
  Journal journal;
  addDepreciation(journal, assets, year, grouping, accounts);
  for (const ReportAsset& asset : assets.assets) {
    if (asset.isDisposedIn(year)) addDisposal(journal, asset, grouping, accounts);
  }
  Report report{.title = "Journal entries, " + fiscalYearName(year),
                .covers = coverLine(assets, periodOf(assets, year)),
                .tables = {journal.table()}};
  proveBalance(report);
  return report;
}

}  // namespace depcalc
