// What the registry says of the library.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace depcalc {

/// A class as the registry has it.
struct RegisteredClass {
  GUID id;
  std::wstring name;         ///< ProgID "LIBRARY.NAME.1", independent of the version "LIBRARY.NAME"
  std::wstring description;  ///< for whoever chooses among the classes of a system
  DWORD misc_status = 0;     ///< OLEMISC_…, for a control
  bool control = false;
  WORD toolbox_bitmap = 0;            ///< number of the picture in the file, for a control
  std::vector<GUID> categories = {};  ///< that it implements
};

/// An interface whose calls the system can carry between apartments by the type library.
struct RegisteredInterface {
  GUID id;
  std::wstring name;
  bool events = false;  ///< a dispinterface
};

struct RegisteredLibrary {
  std::wstring name;  ///< the ProgIDs' first part
  std::wstring file;  ///< full path
  std::wstring description;
  GUID type_library;
  std::wstring version;  ///< "1.0"
  std::vector<RegisteredClass> classes;
  std::vector<RegisteredInterface> interfaces;
};

/// For all users of the machine, which takes an administrator, or for the one who asks.
enum class RegisterFor { everyone, user };

/// Writes the keys of classes, interfaces and type library. A failure takes back what was written
/// and throws std::system_error.
void registerLibrary(const RegisteredLibrary& library, RegisterFor whom);

/// Leaves no key that registerLibrary wrote, and every other as it was; nothing to remove is no
/// failure.
void unregisterLibrary(const RegisteredLibrary& library, RegisterFor whom);

}  // namespace depcalc
