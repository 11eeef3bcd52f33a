// What a host's objects are asked for, by name.
#pragma once

#include <cstddef>

namespace depcalc {

/// The members that a host provides; DepCalcHost.idl says which object has which, and with what.
enum class HostRole {
  IsCompanyFileOpen,
  CompanyFile,
  StartDirectory,
  OpenTable,
  FiscalYearStart,
  IsMultiUser,
  PalettePicture,
  Count,
  Exists,
  Item,
  Add,
  BeginEdit,
  Modified,
  Commit,
  Delete,
  Fields,
  GetValue,
  SetValue,
  Names,
};

inline constexpr std::size_t host_role_count = static_cast<std::size_t>(HostRole::Names) + 1;

/// The name as a host spells it.
const wchar_t* nameOf(HostRole role);

}  // namespace depcalc
