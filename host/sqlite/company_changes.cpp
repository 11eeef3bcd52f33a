// How changes of a company reach its file, and what happens when they do not.
#include <new>
#include <utility>

#include "common/trapped.h"
#include "host/sqlite/company_contents.h"
#include "host/sqlite/company_path.h"
#include "host/sqlite/company_row.h"
#include "host/sqlite/company_schema.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;
using InFile = FailedChange::InFile;

/// The procedure that reports what goes wrong after something went wrong.
constexpr std::string_view recovering = "DepCalc::company file";

/// The rows of the file. One that stays as it is touches no page, and so what changes nothing, as
/// when a company is opened, is not written to the disk.
class RecordRows final : public RecordSink {
 public:
  explicit RecordRows(Database& database)
      : put_(database.prepare(
            "INSERT INTO record (id, fields, digest) VALUES (?, ?, ?) ON CONFLICT (id) DO UPDATE"
            " SET fields = excluded.fields, digest = excluded.digest"
            " WHERE digest IS NOT excluded.digest OR fields IS NOT excluded.fields")),
        remove_(database.prepare("DELETE FROM record WHERE id = ?")) {}

  void put(std::int64_t id, std::string_view text, std::uint64_t digest) override {
    put_.bind(1, id).bind(2, text).bind(3, static_cast<std::int64_t>(digest)).run();
  }
  void remove(std::int64_t id) override { remove_.bind(1, id).run(); }

 private:
  Statement put_;
  Statement remove_;
};

}  // namespace

void CompanyContents::info(const CompanyInfo& info) {
  beforeChange();
  if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
  info_ = info;
  info_waits_ = true;
  afterChange();
}

void CompanyContents::beforeChange() {
  requireOpen();
  if (open_->database.readOnly()) {
    throw FileTrouble(Kind::read_only, path_ + " cannot be written. It was opened for reading.");
  }
  if (changes_refused_) {
    throw FileTrouble(Kind::failed, path_ +
                                        " could not be read completely because memory ran out. It "
                                        "cannot be changed until it has been opened again.");
  }
  ++revision_;
}

void CompanyContents::afterChange() {
  if (depth_ == 0) writeWaiting();
}

void CompanyContents::end() {
  if (--depth_ > 0 || !isOpen()) return;
  if (changes_refused_ && isWaiting()) {
    recover();  // what was to come with it was refused
  } else {
    writeWaiting();
  }
}

// --- Writing -------------------------------------------------------------------------------------

bool CompanyContents::isWaiting() const {
  bool waiting = info_waits_;
  for (const auto& [name, table] : tables_) waiting = waiting || table->waiting();
  return waiting;
}

void CompanyContents::writeWaiting() {
  while (!asking_ && isWaiting()) {
    try {
      writeInPlace();
    } catch (const FileTrouble& trouble) {
      trapped(recovering, [&] { trouble_ = trouble; });
      if (isMended()) continue;
      recover();
      throw;
    } catch (const std::bad_alloc&) {
      trapped(recovering, [this] {
        trouble_.emplace(Kind::failed, path_ + " cannot be written: out of memory.");
      });
      if (isMended()) continue;
      recover();
      throw;
    }
  }
}

void CompanyContents::writeInPlace() {
  requireStillOurs();
  write(open_->database, StoredTable::Extent::waiting);
  written();
}

/// Between two changes somebody may have taken the file away, or something in this process have
/// dropped SQLite's lock and let another program write.
void CompanyContents::requireStillOurs() {
  open_->lock.requireInPlace(path_);
  if (open_->lock.sqliteHolds()) return;
  holdDatabaseAgain(open_->database);
  if (fileIsAsKnown()) return;
  throw FileTrouble(Kind::changed, path_ +
                                       " was changed by another program while it was open here. "
                                       "It was left as the other program saved it.");
}

/// Whether the file holds what it held when it was last read or written here.
bool CompanyContents::fileIsAsKnown() {
  Database& database = open_->database;
  if (static_cast<std::uint64_t>(database.integer("SELECT digest FROM company")) != file_digest_) {
    return false;
  }
  std::int64_t known = 0;
  for (const auto& [id, table] : by_id_) known += table->recordsInFile();
  Statement row = database.prepare("SELECT id, fields, digest FROM record");
  while (row.step()) {
    const std::int64_t id = row.integer(0);
    const auto table = by_id_.find(id / records_per_table);
    const auto digest = static_cast<std::uint64_t>(row.integer(2));
    if (table == by_id_.end() ||
        !table->second->isInFile(id % records_per_table, row.text(1), digest)) {
      return false;
    }
    --known;
  }
  return known == 0;
}

void CompanyContents::write(Database& database, StoredTable::Extent extent) {
  const bool all = extent == StoredTable::Extent::all;
  database.execute("BEGIN IMMEDIATE");
  for (const auto& [name, table] : tables_) {
    if (table->waiting() || (all && table->id() != 0)) writeTable(database, *table, extent);
  }
  written_digest_ = companyDigest();
  putCompany(database, info_, written_digest_);
  database.execute("COMMIT");
}

