// What becomes of changes that the server did not take, and of a connection that was lost.
#include <utility>

#include "common/trapped.h"
#include "host/postgresql/server_contents.h"
#include "host/stored/copied_tables.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;
using InFile = FailedChange::InFile;

/// The procedure that reports what goes wrong after something went wrong.
constexpr std::string_view recovering = "DepCalc::company on a server";

std::string certainty(InFile in_file) {
  switch (in_file) {
    case InFile::nothing:
      return " Nothing of the last change was saved.";
    case InFile::all:
      return " The last change was saved.";
    case InFile::unknown:
      break;
  }
  return " It was lost while the last change was being saved; whether the server kept the change "
         "is not certain.";
}

}  // namespace

// --- After a loss --------------------------------------------------------------------------------

void ServerContents::connectAgain() {
  std::optional<FileTrouble> locked;
  try {
    session_->renew();
  } catch (const FileTrouble& trouble) {
    if (trouble.kind() == Kind::lost) lost_ = trouble;
    if (trouble.kind() != Kind::locked) throw;
    locked = trouble;
  }
  settle();
  lost_ = locked;
  if (locked && isWaiting()) throw FileTrouble(*locked);
}

/// Finds out whether the server kept what was being committed when the connection was lost.
void ServerContents::settle() {
  if (session_->id() == 0) return transaction_.clear();
  const std::optional<bool> committed =
      transaction_.empty() ? std::nullopt : session_->isCommitted(transaction_);
  const Rows now = session_->connection().run(
      "SELECT revision, written_by::text FROM depcalc.company WHERE id = $1",
      Parameters().integer(session_->id()));
  if (now.count() == 0) {
    lost_.emplace(Kind::lost, path_ + " was removed from the server.");
    throw FileTrouble(*lost_);
  }
  const std::int64_t revision = now.integer(0, 0);
  if (!transaction_.empty()) {
    // Where another server has taken over, a number may have come up a second time.
    const bool kept = now.text(0, 1) == transaction_ || committed.value_or(false);
    if (kept && revision > file_revision_) {
      written();
    } else if (committed.has_value() || !session_->isLost()) {
      transaction_.clear();
    } else {
      throw FileTrouble(Kind::failed, path_ + " does not say what became of the last change.");
    }
  }
  requireAsKnown(revision);
}

void ServerContents::requireAsKnown(std::int64_t revision) {
  if (revision == file_revision_) return;
  lost_.emplace(Kind::changed, path_ +
                                   " was changed by somebody else while the connection to it was "
                                   "lost. It was left as the other one saved it.");
  if (isWaiting()) throw FileTrouble(*lost_);
}

// --- When a change cannot be written -------------------------------------------------------------

/// What is certain is said with it.
void ServerContents::noteTrouble(const FileTrouble& trouble) {
  const InFile in_file = transaction_.empty() ? InFile::nothing : InFile::unknown;
  const bool says_it = trouble.description().find("Nothing was changed") != std::string::npos;
  trouble_.emplace(trouble.kind(), trouble.description() + (says_it ? "" : certainty(in_file)),
                   trouble.details());
}

/// Whether there is nothing left of the failure, or another try is to be made.
bool ServerContents::isMended() {
  if (!change_failed_ || !trouble_) return false;
  bool mended = false;
  asking_ = true;
  trapped(recovering, [&] { mended = mend(); });
  asking_ = false;
  if (mended) trouble_.reset();
  return mended;
}

bool ServerContents::mend() {
  while (true) {
    const InFile in_file = transaction_.empty() ? InFile::nothing : InFile::unknown;
    const FailedChangeAnswer answer = change_failed_({*trouble_, in_file, copy_ == nullptr});
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

/// What is certainly not on the server is undone. Where that is in question, nobody knows what the
/// company is until it has been read again.
void ServerContents::giveUp() {
  if (!isOpen()) return;
  if (copy_ != nullptr) {
    readable_ = trapped(recovering, [this] { readOf(*copy_); });
  } else if (transaction_.empty()) {
    undo();
  } else {
    readable_ = false;
    ++changes_;
  }
  if (!readable_) trapped(recovering, [this] { unreadable_ = trouble_; });
}

/// Everything as `file` has it now.
void ServerContents::readOf(StoredCompanyFile& file) {
  undo();
  ++depth_;  // nothing of this is to be written
  for (const std::string& name : file.tableNames()) {
    const auto source = file.OpenTable(name);
    const auto table = tableOver({std::shared_ptr<void>(), tableCalled(name).get()});
    for (std::int32_t i = 0; i <= INT16_MAX; ++i) copyRecord(*source, *table, i);
  }
  --depth_;
  info_ = file.info();
  written();
}

// --- Copies --------------------------------------------------------------------------------------

void ServerContents::saveCopy(const std::string& path) {
  requireOpen();
  if (copy_ != nullptr) {
    if (const auto trouble = copy_->saveCopy(path)) throw FileTrouble(*trouble);
  } else if (lost_) {
    goOnWith(path);
  } else {
    make_copy_(path)->close();
  }
}

void ServerContents::goOnWith(const std::string& path) {
  copy_ = make_copy_(path);
  session_.reset();
  lost_.reset();
  written();
}

}  // namespace depcalc
