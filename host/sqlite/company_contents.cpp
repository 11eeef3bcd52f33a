#include "host/sqlite/company_contents.h"

#include <new>
#include <sstream>
#include <utility>

#include "common/trapped.h"
#include "host/sqlite/company_schema.h"
#include "host/sqlite/digest.h"

namespace depcalc {
namespace {

constexpr std::string_view single_user = "single-user";
constexpr std::string_view multi_user = "multi-user";

/// The procedure that reports what goes wrong after something went wrong.
constexpr std::string_view recovering = "DepCalc::company file";

/// Of a file that has more, the rest is not looked at.
constexpr std::size_t most_problems = 20;

std::string describe(const StoredTable& table, std::int64_t index) {
  return "record " + std::to_string(index) + " of table " + table.name();
}

/// One line per table of a company, and one for itself: what its digest is made over.
std::string companyLine(const CompanyInfo& info) {
  return info.name + '\n' + std::to_string(info.first_month) + '\n' +
         std::string(info.multi_user ? multi_user : single_user) + '\n';
}

}  // namespace

CompanyContents::CompanyContents(Database database) : database_(std::move(database)) { read(); }

void CompanyContents::requireOpen() const {
  if (!isOpen()) throw RuntimeError::objectNotSet();
  if (readable_) return;
  if (unreadable_) throw FileTrouble(*unreadable_);
  throw RuntimeError::outOfMemory();
}

const CompanyInfo& CompanyContents::info() const {
  requireOpen();
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

void CompanyContents::close() { database_.reset(); }

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
  requireSchema(*database_);
  std::vector<std::string> problems;
  checkIntegrity(problems);
  // Where the structure is damaged, so is what would be read by it.
  if (problems.empty()) {
    readCompany(problems);
    readTables(problems);
    readRecords(problems);
    compareTables(problems);
  }
  readable_ = problems.empty();
  if (readable_) return;
  const std::string more =
      problems.size() > 1 ? " (and " + std::to_string(problems.size() - 1) + " more)" : "";
  throw FileTrouble(FileTrouble::Kind::damaged,
                    database_->path() + " is damaged: " + problems.front() + more +
                        ". Bring back a copy from before.",
                    problems);
}

void CompanyContents::checkIntegrity(std::vector<std::string>& problems) {
  Statement integrity =
      database_->prepare("PRAGMA integrity_check(" + std::to_string(most_problems) + ")");
  while (integrity.step()) {
    // A row may have many lines, headed by the name of the database.
    std::istringstream lines{std::string(integrity.text(0))};
    for (std::string line; std::getline(lines, line);) {
      if (line != "ok" && !line.starts_with("***")) problems.push_back(line);
    }
  }
}

void CompanyContents::readCompany(std::vector<std::string>& problems) {
  Statement row = database_->prepare("SELECT name, first_month, mode, digest FROM company");
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
    problems.emplace_back("the company's fiscal year or mode is none");
  }
  read_digest_ = static_cast<std::uint64_t>(row.integer(3));
}

void CompanyContents::readTables(std::vector<std::string>& problems) {
  Statement row = database_->prepare("SELECT id, name, records, tally FROM data_table ORDER BY id");
  while (problems.size() < most_problems && row.step()) {
    const std::int64_t id = row.integer(0);
    const std::string name(row.text(1));
    if (id < 1 || id > most_tables || name.empty() ||
        (tables_.contains(name) && tables_[name]->id() != 0)) {
      problems.push_back("the data table " + std::to_string(id) + " has no name of its own");
      continue;
    }
    const auto table = tableCalled(name);
    table->id(id);
    by_id_[id] = table;
    counted_[id] = {row.integer(2), static_cast<std::uint64_t>(row.integer(3))};
  }
}

void CompanyContents::readRecords(std::vector<std::string>& problems) {
  Statement row = database_->prepare("SELECT id, fields, digest FROM record ORDER BY id");
  while (problems.size() < most_problems && row.step()) {
    const std::int64_t id = row.integer(0);
    const std::int64_t index = id % records_per_table;
    const auto table = by_id_.find(id / records_per_table);
    if (id < 0 || table == by_id_.end() || index > INT16_MAX) {
      problems.push_back("the record with the id " + std::to_string(id) + " belongs to no table");
      continue;
    }
    const auto digest = static_cast<std::uint64_t>(row.integer(2));
    const bool typed = row.isText(1) && row.isInteger(2);
    if (!table->second->read(static_cast<std::int16_t>(index), row.text(1), digest) || !typed) {
      problems.push_back(describe(*table->second, index) + " is not as it was written");
    }
  }
}

