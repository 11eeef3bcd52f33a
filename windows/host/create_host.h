// The application object of the host that this library was installed for.
#pragma once

#include <memory>

#include "host/host.h"

namespace depcalc {

/// The registry key that names the host, below HKEY_CURRENT_USER or, where it is not there, below
/// HKEY_LOCAL_MACHINE; its value "Host" is the ProgID of the host's application class. Whoever
/// installs the library, or the host, writes it.
inline constexpr const wchar_t* host_key = L"Software\\ZemDepCalc";
inline constexpr const wchar_t* host_value = L"Host";

/// A new object of that class, in this process or the host's own. No host named, no such class, or
/// none to be had: error 429, with what to do about it.
std::shared_ptr<HostApplication> createHostApplication();

}  // namespace depcalc
