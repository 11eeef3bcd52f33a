#include "windows/com/type_library.h"

#include <system_error>

#include "windows/com/com_call.h"

namespace depcalc::windows {

HMODULE thisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&thisModule), &module);
  return module;
}

std::wstring modulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(thisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeLib> moduleTypeLibrary() {
  ComPtr<ITypeLib> library;
  passed(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, &library));
  return library;
}

ComPtr<ITypeInfo> typeInfoOf(REFGUID id) {
  ComPtr<ITypeInfo> info;
  passed(moduleTypeLibrary()->GetTypeInfoOfGuid(id, &info));
  return info;
}

}  // namespace depcalc::windows
