#include "windows/host/create_host.h"

#include <objbase.h>
#include <wrl/client.h>

#include <optional>
#include <string>
#include <system_error>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/host/automation_host.h"
#include "windows/host/host_error.h"
#include "windows/registration/registry_key.h"

namespace depcalc {
namespace {

constexpr int cannot_create_object = 429;

std::optional<std::wstring> hostNamedBelow(HKEY root) {
  try {
    const auto key = RegistryKey::open(root, host_key);
    if (!key) return std::nullopt;
    auto name = key->text(host_value);
    if (name && name->empty()) return std::nullopt;
    return name;
  } catch (const std::system_error&) {
    // A key that cannot be read names nobody.
    return std::nullopt;
  }
}

std::wstring hostName() {
  if (auto name = hostNamedBelow(HKEY_CURRENT_USER)) return *name;
  if (auto name = hostNamedBelow(HKEY_LOCAL_MACHINE)) return *name;
  throw RuntimeError(cannot_create_object,
                     "No host is named: write the ProgID of the host's application as value Host "
                     "of HKEY_CURRENT_USER\\Software\\ZemDepCalc");
}

std::string inQuotes(const std::wstring& name) { return '"' + textFromUtf16(name) + '"'; }

}  // namespace

std::shared_ptr<HostApplication> createHostApplication() {
  const std::wstring name = hostName();
  CLSID id{};
  if (FAILED(CLSIDFromProgID(name.c_str(), &id))) {
    throw RuntimeError(cannot_create_object,
                       "The host " + inQuotes(name) + " is not registered on this computer");
  }
  Microsoft::WRL::ComPtr<IDispatch> application;
  const HRESULT made = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                        IID_PPV_ARGS(&application));
  if (FAILED(made)) {
    EXCEPINFO none{};
    const RuntimeError why = hostError(made, none);
    throw RuntimeError(why.number(),
                       "The host " + inQuotes(name) + " cannot be had: " + why.description());
  }
  return automationApplication(application.Get());
}

}  // namespace depcalc
