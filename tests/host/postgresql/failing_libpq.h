// A libpq whose calls fail as a test wants.
#pragma once

#include "host/postgresql/libpq.h"

namespace depcalc::testing_support {

enum class LibpqFailure {
  before,   ///< the connection breaks before the server hears of the statement
  after,    ///< the server does it, and the connection breaks before its answer comes
  refused,  ///< the server answers with an error, and the connection stands
  memory,   ///< there is no memory for an answer
};

/// Counts the calls that ask a server something, from 1, and lets one fail. One at a time.
class FailingLibpq {
 public:
  FailingLibpq();
  ~FailingLibpq();
  FailingLibpq(const FailingLibpq&) = delete;
  FailingLibpq& operator=(const FailingLibpq&) = delete;

  [[nodiscard]] const Libpq& functions() const { return functions_; }
  /// The `call`th call from now on; with `stays` every later one, too. 0: none.
  void failAt(int call, LibpqFailure failure, bool stays);
  [[nodiscard]] int calls() const { return calls_; }
  /// Called before each call that asks.
  void (*before_call)() = nullptr;

 private:
  static PGconn* connect(const char* const* names, const char* const* values, int expand);
  static PGresult* execute(PGconn* connection, const char* sql, int count, const unsigned* types,
                           const char* const* values, const int* lengths, const int* formats,
                           int format);
  bool fails();
  void breakConnection(PGconn* connection) const;

  Libpq real_;
  Libpq functions_;
  decltype(&::PQsocket) socket_ = nullptr;
  int calls_ = 0;
  int fail_at_ = 0;
  LibpqFailure failure_ = LibpqFailure::before;
  bool stays_ = false;
};

}  // namespace depcalc::testing_support
