#include "host/postgresql/server_contents.h"

#include <utility>

#include "host/postgresql/server_text.h"

namespace depcalc {
namespace {

/// Of a company that has more, the rest is not looked at.
constexpr std::size_t most_problems = 20;

std::string describe(const StoredTable& table, std::int64_t index) {
  return "record " + std::to_string(index) + " of table " + table.name();
}

}  // namespace

ServerContents::ServerContents(CompanySession session, FailedChangeHandler failed)
    : session_(std::move(session)),
      change_failed_(std::move(failed)),
      path_(session_->address().text) {
  read();
}

ServerContents::ServerContents(CompanySession session, FailedChangeHandler failed, CompanyInfo info)
    : session_(std::move(session)),
      change_failed_(std::move(failed)),
      path_(session_->address().text),
      info_(std::move(info)),
      info_waits_(true),
      readable_(true) {}

void ServerContents::requireOpen() const {
  if (!isOpen()) throw RuntimeError::objectNotSet();
  if (readable_) return;
  if (unreadable_) throw FileTrouble(*unreadable_);
  throw RuntimeError::outOfMemory();
}

const std::string& ServerContents::path() const { return copy_ != nullptr ? copy_->path() : path_; }

const CompanyInfo& ServerContents::info() const {
  if (!isOpen()) throw RuntimeError::objectNotSet();
  return info_;
}

std::shared_ptr<StoredTable> ServerContents::table(std::string_view name) {
  requireOpen();
  return tableCalled(name);
}

std::shared_ptr<StoredTable> ServerContents::tableCalled(std::string_view name) {
  const auto found = tables_.find(name);
  if (found != tables_.end()) return found->second;
  if (tables_.size() >= most_tables) throw RuntimeError::overflow();
  auto table =
      std::make_shared<StoredTable>(std::string(name), *this, StoredTable::Undo::in_memory);
  return tables_.emplace(name, std::move(table)).first->second;
}

std::vector<std::string> ServerContents::tableNames() const {
  requireOpen();
  std::vector<std::string> names;
  for (const auto& [name, table] : tables_) {
    if (table->id() != 0 || table->waiting()) names.push_back(name);
  }
  return names;
}

void ServerContents::close() {
  is_open_ = false;
  session_.reset();
  if (copy_ != nullptr) copy_->close();
}

std::optional<FileTrouble> ServerContents::takeTrouble() {
  return std::exchange(trouble_, std::nullopt);
}

// --- Reading -------------------------------------------------------------------------------------

void ServerContents::read() {
  readable_ = false;
  for (const auto& [name, table] : tables_) table->clear();
  by_id_.clear();
  counted_.clear();
  Problems problems;
  // Who reads from a replica has no lock against those who write to the primary server.
  session_->connection().run("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  readCompany();
  readTables();
  readRecords(problems);
  if (problems.empty()) compareTables(problems);
  session_->connection().run("COMMIT");
  readable_ = problems.empty();
  if (readable_) return;
  const std::string more =
      problems.size() > 1 ? " (and " + std::to_string(problems.size() - 1) + " more)" : "";
  throw FileTrouble(FileTrouble::Kind::damaged,
                    path_ + " is damaged: " + problems.front() + more + ". Restore a backup.",
                    problems);
}

void ServerContents::readCompany() {
  const Rows row = session_->connection().run(
      "SELECT name, first_month, mode = 'multi-user', revision FROM depcalc.company WHERE id = $1",
      Parameters().integer(session_->id()));
  if (row.count() == 0) {
    throw FileTrouble(FileTrouble::Kind::lost, path_ + " was removed from the server.");
  }
  info_ = {.name = std::string(row.text(0, 0)),
           .first_month = static_cast<int>(row.integer(0, 1)),
           .multi_user = row.isTrue(0, 2)};
  file_info_ = info_;
  info_waits_ = false;
  file_revision_ = row.integer(0, 3);
}

void ServerContents::readTables() {
  const Rows rows = session_->connection().run(
      "SELECT id, name, records, tally FROM depcalc.data_table WHERE company_id = $1 ORDER BY id",
      Parameters().integer(session_->id()));
  for (int row = 0; row < rows.count(); ++row) {
    const auto table = tableCalled(rows.text(row, 1));
    table->id(rows.integer(row, 0));
    by_id_[table->id()] = table;
    counted_[table->id()] = {rows.integer(row, 2),
                             static_cast<std::uint64_t>(rows.integer(row, 3))};
  }
}

void ServerContents::readRecords(Problems& problems) {
  const Rows rows = session_->connection().run(
      "SELECT table_id, index, fields, digest FROM depcalc.record WHERE company_id = $1",
      Parameters().integer(session_->id()));
  for (int row = 0; row < rows.count() && problems.size() < most_problems; ++row) {
    const auto known = by_id_.find(rows.integer(row, 0));
    const std::int64_t index = rows.integer(row, 1);
    if (known == by_id_.end()) {
      problems.push_back("record " + std::to_string(index) + " does not belong to any table");
      continue;
    }
    StoredTable& table = *known->second;
    const auto digest = static_cast<std::uint64_t>(rows.integer(row, 3));
    if (table.read(static_cast<std::int16_t>(index), textOfServer(rows.text(row, 2)), digest)) {
      continue;
    }
    problems.push_back(describe(table, index) + " has been altered since it was saved");
  }
}

void ServerContents::compareTables(Problems& problems) {
  for (const auto& [id, table] : by_id_) {
    const Counted& counted = counted_[id];
    if (table->records() != counted.records) {
      problems.push_back("table " + table->name() + " has " + std::to_string(table->records()) +
                         " records instead of " + std::to_string(counted.records));
    } else if (table->tally() != counted.tally) {
      problems.push_back("table " + table->name() + " has records from another point in time");
    }
  }
}

}  // namespace depcalc
