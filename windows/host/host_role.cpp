#include "windows/host/host_role.h"

#include <array>

namespace depcalc {

const wchar_t* nameOf(HostRole role) {
  constexpr std::array<const wchar_t*, host_role_count> names{
      L"IsCompanyFileOpen",
      L"CompanyFile",
      L"StartDirectory",
      L"OpenTable",
      L"FiscalYearStart",
      L"IsMultiUser",
      L"PalettePicture",
      L"Count",
      L"Exists",
      L"Item",
      L"Add",
      L"BeginEdit",
      L"Modified",
      L"Commit",
      L"Delete",
      L"Fields",
      L"GetValue",
      L"SetValue",
      L"Names",
  };
  return names.at(static_cast<std::size_t>(role));
}

}  // namespace depcalc
