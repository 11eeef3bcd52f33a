#include "windows/registration/registry_key.h"

#include <system_error>
#include <utility>

namespace depcalc {
namespace {

void require(LSTATUS status) {
  if (status != ERROR_SUCCESS)
    throw std::system_error(static_cast<int>(status), std::system_category());
}

}  // namespace

RegistryKey RegistryKey::create(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  require(
      RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
  return RegistryKey(key);
}

std::optional<RegistryKey> RegistryKey::open(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key);
  if (status == ERROR_FILE_NOT_FOUND) return {};
  require(status);
  return RegistryKey(key);
}

RegistryKey::~RegistryKey() {
  if (key_ != nullptr) RegCloseKey(key_);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
  std::swap(key_, other.key_);
  return *this;
}

std::optional<std::wstring> RegistryKey::text(const std::wstring& name) const {
  DWORD bytes = 0;
  const auto read = [&](wchar_t* into) {
    return RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, into, &bytes);
  };
  const LSTATUS status = read(nullptr);
  if (status == ERROR_FILE_NOT_FOUND) return {};
  require(status);
  std::wstring text(bytes / sizeof(wchar_t), L'\0');
  require(read(text.data()));
  text.resize(bytes / sizeof(wchar_t) - 1);  // it ends with a NUL
  return text;
}

void RegistryKey::setText(const std::wstring& name, const std::wstring& text) const {
  require(RegSetValueExW(key_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

void RegistryKey::setNumber(const std::wstring& name, DWORD number) const {
  require(RegSetValueExW(key_, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                         sizeof number));
}

bool RegistryKey::empty() const {
  DWORD keys = 0;
  DWORD values = 0;
  require(RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                           nullptr, nullptr, nullptr, nullptr));
  return keys == 0 && values == 0;
}

void removeRegistryTree(HKEY parent, const std::wstring& path) {
  const LSTATUS status = RegDeleteTreeW(parent, path.c_str());
  if (status != ERROR_FILE_NOT_FOUND) require(status);
}

}  // namespace depcalc
