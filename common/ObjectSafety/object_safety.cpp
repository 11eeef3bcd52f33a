#include "common/ObjectSafety/object_safety.h"

#include <array>
#include <string>

namespace depcalc {
namespace {

struct EnabledOption {
  std::string_view interface_id;
  std::uint32_t option;
};

constexpr std::array enabled_options = {
    EnabledOption{interface_ids::IDispatch, safe_for_untrusted_caller},
    EnabledOption{interface_ids::IPersistStorage, safe_for_untrusted_data},
    EnabledOption{interface_ids::IPersistStream, safe_for_untrusted_data},
    EnabledOption{interface_ids::IPersistPropertyBag, safe_for_untrusted_data},
};

/// 0 for an interface that is not known.
std::uint32_t enabledFor(const Guid& riid) {
  const std::string text = riid.toText();
  for (const EnabledOption& known : enabled_options) {
    if (known.interface_id == text) return known.option;
  }
  return 0;
}

}  // namespace

HResult ObjectSafety::GetInterfaceSafetyOptions(const Guid& riid, std::uint32_t& supported,
                                                std::uint32_t& enabled) {
  supported = safe_for_untrusted_caller | safe_for_untrusted_data;
  const std::uint32_t option = enabledFor(riid);
  if (option == 0) return HResult::no_interface;
  enabled = option;
  return HResult::ok;
}

HResult ObjectSafety::SetInterfaceSafetyOptions(const Guid& riid, std::uint32_t optionSetMask,
                                                std::uint32_t enabledOptions) {
  const std::uint32_t option = enabledFor(riid);
  if (option == 0) return HResult::no_interface;
  return (optionSetMask & enabledOptions) == option ? HResult::ok : HResult::fail;
}

}  // namespace depcalc
