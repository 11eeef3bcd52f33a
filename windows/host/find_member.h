// Finding the members of automation objects.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace depcalc {

/// What hosts are asked in, whatever the user's language is.
inline constexpr LCID host_language =
    MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

/// The identifier of the member called `name`, upper and lower case being the same. Objects of
/// script engines may tell it by IDispatchEx alone; they answer E_NOTIMPL to the other.
HRESULT findMember(IDispatch& object, const wchar_t* name, DISPID& id);

}  // namespace depcalc
