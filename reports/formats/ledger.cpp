#include "reports/formats/ledger.h"

#include "reports/journal.h"

namespace depcalc {
namespace {

std::string ledgerName(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n\v\f;";
  std::string name;
  for (const char c : text) {
    const bool blank = blanks.find(c) != std::string_view::npos;
    if (!blank) name += c;
    if (blank && !name.ends_with(' ')) name += ' ';
  }
  return name;
}

std::string textIn(std::span<const Cell> row, JournalColumn column) {
  return dataText(row[column]);
}

void appendEntry(std::string& out, const Table& table, const RowGroup& entry) {
  const auto first = table.row(entry.rows.front());
  if (!out.empty()) out += '\n';
  out += textIn(first, journal_date) + ' ' + ledgerName(textIn(first, journal_memo)) + '\n';
  for (const std::size_t index : entry.rows) {
    const auto row = table.row(index);
    const Currency debit = std::get<Currency>(row[journal_debit]);
    const Currency amount = debit - std::get<Currency>(row[journal_credit]);
    out += "    " + ledgerName(textIn(row, journal_account)) + "  " + amount.toFixed4() + '\n';
  }
}

}  // namespace

std::string ledgerReport(const Report& report) {
  const Table& table = report.tables[report.data_table];
  std::string out;
  for (const RowGroup& entry : table.groups()) appendEntry(out, table, entry);
  return out;
}

}  // namespace depcalc
