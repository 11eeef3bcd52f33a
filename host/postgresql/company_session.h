// A session at a server that has a company to itself.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/postgresql/connection.h"

namespace depcalc {

/// How a company on a server is opened.
struct SessionOptions {
  std::string program = "depcalc";  ///< what others are told who find the company in use
  bool writable = true;             ///< false: a company that can only be read will do
  /// How long a connection that was lost is tried again before that counts as a failure.
  std::chrono::milliseconds patience{10'000};
};

/// A session with the company's lock, which goes with the session, however that ends. Where the
/// company can only be read (a reader's rights, a replica) the lock is shared with others who read.
/// What goes wrong is thrown as a FileTrouble.
class CompanySession {
 public:
  enum class Purpose { open, create };

  CompanySession(const Libpq& libpq, ServerAddress address, SessionOptions options,
                 Purpose purpose);
  ~CompanySession();
  CompanySession(CompanySession&&) = default;
  CompanySession& operator=(CompanySession&&) = delete;

  Connection& connection() { return *connection_; }
  [[nodiscard]] const ServerAddress& address() const { return address_; }
  /// 0 for a company that is to be made, also where its making came to nothing.
  [[nodiscard]] std::int64_t id() const { return id_; }
  /// The company was made by a transaction that may yet come to nothing, or did.
  void made(std::int64_t id) { id_ = id; }
  /// Lets others know who has the company open.
  void noteUse();
  void madeForGood() noexcept { purpose_ = Purpose::open; }
  [[nodiscard]] bool onlyReads() const { return only_reads_; }
  /// Whether the server has to be connected, and the company locked, again.
  [[nodiscard]] bool isLost() const { return !locked_ || connection_->lost(); }
  /// Connects and locks again, for as long as there is patience. What the former session had under
  /// way at the server has come to its end then. Where somebody else has the company by now, the
  /// connection stands without its lock.
  void renew();
  /// Sets aside what an open transaction has done, as far as there is a connection.
  void rollBack() noexcept;

  /// What became of a transaction: nothing while it is under way, or where nobody knows.
  std::optional<bool> isCommitted(const std::string& transaction);

 private:
  void enter();
  void find();
  [[nodiscard]] bool isToBeMade(const Rows& found);
  void requireRights(const Rows& found);
  void lock();
  bool tryLock();
  [[noreturn]] void refuseLocked();
  bool endFormerSession();

  std::unique_ptr<const Libpq> libpq_;  ///< where it is when the session has moved
  ServerAddress address_;
  SessionOptions options_;
  Purpose purpose_;
  std::int64_t key_;  ///< of the lock
  std::unique_ptr<Connection> connection_;
  std::int64_t id_ = 0;
  bool only_reads_ = false;
  bool locked_ = false;
  int pid_ = 0;         ///< of the session that had the lock last
  int former_pid_ = 0;  ///< of the one before a loss
};

}  // namespace depcalc
