#include "tests/host/postgresql/failing_libpq.h"

#include <dlfcn.h>
#include <sys/socket.h>

namespace depcalc::testing_support {
namespace {

/// libpq's functions take no object; so the one that counts is known here.
FailingLibpq* counting = nullptr;

}  // namespace

FailingLibpq::FailingLibpq() : real_(loadedLibpq()), functions_(real_) {
  socket_ = reinterpret_cast<decltype(socket_)>(
      ::dlsym(::dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL), "PQsocket"));
  functions_.connect = connect;
  functions_.execute = execute;
  counting = this;
}

FailingLibpq::~FailingLibpq() { counting = nullptr; }

void FailingLibpq::failAt(int call, LibpqFailure failure, bool stays) {
  calls_ = 0;
  fail_at_ = call;
  failure_ = failure;
  stays_ = stays;
}

bool FailingLibpq::fails() {
  if (before_call != nullptr) before_call();
  ++calls_;
  return calls_ == fail_at_ || (stays_ && fail_at_ != 0 && calls_ > fail_at_);
}

void FailingLibpq::breakConnection(PGconn* connection) const {
  ::shutdown(socket_(connection), SHUT_RDWR);
}

PGconn* FailingLibpq::connect(const char* const* names, const char* const* values, int expand) {
  if (!counting->fails()) return counting->real_.connect(names, values, expand);
  if (counting->failure_ == LibpqFailure::memory) return nullptr;
  const char* const nowhere[] = {"host", nullptr};
  const char* const no_place[] = {"/nonexistent", nullptr};
  return counting->real_.connect(nowhere, no_place, 0);
}

PGresult* FailingLibpq::execute(PGconn* connection, const char* sql, int count,
                                const unsigned* types, const char* const* values,
                                const int* lengths, const int* formats, int format) {
  const auto really = [&](const char* statement, int parameters) {
    return counting->real_.execute(connection, statement, parameters, types, values, lengths,
                                   formats, format);
  };
  if (!counting->fails()) return really(sql, count);
  switch (counting->failure_) {
    case LibpqFailure::refused:
      return really("SELECT 1 / 0", 0);
    case LibpqFailure::memory:
      counting->real_.clear(really(sql, count));
      return nullptr;
    case LibpqFailure::after:
      counting->real_.clear(really(sql, count));
      break;
    case LibpqFailure::before:
      break;
  }
  counting->breakConnection(connection);
  return really("SELECT 1", 0);
}

}  // namespace depcalc::testing_support
