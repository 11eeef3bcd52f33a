// Hosts that the system creates by name.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>

namespace depcalc::testing_support {

/// Enters COM's apartment for as long as it lives.
class Apartment {
 public:
  Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~Apartment() { CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// The ProgID of the reference host.
inline constexpr const wchar_t* reference_host_name = L"DepCalcReferenceHost.Application";

/// A class that is registered, under the name above, for as long as this object lives. Each has an
/// identifier of its own, so that no process that died answers for it.
class HostClass {
 public:
  /// orvw32_reference_host.exe, which lies beside this program, with an object for each client or
  /// one for all; or a library that is not there.
  enum class Server { process, shared_process, missing_library };

  explicit HostClass(Server server = Server::process);
  ~HostClass();
  HostClass(const HostClass&) = delete;
  HostClass& operator=(const HostClass&) = delete;

  [[nodiscard]] const CLSID& id() const { return id_; }

 private:
  CLSID id_{};
};

/// Names the host for the library, below `root`; in the end nobody is named there.
class NamedHost {
 public:
  NamedHost(HKEY root, const std::wstring& name);
  ~NamedHost();
  NamedHost(const NamedHost&) = delete;
  NamedHost& operator=(const NamedHost&) = delete;

 private:
  HKEY root_;
};

}  // namespace depcalc::testing_support
