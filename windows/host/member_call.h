// Members of automation objects, by whichever of the two interfaces an object answers.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace depcalc {

/// What hosts are asked in, whatever the user's language is.
inline constexpr LCID host_language =
    MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

/// The identifier of the member called `name`, upper and lower case being the same. Objects of
/// script engines that know IDispatchEx alone (they answer E_NOTIMPL to the other) are asked by it.
HRESULT findMember(IDispatch& object, const wchar_t* name, DISPID& id);

/// Calls a member, by the same choice.
HRESULT callMember(IDispatch& object, DISPID id, WORD flags, DISPPARAMS& parameters,
                   VARIANT* answer, EXCEPINFO* exception);

}  // namespace depcalc
