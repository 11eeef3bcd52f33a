// A key of the registry.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace depcalc {

/// An open key. A call that fails throws std::system_error with the system's code.
class RegistryKey {
 public:
  /// The key `path` under `parent`, made where it is not there, open for everything.
  static RegistryKey create(HKEY parent, const std::wstring& path);
  /// The key for reading; empty where there is none.
  static std::optional<RegistryKey> open(HKEY parent, const std::wstring& path);

  ~RegistryKey();
  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey& operator=(RegistryKey&& other) noexcept;

  [[nodiscard]] HKEY handle() const { return key_; }

  /// The text called `name`; empty where there is none. The empty name is the key's own value.
  [[nodiscard]] std::optional<std::wstring> text(const std::wstring& name) const;
  void setText(const std::wstring& name, const std::wstring& text) const;
  void setNumber(const std::wstring& name, DWORD number) const;

  /// Whether nothing is in it: no key and no value.
  [[nodiscard]] bool empty() const;

 private:
  explicit RegistryKey(HKEY key) : key_(key) {}

  HKEY key_;
};

/// Removes the key with all that is below it; one that is not there is removed already.
void removeRegistryTree(HKEY parent, const std::wstring& path);

}  // namespace depcalc
