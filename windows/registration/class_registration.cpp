#include "windows/registration/class_registration.h"

#include <objbase.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "windows/registration/registry_key.h"

namespace depcalc {
namespace {

/// A text below the classes' root; the empty name is the key's own.
struct Entry {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};
using Entries = std::vector<Entry>;

// Who carries calls between apartments: the system, by the type library.
constexpr const wchar_t* by_type_library = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* by_dispatch = L"{00020420-0000-0000-C000-000000000046}";

// Keys of everybody's, of which we note whether they were there before us.
constexpr std::array shared_keys{L"Software\\Classes\\CLSID", L"Software\\Classes\\Interface",
                                 L"Software\\Classes\\TypeLib", L"Software\\Classes"};
constexpr const wchar_t* made_keys_note = L"KeysMade";

std::wstring textOf(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

HKEY hiveOf(RegisterFor whom) {
  return whom == RegisterFor::everyone ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

const std::wstring classes_root = L"Software\\Classes\\";

std::wstring progId(const RegisteredLibrary& library, const RegisteredClass& of) {
  return library.name + L"." + of.name;
}
std::wstring versionedProgId(const RegisteredLibrary& library, const RegisteredClass& of) {
  return progId(library, of) + L".1";
}
std::wstring classKey(const RegisteredClass& of) { return L"CLSID\\" + textOf(of.id); }
std::wstring libraryKey(const RegisteredLibrary& library) {
  return L"TypeLib\\" + textOf(library.type_library);
}
std::wstring versionKey(const RegisteredLibrary& library) {
  return libraryKey(library) + L"\\" + library.version;
}
std::wstring interfaceKey(const RegisteredInterface& of) { return L"Interface\\" + textOf(of.id); }

std::wstring folderOf(const std::wstring& file) {
  return file.substr(0, file.find_last_of(L"\\/"));
}

void addControl(Entries& entries, const std::wstring& key, const RegisteredLibrary& library,
                const RegisteredClass& of) {
  entries.push_back({key + L"\\Control", L"", L""});
  entries.push_back({key + L"\\MiscStatus", L"", L"0"});
  entries.push_back({key + L"\\MiscStatus\\1", L"", std::to_wstring(of.misc_status)});
  entries.push_back(
      {key + L"\\ToolboxBitmap32", L"", library.file + L", " + std::to_wstring(of.toolbox_bitmap)});
}

void addClass(Entries& entries, const RegisteredLibrary& library, const RegisteredClass& of) {
  const std::wstring key = classKey(of);
  entries.push_back({key, L"", of.description});
  entries.push_back({key + L"\\InprocServer32", L"", library.file});
  entries.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  entries.push_back({key + L"\\ProgID", L"", versionedProgId(library, of)});
  entries.push_back({key + L"\\VersionIndependentProgID", L"", progId(library, of)});
  entries.push_back({key + L"\\Programmable", L"", L""});
  entries.push_back({key + L"\\TypeLib", L"", textOf(library.type_library)});
  entries.push_back({key + L"\\Version", L"", library.version});
  if (of.control) addControl(entries, key, library, of);
  for (const GUID& category : of.categories)
    entries.push_back({key + L"\\Implemented Categories\\" + textOf(category), L"", L""});
  entries.push_back({versionedProgId(library, of), L"", of.description});
  entries.push_back({versionedProgId(library, of) + L"\\CLSID", L"", textOf(of.id)});
  entries.push_back({progId(library, of), L"", of.description});
  entries.push_back({progId(library, of) + L"\\CLSID", L"", textOf(of.id)});
  entries.push_back({progId(library, of) + L"\\CurVer", L"", versionedProgId(library, of)});
}

void addInterface(Entries& entries, const RegisteredLibrary& library,
                  const RegisteredInterface& of) {
  const std::wstring key = interfaceKey(of);
  entries.push_back({key, L"", of.name});
  entries.push_back({key + L"\\ProxyStubClsid32", L"", of.events ? by_dispatch : by_type_library});
  entries.push_back({key + L"\\TypeLib", L"", textOf(library.type_library)});
  entries.push_back({key + L"\\TypeLib", L"Version", library.version});
}

void addTypeLibrary(Entries& entries, const RegisteredLibrary& library) {
  const std::wstring key = versionKey(library);
  entries.push_back({key, L"", library.description});
  entries.push_back({key + L"\\0\\win64", L"", library.file});
  entries.push_back({key + L"\\FLAGS", L"", L"0"});
  entries.push_back({key + L"\\HELPDIR", L"", folderOf(library.file)});
}

Entries entriesOf(const RegisteredLibrary& library) {
  Entries entries;
  addTypeLibrary(entries, library);
  for (const RegisteredClass& of : library.classes) addClass(entries, library, of);
  for (const RegisteredInterface& of : library.interfaces) addInterface(entries, library, of);
  return entries;
}

/// The shared keys that were not there before this library, as earlier registrations noted and as
/// it is now; each with a blank behind it.
std::wstring madeKeys(HKEY hive, const RegisteredLibrary& library) {
  std::wstring made;
  if (const auto registered = RegistryKey::open(hive, classes_root + versionKey(library)))
    made = registered->text(made_keys_note).value_or(L"");
  for (const wchar_t* shared : shared_keys) {
    if (!RegistryKey::open(hive, shared)) made += std::wstring(shared) + L" ";
  }
  return made;
}

void removeIfEmpty(HKEY hive, const std::wstring& path) {
  const auto key = RegistryKey::open(hive, path);
  if (key && key->empty()) removeRegistryTree(hive, path);
}

}  // namespace

void registerLibrary(const RegisteredLibrary& library, RegisterFor whom) {
  const HKEY hive = hiveOf(whom);
  try {
    const std::wstring made = madeKeys(hive, library);
    RegistryKey::create(hive, classes_root + versionKey(library)).setText(made_keys_note, made);
    for (const Entry& entry : entriesOf(library))
      RegistryKey::create(hive, classes_root + entry.key).setText(entry.name, entry.text);
  } catch (const std::system_error&) {
    unregisterLibrary(library, whom);
    throw;
  }
}

void unregisterLibrary(const RegisteredLibrary& library, RegisterFor whom) {
  const HKEY hive = hiveOf(whom);
  const std::wstring made = madeKeys(hive, library);
  for (const RegisteredClass& of : library.classes) {
    removeRegistryTree(hive, classes_root + classKey(of));
    removeRegistryTree(hive, classes_root + progId(library, of));
    removeRegistryTree(hive, classes_root + versionedProgId(library, of));
  }
  for (const RegisteredInterface& of : library.interfaces)
    removeRegistryTree(hive, classes_root + interfaceKey(of));
  removeRegistryTree(hive, classes_root + versionKey(library));
  removeIfEmpty(hive, classes_root + libraryKey(library));
  for (const wchar_t* shared : shared_keys) {
    if (made.find(std::wstring(shared) + L" ") != std::wstring::npos) removeIfEmpty(hive, shared);
  }
}

}  // namespace depcalc
