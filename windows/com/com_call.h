// How the methods of COM objects answer.
#pragma once

#include <windows.h>

#include <exception>
#include <type_traits>
#include <utility>

namespace depcalc::windows {

/// A failure that is an HRESULT from the start.
class ComFailure : public std::exception {
 public:
  explicit ComFailure(HRESULT result) : result_(result) {}
  [[nodiscard]] HRESULT result() const noexcept { return result_; }
  [[nodiscard]] const char* what() const noexcept override { return "COM failure"; }

 private:
  HRESULT result_;
};

/// A failing HRESULT as a ComFailure; any other passes.
HRESULT passed(HRESULT result);

/// What a caller must give. Null: E_POINTER.
template <typename T>
T& required(T* pointer) {
  if (pointer == nullptr) throw ComFailure(E_POINTER);
  return *pointer;
}

/// Inside a handler: the HRESULT of the exception being handled. A run-time error leaves its
/// description as the thread's error information, under the name of the object that failed.
HRESULT answerOfException(const wchar_t* object, REFGUID interface_id) noexcept;

/// The thread that made an object. COM marshals calls from others; one that comes without that is
/// a mistake.
class Apartment {
 public:
  /// Called from another thread: RPC_E_WRONG_THREAD.
  void require() const {
    if (GetCurrentThreadId() != thread_) throw ComFailure(RPC_E_WRONG_THREAD);
  }

 private:
  DWORD thread_ = GetCurrentThreadId();
};

/// Whose methods are answered, and where.
struct CallPlace {
  const wchar_t* object;
  GUID interface_id;
  Apartment apartment = {};

  /// Runs `body`, which may answer an HRESULT, and lets nothing but HRESULTs out.
  template <typename Body>
  HRESULT answer(Body&& body) const noexcept {
    try {
      apartment.require();
      if constexpr (std::is_void_v<decltype(body())>) {
        std::forward<Body>(body)();
        return S_OK;
      } else {
        return std::forward<Body>(body)();
      }
    } catch (...) {
      return answerOfException(object, interface_id);
    }
  }
};

}  // namespace depcalc::windows
