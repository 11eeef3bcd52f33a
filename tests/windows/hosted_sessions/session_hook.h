// The hook of the library's test build: a session that is replayed on a hosted control.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace depcalc::testing {

/// The program that hosts the control, as the session asks of it. Nothing may be thrown between
/// the two: each has a C++ runtime of its own.
class SessionHost {
 public:
  virtual ~SessionHost() = default;

  /// Comes before all others: the company files' fiscal year.
  virtual void begin(int year, int month, int day) = 0;
  /// The application that the library is to find; counted for the caller.
  virtual IDispatch* application() = 0;
  virtual void open(const char* path) = 0;
  virtual void close() = 0;
  /// False where no company file is open.
  virtual bool setMultiUser(bool multi_user) = 0;

  /// Makes the calculator by its class and hosts it, with the keys; null where that failed. The
  /// reference is the host's own.
  virtual IUnknown* hostCalculator() = 0;
  /// The keys go to something of the host's, and the control is told so.
  virtual void takeKeys() = 0;
  /// Lets go of the calculator.
  virtual void end() = 0;

  /// Something was wrong that the session does not print.
  virtual void complain(const char* what) = 0;
  /// What the session printed. Comes after all others.
  virtual void take(const char* transcript) = 0;
};

/// What the test build exports beside what the library does. `session` is the content of a golden
/// file.
using ReplaySession = void(const char* session, SessionHost& host);
inline constexpr const char* replay_session_name = "DepCalcReplaySession";

}  // namespace depcalc::testing
