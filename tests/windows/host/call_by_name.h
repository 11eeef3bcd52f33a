// Calling a member of an automation object by its name.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <array>
#include <stdexcept>
#include <string>

#include "windows/host/find_member.h"
#include "windows/host/owned_variant.h"
#include "windows/host/stored_variant.h"

namespace depcalc::testing_support {

/// What the call answers; a failing one fails the test that made it.
template <typename... Arguments>
OwnedVariant callByName(IDispatch& object, const wchar_t* name, const Arguments&... arguments) {
  constexpr std::size_t count = sizeof...(arguments);
  std::array<VARIANT, count + 1> reversed{};
  std::size_t place = count;
  ((reversed[--place] = arguments.get()), ...);
  DISPID id = 0;
  HRESULT done = findMember(object, name, id);
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(count), 0};
  OwnedVariant answer;
  if (SUCCEEDED(done)) {
    done = object.Invoke(id, IID_NULL, host_language, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                         &parameters, answer.out(), nullptr, nullptr);
  }
  if (FAILED(done)) throw std::runtime_error("a call failed with " + std::to_string(done));
  return answer;
}

inline OwnedVariant argument(const std::string& text) { return variantOf(StoredValue::text(text)); }
inline OwnedVariant argument(const char* text) { return argument(std::string(text)); }
inline OwnedVariant argument(int number) {
  return variantOf(StoredValue::integer(static_cast<std::int16_t>(number)));
}
inline OwnedVariant argument(Date day) { return variantOf(StoredValue::date(day)); }

}  // namespace depcalc::testing_support