void CompanyContents::compareTables(std::vector<std::string>& problems) {
  for (const auto& [id, table] : by_id_) {
    const Counted& counted = counted_[id];
    if (table->records() != counted.records) {
      problems.push_back("table " + table->name() + " has " + std::to_string(table->records()) +
                         " records instead of " + std::to_string(counted.records));
    } else if (table->tally() != counted.tally) {
      problems.push_back("table " + table->name() + " has records of another time");
    }
  }
  if (companyDigest() != read_digest_) {
    problems.emplace_back("the company's own data are not as they were written");
  }
}

std::uint64_t CompanyContents::companyDigest() const {
  std::string text = companyLine(info_);
  for (const auto& [id, table] : by_id_) {
    text += std::to_string(id) + '\n' + table->name() + '\n' + std::to_string(table->records()) +
            '\n' + std::to_string(static_cast<std::int64_t>(table->tally())) + '\n';
  }
  return digestOf(text, 0);
}

// --- Writing -------------------------------------------------------------------------------------

void CompanyContents::info(const CompanyInfo& info) {
  beforeChange();
  if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
  info_ = info;
  info_waits_ = true;
  afterChange();
}

void CompanyContents::beforeChange() {
  requireOpen();
  if (database_->readOnly()) {
    throw FileTrouble(FileTrouble::Kind::read_only,
                      database_->path() + " cannot be written. It was opened for reading.");
  }
  if (changes_refused_) {
    throw FileTrouble(FileTrouble::Kind::failed,
                      database_->path() +
                          " was not read whole, for want of memory. Nothing in it is changed until "
                          "it has been opened again.");
  }
  ++revision_;
}

void CompanyContents::afterChange() {
  if (depth_ == 0) writeWaiting();
}

void CompanyContents::end() {
  if (--depth_ == 0 && isOpen()) writeWaiting();
}

void CompanyContents::abandon() {
  --depth_;
  if (!isOpen()) return;
  ++revision_;
  read();
}

void CompanyContents::writeWaiting() {
  bool waiting = info_waits_;
  for (const auto& [name, table] : tables_) waiting = waiting || table->waiting();
  if (!waiting) return;
  try {
    write();
  } catch (const FileTrouble& trouble) {
    trapped(recovering, [&] { trouble_ = trouble; });
    recover();
    throw;
  } catch (const std::bad_alloc&) {
    trapped(recovering, [this] {
      trouble_.emplace(FileTrouble::Kind::failed,
                       database_->path() + " cannot be written: out of memory.");
    });
    recover();
    throw;
  }
}

void CompanyContents::write() {
  database_->execute("BEGIN IMMEDIATE");
  for (const auto& [name, table] : tables_) {
    if (table->waiting()) writeTable(*table);
  }
  writeCompany();
  database_->execute("COMMIT");
  info_waits_ = false;
}

void CompanyContents::writeTable(StoredTable& table) {
  if (table.id() == 0) {
    table.id(by_id_.empty() ? 1 : by_id_.rbegin()->first + 1);
    by_id_[table.id()] = tables_.find(table.name())->second;
  }
  table.write(*database_);
  Statement put = database_->prepare(
      "INSERT OR REPLACE INTO data_table (id, name, records, tally) VALUES (?, ?, ?, ?)");
  put.bind(1, table.id()).bind(2, std::string_view(table.name())).bind(3, table.records());
  put.bind(4, static_cast<std::int64_t>(table.tally())).run();
}

void CompanyContents::writeCompany() {
  Statement put = database_->prepare(
      "INSERT OR REPLACE INTO company (id, name, first_month, mode, digest) "
      "VALUES (1, ?, ?, ?, ?)");
  put.bind(1, std::string_view(info_.name)).bind(2, std::int64_t{info_.first_month});
  put.bind(3, info_.multi_user ? multi_user : single_user);
  put.bind(4, static_cast<std::int64_t>(companyDigest())).run();
}

/// A write that reported an error may have reached the disk nevertheless: only the file knows.
/// Until it has been read again, nothing is.
void CompanyContents::recover() {
  readable_ = false;
  ++revision_;
  const bool again = trapped(recovering, [this] {
    if (database_->inTransaction()) database_->execute("ROLLBACK");
    read();
  });
  if (!again) trapped(recovering, [this] { unreadable_ = trouble_; });
}

void writeNewCompany(Database& database, const CompanyInfo& info) {
  database.execute("PRAGMA page_size = " + std::to_string(company_page_size));
  database.execute("BEGIN IMMEDIATE");
  createSchema(database);
  Statement put = database.prepare(
      "INSERT INTO company (id, name, first_month, mode, digest) VALUES (1, ?, ?, ?, ?)");
  put.bind(1, std::string_view(info.name)).bind(2, std::int64_t{info.first_month});
  put.bind(3, info.multi_user ? multi_user : single_user);
  put.bind(4, static_cast<std::int64_t>(digestOf(companyLine(info), 0))).run();
  database.execute("COMMIT");
}

}  // namespace depcalc
