#include "windows/host/automation_object.h"

#include <string>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/host/find_member.h"
#include "windows/host/host_error.h"

namespace depcalc {
namespace {

/// The run-time error of a failing call of the member `role`. What the host says itself stands as
/// it is; the system's words do not tell of what they speak.
RuntimeError errorOf(HRESULT result, EXCEPINFO& exception, HostRole role) {
  RuntimeError error = hostError(result, exception);
  if (result == DISP_E_EXCEPTION) return error;
  return {error.number(),
          "The host's " + textFromUtf16(nameOf(role)) + " failed: " + error.description()};
}

}  // namespace

DISPID AutomationObject::memberId(IDispatch& object, HostRole role) const {
  Member& member = members_.at(static_cast<std::size_t>(role));
  if (member.known) return member.id;
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = findMember(object, nameOf(role), id);
  EXCEPINFO none{};
  if (FAILED(found)) throw errorOf(found, none, role);
  member = {true, id};
  return id;
}

OwnedVariant AutomationObject::invoke(HostRole role, WORD flags, DISPPARAMS parameters) const {
  // The call may come back and let go of this object.
  const Dispatch object = object_;
  if (object == nullptr) throw RuntimeError::objectNotSet();
  const DISPID id = memberId(*object.Get(), role);
  OwnedVariant answer;
  EXCEPINFO exception{};
  UINT wrong_argument = 0;
  const HRESULT done = object->Invoke(id, IID_NULL, host_language, flags, &parameters,
                                      flags == DISPATCH_PROPERTYPUT ? nullptr : answer.out(),
                                      &exception, &wrong_argument);
  if (FAILED(done)) throw errorOf(done, exception, role);
  return answer;
}

void AutomationObject::put(HostRole role, const OwnedVariant& value) const {
  DISPID name = DISPID_PROPERTYPUT;
  VARIANT argument = value.get();
  invoke(role, DISPATCH_PROPERTYPUT, {&argument, &name, 1, 1});
}

AutomationObject::Dispatch objectIn(const OwnedVariant& answer) {
  const VARIANT& variant = answer.get();
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return nullptr;
    case VT_DISPATCH:
      return variant.pdispVal;
    case VT_UNKNOWN: {
      AutomationObject::Dispatch object;
      if (variant.punkVal != nullptr) variant.punkVal->QueryInterface(IID_PPV_ARGS(&object));
      if (variant.punkVal == nullptr || object != nullptr) return object;
      [[fallthrough]];
    }
    default:
      throw RuntimeError::typeMismatch();
  }
}

}  // namespace depcalc