void CompanyContents::writeTable(Database& database, StoredTable& table,
                                 StoredTable::Extent extent) {
  if (table.id() == 0) {
    table.id(by_id_.empty() ? 1 : by_id_.rbegin()->first + 1);
    by_id_[table.id()] = tables_.find(table.name())->second;
  }
  RecordRows rows(database);
  table.write(rows, extent);
  if (const std::int64_t form = formWith(table.name()); form > formOf(database)) {
    setForm(database, form);
  }
  Statement put = database.prepare(
      "INSERT INTO data_table (id, name, records, tally) VALUES (?, ?, ?, ?)"
      " ON CONFLICT (id) DO UPDATE SET name = excluded.name, records = excluded.records,"
      " tally = excluded.tally WHERE name IS NOT excluded.name"
      " OR records IS NOT excluded.records OR tally IS NOT excluded.tally");
  put.bind(1, table.id()).bind(2, std::string_view(table.name())).bind(3, table.records());
  put.bind(4, static_cast<std::int64_t>(table.tally())).run();
}

/// What was written is what the file has.
void CompanyContents::written() noexcept {
  for (const auto& [name, table] : tables_) table->written();
  file_digest_ = written_digest_;
  info_waits_ = false;
}

std::uint64_t CompanyContents::companyDigest() const {
  std::string lines;
  for (const auto& [id, table] : by_id_) {
    lines += std::to_string(id) + '\n' + table->name() + '\n' + std::to_string(table->records()) +
             '\n' + std::to_string(static_cast<std::int64_t>(table->tally())) + '\n';
  }
  return depcalc::companyDigest(info_, lines);
}

// --- When a change cannot be written -------------------------------------------------------------

/// Whether there is nothing left of the failure, or another try is to be made.
bool CompanyContents::isMended() {
  if (!change_failed_ || !trouble_) return false;
  bool mended = false;
  asking_ = true;
  trapped(recovering, [&] { mended = mend(); });
  asking_ = false;
  if (mended) trouble_.reset();
  return mended;
}

bool CompanyContents::mend() {
  Database& database = open_->database;
  trapped(recovering, [&] {
    if (database.inTransaction()) database.execute("ROLLBACK");
  });
  const InFile in_file = whatFileHas();
  while (true) {
    const FailedChangeAnswer answer = change_failed_({*trouble_, in_file});
    const auto* copy = std::get_if<GoOnWithCopy>(&answer);
    if (!isOpen()) return false;
    if (copy == nullptr) return std::holds_alternative<TryAgain>(answer);
    try {
      goOnWith(copy->path);
      return true;
    } catch (const FileTrouble& trouble) {
      trouble_ = trouble;
    }
  }
}

InFile CompanyContents::whatFileHas() {
  InFile has = InFile::unknown;
  trapped(recovering, [&] {
    const auto digest =
        static_cast<std::uint64_t>(open_->database.integer("SELECT digest FROM company"));
    if (digest == file_digest_)
      has = InFile::nothing;
    else if (digest == written_digest_)
      has = InFile::all;
  });
  return has;
}

/// A write that reported an error may have reached the disk nevertheless: only the file knows.
/// Until it has been read again, nothing is.
void CompanyContents::recover() {
  if (!isOpen()) return;
  readable_ = false;
  ++revision_;
  const bool again = trapped(recovering, [this] {
    if (open_->database.inTransaction()) open_->database.execute("ROLLBACK");
    read();
  });
  if (!again) trapped(recovering, [this] { unreadable_ = trouble_; });
}

// --- Copies --------------------------------------------------------------------------------------

std::optional<FileTrouble> CompanyContents::lost() const {
  try {
    open_->lock.requireInPlace(path_);
  } catch (const FileTrouble& trouble) {
    return trouble;
  }
  return std::nullopt;
}

void CompanyContents::saveCopy(const std::string& path) {
  requireOpen();
  if (lost()) {
    goOnWith(path);
  } else {
    (void)makeCopy(resolvedNewPath(path));
  }
}

/// A file that cannot be read any more, or holds something else by now, is written anew.
CompanyLock CompanyContents::makeCopy(const std::string& place) {
  return makeDatabase(place, vfs_, [this](Database& copy) {
    bool known = false;
    trapped(recovering, [&] { known = fileIsAsKnown(); });
    if (known) {
      copy.copyFrom(open_->database);
    } else {
      writeNewCompany(copy, info_);
    }
    if (!known || isWaiting()) {
      write(copy, known ? StoredTable::Extent::waiting : StoredTable::Extent::all);
    }
  });
}

void CompanyContents::goOnWith(const std::string& path) {
  const std::string place = resolvedNewPath(path);
  CompanyLock lock = makeCopy(place);
  open_ = openDatabase(place, {.writable = true, .vfs = vfs_}, std::move(lock));
  path_ = place;
  written();
}

}  // namespace depcalc
