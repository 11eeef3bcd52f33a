#include "host/sqlite/company_contents.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "host/sqlite/company_row.h"
#include "host/sqlite/company_schema.h"

namespace depcalc {
namespace {

/// Of a file that has more, the rest is not looked at.
constexpr std::size_t most_problems = 20;

std::string describe(const StoredTable& table, std::int64_t index) {
  return "record " + std::to_string(index) + " of table " + table.name();
}

}  // namespace

CompanyContents::CompanyContents(OpenDatabase open, std::string vfs, FailedChangeHandler failed)
    : open_(std::move(open)),
      path_(open_->database.path()),
      vfs_(std::move(vfs)),
      change_failed_(std::move(failed)) {
  read();
}

void CompanyContents::requireOpen() const {
  if (!isOpen()) throw RuntimeError::objectNotSet();
  if (readable_) return;
  if (unreadable_) throw FileTrouble(*unreadable_);
  throw RuntimeError::outOfMemory();
}

const CompanyInfo& CompanyContents::info() const {
  if (!isOpen()) throw RuntimeError::objectNotSet();
  return info_;
}

std::shared_ptr<StoredTable> CompanyContents::table(std::string_view name) {
  requireOpen();
  return tableCalled(name);
}

std::shared_ptr<StoredTable> CompanyContents::tableCalled(std::string_view name) {
  const auto found = tables_.find(name);
  if (found != tables_.end()) return found->second;
  if (tables_.size() >= most_tables) throw RuntimeError::overflow();
  auto table = std::make_shared<StoredTable>(std::string(name), *this);
  return tables_.emplace(name, std::move(table)).first->second;
}

std::vector<std::string> CompanyContents::tableNames() const {
  requireOpen();
  std::vector<std::string> names;
  for (const auto& [name, table] : tables_) {
    if (table->id() != 0 || table->waiting()) names.push_back(name);
  }
  return names;
}

void CompanyContents::close() { open_.reset(); }

std::optional<FileTrouble> CompanyContents::takeTrouble() {
  return std::exchange(trouble_, std::nullopt);
}

// --- Reading -------------------------------------------------------------------------------------

void CompanyContents::read() {
  readable_ = false;
  for (const auto& [name, table] : tables_) table->clear();
  by_id_.clear();
  counted_.clear();
  info_waits_ = false;
  requireSchema(open_->database);
  // What is read once is not kept: memory that is used again at once costs less.
  open_->database.execute("PRAGMA cache_size = -2000");
  std::vector<std::string> problems;
  checkIntegrity(problems);
  // Where the structure is damaged, so is what would be read by it.
  if (problems.empty()) {
    readCompany(problems);
    readTables(problems);
    readRecords(problems);
    compareTables(problems);
  }
  open_->database.execute("PRAGMA cache_size = -16384");
  readable_ = problems.empty();
  if (readable_) return;
  const std::string more =
      problems.size() > 1 ? " (and " + std::to_string(problems.size() - 1) + " more)" : "";
  throw FileTrouble(
      FileTrouble::Kind::damaged,
      open_->database.path() + " is damaged: " + problems.front() + more + ". Restore a backup.",
      problems);
}

void CompanyContents::checkIntegrity(std::vector<std::string>& problems) {
  Statement integrity =
      open_->database.prepare("PRAGMA integrity_check(" + std::to_string(most_problems) + ")");
  while (integrity.step()) {
    // A row may have many lines, headed by the name of the database.
    std::istringstream lines{std::string(integrity.text(0))};
    for (std::string line; std::getline(lines, line);) {
      if (line != "ok" && !line.starts_with("***")) problems.push_back(line);
    }
  }
}

void CompanyContents::readCompany(std::vector<std::string>& problems) {
  Statement row = open_->database.prepare("SELECT name, first_month, mode, digest FROM company");
  if (!row.step()) {
    problems.emplace_back("the company's name and fiscal year are missing");
    return;
  }
  const std::int64_t month = row.integer(1);
  const std::string_view mode = row.text(2);
  info_ = {.name = std::string(row.text(0)), .multi_user = mode == multi_user};
  const bool good = month >= 1 && month <= 12 && (mode == multi_user || mode == single_user);
  if (good) {
    info_.first_month = static_cast<int>(month);
  } else {
    problems.emplace_back("the company's fiscal year or mode is not valid");
  }
  file_digest_ = written_digest_ = static_cast<std::uint64_t>(row.integer(3));
}

void CompanyContents::readTables(std::vector<std::string>& problems) {
  Statement row =
      open_->database.prepare("SELECT id, name, records, tally FROM data_table ORDER BY id");
  while (problems.size() < most_problems && row.step()) {
    const std::int64_t id = row.integer(0);
    const std::string name(row.text(1));
    if (id < 1 || id > most_tables || name.empty() ||
        (tables_.contains(name) && tables_[name]->id() != 0)) {
      problems.push_back("data table " + std::to_string(id) +
                         " has no valid number or no name of its own");
      continue;
    }
    const auto table = tableCalled(name);
    table->id(id);
    by_id_[id] = table;
    counted_[id] = {row.integer(2), static_cast<std::uint64_t>(row.integer(3))};
  }
}

void CompanyContents::readRecords(std::vector<std::string>& problems) {
  Statement row = open_->database.prepare("SELECT id, fields, digest FROM record ORDER BY id");
  while (problems.size() < most_problems && row.step()) {
    const std::int64_t id = row.integer(0);
    const std::int64_t index = id % records_per_table;
    const auto table = by_id_.find(id / records_per_table);
    if (id < 0 || table == by_id_.end() || index > INT16_MAX) {
      problems.push_back("the record with id " + std::to_string(id) +
                         " does not belong to any table");
      continue;
    }
    const auto digest = static_cast<std::uint64_t>(row.integer(2));
    const bool typed = row.isText(1) && row.isInteger(2);
    if (!table->second->read(static_cast<std::int16_t>(index), row.text(1), digest) || !typed) {
      problems.push_back(describe(*table->second, index) + " has been altered since it was saved");
    }
  }
}

void CompanyContents::compareTables(std::vector<std::string>& problems) {
  std::int64_t form = first_form;
  for (const auto& [id, table] : by_id_) form = std::max(form, formWith(table->name()));
  if (const std::int64_t said = formOf(open_->database); said != form) {
    problems.push_back("the file says that its format is " + std::to_string(said) +
                       ", but what is in it is of format " + std::to_string(form));
  }
  for (const auto& [id, table] : by_id_) {
    const Counted& counted = counted_[id];
    if (table->records() != counted.records) {
      problems.push_back("table " + table->name() + " has " + std::to_string(table->records()) +
                         " records instead of " + std::to_string(counted.records));
    } else if (table->tally() != counted.tally) {
      problems.push_back("table " + table->name() + " has records from another point in time");
    }
  }
  if (companyDigest() != file_digest_) {
    problems.emplace_back("the company's own data have been altered since they were saved");
  }
}

void CompanyContents::abandon() {
  --depth_;
  if (!isOpen()) return;
  ++revision_;
  read();
}

}  // namespace depcalc
