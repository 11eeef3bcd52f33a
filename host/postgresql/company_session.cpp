#include "host/postgresql/company_session.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "host/postgresql/lock_user.h"
#include "host/postgresql/server_schema.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;
using std::chrono::steady_clock;

constexpr const char* invalid_parameter = "22023";

constexpr std::chrono::milliseconds grace{200};
constexpr std::chrono::milliseconds first_pause{20};
constexpr std::chrono::milliseconds longest_pause{500};

/// Calls `attempt` until it answers true or `patience` is over, with growing pauses.
template <typename Attempt>
bool untilDone(std::chrono::milliseconds patience, Attempt attempt) {
  const auto end = steady_clock::now() + patience;
  for (auto pause = first_pause;; pause = std::min(pause * 2, longest_pause)) {
    const bool last = steady_clock::now() + pause >= end;
    if (attempt(last)) return true;
    if (last) return false;
    std::this_thread::sleep_for(pause);
  }
}

}  // namespace

CompanySession::CompanySession(const Libpq& libpq, ServerAddress address, SessionOptions options,
                               Purpose purpose)
    : libpq_(std::make_unique<Libpq>(libpq)),
      address_(std::move(address)),
      options_(std::move(options)),
      purpose_(purpose),
      key_(lockKey(address_)) {
  enter();
}

/// The server gives the lock back when it has noticed the session's end: too late for whoever opens
/// the company right now.
CompanySession::~CompanySession() {
  if (connection_ != nullptr && !isLost()) connection_->attempt("SELECT pg_advisory_unlock_all()");
}

void CompanySession::enter() {
  locked_ = false;
  connection_ = std::make_unique<Connection>(*libpq_, address_, options_.program);
  requireServerSchema(*connection_, address_);
  find();
  lock();
  if (!only_reads_ && id_ != 0) noteUse();
}

// --- Finding -------------------------------------------------------------------------------------

void CompanySession::find() {
  const Rows found = connection_->run(
      "SELECT id, depcalc.may(id, true), pg_is_in_recovery() OR"
      " current_setting('transaction_read_only')::boolean"
      " FROM depcalc.company WHERE filed_as = $1",
      Parameters().text(address_.company));
  if (purpose_ == Purpose::create && isToBeMade(found)) return;
  if (found.count() == 0 && id_ == 0) {
    throw FileTrouble(Kind::not_found, address_.text +
                                           " does not exist, or you have no right to read it. "
                                           "`depcalc server list` lists a server's companies.");
  }
  if (found.count() == 0 || (id_ != 0 && id_ != found.integer(0, 0))) {
    throw FileTrouble(Kind::lost, address_.text +
                                      " was removed from the server while it was open "
                                      "here, or you have no right to read it any more.");
  }
  id_ = found.integer(0, 0);
  requireRights(found);
}

/// Whether there is none yet; else it must be the one that this session made.
bool CompanySession::isToBeMade(const Rows& found) {
  if (found.count() == 0) {
    id_ = 0;
    return true;
  }
  if (id_ == 0 || id_ != found.integer(0, 0)) {
    throw FileTrouble(Kind::exists, address_.text + " already exists. Choose another name.");
  }
  madeForGood();
  return false;
}

void CompanySession::requireRights(const Rows& found) {
  only_reads_ = !found.isTrue(0, 1) || found.isTrue(0, 2);
  if (!only_reads_ || !options_.writable) return;
  throw FileTrouble(
      Kind::read_only,
      address_.text + (found.isTrue(0, 2)
                           ? " can only be read: the server is a replica, or has been made "
                             "read-only. Use the address of the primary server."
                           : " can only be read with your rights. Whoever looks after the server "
                             "gives the right to change it with `depcalc server grant`."));
}

// --- The lock ------------------------------------------------------------------------------------

bool CompanySession::tryLock() {
  const char* const sql =
      only_reads_ ? "SELECT pg_try_advisory_lock_shared($1)" : "SELECT pg_try_advisory_lock($1)";
  locked_ = connection_->run(sql, Parameters().integer(key_)).isTrue(0, 0);
  if (locked_) pid_ = connection_->pid();
  return locked_;
}

void CompanySession::lock() {
  if (tryLock()) return;
  // The server may not have noticed yet that this program's former connection is gone.
  untilDone(options_.patience, [this](bool /*last*/) { return !endFormerSession() || tryLock(); });
  // Nor, for a moment, that another program has ended.
  if (!locked_ && !untilDone(grace, [this](bool /*last*/) { return tryLock(); })) refuseLocked();
}

/// Whether it is the former session of this program that has the lock.
bool CompanySession::endFormerSession() {
  if (former_pid_ == 0 || !usesLock(*connection_, key_, former_pid_)) return false;
  connection_->run("SELECT pg_terminate_backend($1::integer)", Parameters().integer(former_pid_));
  return true;
}

void CompanySession::refuseLocked() {
  throw FileTrouble(Kind::locked, address_.text + " is in use" + lockUser(*connection_, key_, id_) +
                                      ". Close it there and try again.");
}

void CompanySession::noteUse() {
  connection_->run(
      "INSERT INTO depcalc.company_use (company_id, pid, login, machine, program)"
      " VALUES ($1, pg_backend_pid(), $2, $3, $4) ON CONFLICT (company_id) DO UPDATE"
      " SET pid = excluded.pid, login = excluded.login, machine = excluded.machine,"
      " program = excluded.program, since = excluded.since",
      Parameters().integer(id_).text(loginName()).text(machineName()).text(options_.program));
}

// --- After a loss --------------------------------------------------------------------------------

void CompanySession::renew() {
  former_pid_ = pid_;
  untilDone(options_.patience, [this](bool last) {
    try {
      enter();
      return true;
    } catch (const ServerTrouble& trouble) {
      // A server that starts says so; what it refuses for good, it says by a code.
      if (last || !trouble.code().empty()) throw;
      return false;
    }
  });
}

void CompanySession::rollBack() noexcept {
  if (!connection_->lost()) connection_->attempt("ROLLBACK");
}

std::optional<bool> CompanySession::isCommitted(const std::string& transaction) {
  std::optional<bool> committed;
  try {
    untilDone(options_.patience, [&](bool /*last*/) {
      const Rows status =
          connection_->run("SELECT pg_xact_status($1::xid8)", Parameters().text(transaction));
      const std::string_view said = status.isNull(0, 0) ? "" : status.text(0, 0);
      if (said == "in progress") return false;
      if (!said.empty()) committed = said == "committed";
      return true;
    });
  } catch (const ServerTrouble& trouble) {
    // A server that has taken over may not have come to that number yet.
    if (trouble.code() != invalid_parameter) throw;
  }
  return committed;
}

}  // namespace depcalc
