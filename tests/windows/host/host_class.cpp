#include "tests/windows/host/host_class.h"

#include <array>

#include "windows/host/create_host.h"
#include "windows/registration/registry_key.h"

namespace depcalc::testing_support {
namespace {

const HKEY classes = HKEY_LOCAL_MACHINE;

std::wstring textOf(const CLSID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring classKey(const CLSID& id) { return L"Software\\Classes\\CLSID\\" + textOf(id); }
std::wstring nameKey() { return std::wstring(L"Software\\Classes\\") + reference_host_name; }

std::wstring referenceHostPath() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  std::wstring folder = path.data();
  folder.resize(folder.rfind(L'\\') + 1);
  return folder + L"orvw32_reference_host.exe";
}

void serveBy(const CLSID& id, const std::wstring& key, const std::wstring& server) {
  RegistryKey::create(classes, classKey(id) + L'\\' + key).setText(L"", server);
}

}  // namespace

HostClass::HostClass(Server server) {
  CoCreateGuid(&id_);
  RegistryKey::create(classes, nameKey() + L"\\CLSID").setText(L"", textOf(id_));
  if (server == Server::missing_library) {
    serveBy(id_, L"InprocServer32", L"no_such_library.dll");
    return;
  }
  const std::wstring program = L'"' + referenceHostPath() + L"\" " + textOf(id_);
  serveBy(id_, L"LocalServer32", program + (server == Server::shared_process ? L" shared" : L""));
}

HostClass::~HostClass() {
  removeRegistryTree(classes, nameKey());
  removeRegistryTree(classes, classKey(id_));
}

NamedHost::NamedHost(HKEY root, const std::wstring& name) : root_(root) {
  RegistryKey::create(root, host_key).setText(host_value, name);
}

NamedHost::~NamedHost() { removeRegistryTree(root_, host_key); }

}  // namespace depcalc::testing_support
