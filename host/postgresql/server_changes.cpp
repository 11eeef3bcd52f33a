// How changes of a company reach its server.
#include <new>
#include <utility>

#include "common/trapped.h"
#include "host/postgresql/record_rows.h"
#include "host/postgresql/server_contents.h"
#include "host/stored/copied_tables.h"
#include "host/stored/record_text.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// The procedure that reports what goes wrong after something went wrong.
constexpr std::string_view recovering = "DepCalc::company on a server";

/// The records of a table, one by one into another one.
class TableRecords final : public RecordSink {
 public:
  explicit TableRecords(std::shared_ptr<HostTable> table) : table_(std::move(table)) {}

  void put(std::int64_t id, std::string_view text, std::uint64_t /*digest*/) override {
    remove(id);
    putRecord(*table_, indexOf(id), recordOfText(text).entries());
  }
  void remove(std::int64_t id) override {
    if (table_->Exists(indexOf(id))) table_->Item(indexOf(id))->Delete();
  }

 private:
  static std::int16_t indexOf(std::int64_t id) {
    return static_cast<std::int16_t>(id % records_per_table);
  }

  std::shared_ptr<HostTable> table_;
};

const char* modeOf(const CompanyInfo& info) {
  return info.multi_user ? "multi-user" : "single-user";
}

}  // namespace

void ServerContents::info(const CompanyInfo& info) {
  beforeChange();
  if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
  info_ = info;
  info_waits_ = true;
  afterChange();
}

void ServerContents::beforeChange() {
  requireOpen();
  if (copy_ == nullptr && session_->onlyReads()) {
    throw FileTrouble(Kind::read_only, path_ + " cannot be changed. It was opened for reading.");
  }
  if (changes_refused_) {
    throw FileTrouble(Kind::failed, path() +
                                        " could not be read completely because memory ran out. It "
                                        "cannot be changed until it has been opened again.");
  }
  ++changes_;
}

void ServerContents::afterChange() {
  if (depth_ == 0) writeWaiting();
}

void ServerContents::end() {
  if (--depth_ > 0 || !isOpen()) return;
  if (changes_refused_ && isWaiting()) {
    undo();  // what was to come with it was refused
  } else {
    writeWaiting();
  }
}

void ServerContents::abandon() {
  --depth_;
  if (isOpen()) undo();
}

void ServerContents::undo() noexcept {
  ++changes_;
  for (const auto& [name, table] : tables_) table->undo();
  info_ = file_info_;
  info_waits_ = false;
}

// --- Writing -------------------------------------------------------------------------------------

bool ServerContents::isWaiting() const {
  bool waiting = info_waits_;
  for (const auto& [name, table] : tables_) waiting = waiting || table->waiting();
  return waiting;
}

void ServerContents::writeWaiting() {
  while (!asking_ && isWaiting()) {
    const bool connected = copy_ != nullptr || !session_->isLost();
    try {
      writeOnce();
    } catch (const FileTrouble& trouble) {
      // One that is lost just now is tried again first.
      if (connected && copy_ == nullptr && session_->isLost()) continue;
      trapped(recovering, [&] { noteTrouble(trouble); });
      if (isMended()) continue;
      giveUp();
      if (!trouble_) throw;
      throw FileTrouble(*trouble_);
    } catch (const std::bad_alloc&) {
      if (connected && copy_ == nullptr && session_->isLost()) continue;
      trapped(recovering, [this] {
        trouble_.emplace(Kind::failed, path() + " cannot be written: out of memory.");
      });
      if (isMended()) continue;
      giveUp();
      throw;
    }
  }
}

void ServerContents::writeOnce() {
  if (copy_ != nullptr) {
    writeTo(*copy_);
    return written();
  }
  if (session_->isLost()) connectAgain();
  if (!isWaiting()) return;
  write();
  written();
}

/// One transaction. What became of it is in question only where its end got no answer.
void ServerContents::write() {
  Connection& connection = session_->connection();
  bool committing = false;
  try {
    connection.run("BEGIN");
    writeAll();
    committing = true;
    connection.run("COMMIT");
  } catch (...) {
    if (!committing || !connection.lost()) transaction_.clear();
    session_->rollBack();
    throw;
  }
}

