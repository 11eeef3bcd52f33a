// An object of the host, reached by the names of its members.
#pragma once

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <array>

#include "windows/host/host_role.h"
#include "windows/host/owned_variant.h"

namespace depcalc {

/// Calls an automation object's members. A name is looked up once, at its first call. A member
/// that is not there is error 438; a call that fails is the error whose number its exception or
/// HRESULT carries, with the host's own description where it gave one. So is a host that has died.
class AutomationObject {
 public:
  using Dispatch = Microsoft::WRL::ComPtr<IDispatch>;

  /// A null object answers every call with error 91.
  explicit AutomationObject(Dispatch object = nullptr) : object_(std::move(object)) {}

  /// Calls a method or reads a property, whichever the host made of the role. The arguments stand
  /// in the order in which they are written.
  template <typename... Arguments>
  OwnedVariant call(HostRole role, const Arguments&... arguments) const {
    constexpr std::size_t count = sizeof...(arguments);
    // Automation takes them from the last to the first.
    std::array<VARIANT, count + 1> reversed{};
    std::size_t place = count;
    ((reversed[--place] = arguments.get()), ...);
    return invoke(role, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                  {reversed.data(), nullptr, static_cast<UINT>(count), 0});
  }

  /// Sets a property.
  void put(HostRole role, const OwnedVariant& value) const;

  [[nodiscard]] const Dispatch& object() const { return object_; }

 private:
  OwnedVariant invoke(HostRole role, WORD flags, DISPPARAMS parameters) const;
  [[nodiscard]] DISPID memberId(IDispatch& object, HostRole role) const;

  Dispatch object_;
  struct Member {
    bool known = false;
    DISPID id = 0;
  };
  mutable std::array<Member, host_role_count> members_{};
};

/// The object that a call answered; null where it answered Nothing, Empty or Null. Anything else is
/// error 13.
AutomationObject::Dispatch objectIn(const OwnedVariant& answer);

}  // namespace depcalc