void ServerContents::writeAll() {
  if (session_->id() == 0) {
    makeCompany();
    session_->noteUse();
  } else {
    updateCompany();
  }
  RecordRows rows(session_->connection(), session_->id());
  for (const auto& [name, table] : tables_) {
    if (!table->waiting()) continue;
    if (table->id() == 0) {
      table->id(by_id_.empty() ? 1 : by_id_.rbegin()->first + 1);
      by_id_[table->id()] = table;
    }
    table->write(rows, StoredTable::Extent::waiting);
  }
  rows.finish();
  writeTables();
}

void ServerContents::makeCompany() {
  const Rows made = session_->connection().run(
      "INSERT INTO depcalc.company (filed_as, name, first_month, mode, revision, written_by)"
      " VALUES ($1, $2, $3, $4, 1, pg_current_xact_id()) RETURNING id, written_by::text",
      Parameters()
          .text(session_->address().company)
          .text(info_.name)
          .integer(info_.first_month)
          .text(modeOf(info_)));
  session_->made(made.integer(0, 0));
  transaction_ = made.text(0, 1);
}

void ServerContents::updateCompany() {
  const Rows updated = session_->connection().run(
      "UPDATE depcalc.company SET name = $2, first_month = $3, mode = $4,"
      " revision = revision + 1, written_by = pg_current_xact_id()"
      " WHERE id = $1 AND revision = $5 RETURNING written_by::text",
      Parameters()
          .integer(session_->id())
          .text(info_.name)
          .integer(info_.first_month)
          .text(modeOf(info_))
          .integer(file_revision_));
  if (updated.count() == 0) failUpdating();
  transaction_ = updated.text(0, 0);
}

void ServerContents::failUpdating() {
  const Rows now = session_->connection().run(
      "SELECT revision, depcalc.may(id, true) FROM depcalc.company WHERE id = $1",
      Parameters().integer(session_->id()));
  if (now.count() == 0) {
    lost_.emplace(Kind::lost, path_ +
                                  " was removed from the server, or you have no right to read "
                                  "it any more.");
    throw FileTrouble(*lost_);
  }
  requireAsKnown(now.integer(0, 0));
  throw FileTrouble(Kind::read_only,
                    path_ +
                        " cannot be changed any more: your right to change it was taken away. "
                        "Whoever looks after the server gives it with `depcalc server grant`.");
}

void ServerContents::writeTables() {
  std::vector<std::int64_t> ids;
  std::vector<std::optional<std::string>> names;
  std::vector<std::int64_t> records;
  std::vector<std::int64_t> tallies;
  for (const auto& [id, table] : by_id_) {
    ids.push_back(id);
    names.emplace_back(table->name());
    records.push_back(table->records());
    tallies.push_back(static_cast<std::int64_t>(table->tally()));
  }
  if (ids.empty()) return;
  session_->connection().run(
      "INSERT INTO depcalc.data_table (company_id, id, name, records, tally)"
      " SELECT $1, n.id, n.name, n.records, n.tally FROM unnest($2, $3, $4, $5)"
      " AS n (id, name, records, tally) ON CONFLICT (company_id, id) DO UPDATE"
      " SET records = excluded.records, tally = excluded.tally",
      Parameters()
          .integer(session_->id())
          .integers(ids)
          .texts(names)
          .integers(records)
          .integers(tallies));
}

/// What was written is what the server has.
void ServerContents::written() noexcept {
  for (const auto& [name, table] : tables_) table->written();
  if (session_) session_->madeForGood();
  file_info_ = info_;
  info_waits_ = false;
  transaction_.clear();
  ++file_revision_;
}

void ServerContents::writeTo(StoredCompanyFile& copy) {
  HostUnitOfWork& unit = *copy.unitOfWork();
  unit.begin();
  try {
    if (info_waits_) copy.info(info_);
    for (const auto& [name, table] : tables_) {
      TableRecords records(copy.OpenTable(name));
      if (table->waiting()) table->write(records, StoredTable::Extent::waiting);
    }
  } catch (...) {
    unit.abandon();
    throw;
  }
  unit.end();
}

}  // namespace depcalc
