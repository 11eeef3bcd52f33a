// What a browser page asks before it scripts a control or loads data into it.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/ObjectSafety/guid.h"

namespace depcalc {

/// Result codes as the platform numbers them.
enum class HResult : std::uint32_t {
  ok = 0,
  no_interface = 0x80004002,
  fail = 0x80004005,
};

/// Safe for untrusted callers.
inline constexpr std::uint32_t safe_for_untrusted_caller = 1;
/// Safe for initialisation from untrusted data.
inline constexpr std::uint32_t safe_for_untrusted_data = 2;

namespace interface_ids {
inline constexpr std::string_view IDispatch = "{00020400-0000-0000-C000-000000000046}";
inline constexpr std::string_view IPersistStorage = "{0000010A-0000-0000-C000-000000000046}";
inline constexpr std::string_view IPersistStream = "{00000109-0000-0000-C000-000000000046}";
inline constexpr std::string_view IPersistPropertyBag = "{37D84F60-42CB-11CE-8135-00AA004BB851}";
}  // namespace interface_ids

class IObjectSafety {
 public:
  virtual ~IObjectSafety() = default;

  /// Which options are supported at all, and which are enabled for the interface `riid`. An
  /// interface that is not known is no_interface, `enabled` then keeps its value.
  virtual HResult GetInterfaceSafetyOptions(const Guid& riid, std::uint32_t& supported,
                                            std::uint32_t& enabled) = 0;
  /// Asks for the options of `enabledOptions` that `optionSetMask` names.
  virtual HResult SetInterfaceSafetyOptions(const Guid& riid, std::uint32_t optionSetMask,
                                            std::uint32_t enabledOptions) = 0;
};

/// The calculator's answers: scripting is safe through IDispatch, loading through the three
/// persistence interfaces, and neither can be turned off.
class ObjectSafety : public IObjectSafety {
 public:
  /// `supported` is both options whatever the interface.
  HResult GetInterfaceSafetyOptions(const Guid& riid, std::uint32_t& supported,
                                    std::uint32_t& enabled) override;
  /// ok only for exactly what is enabled for the interface, else fail.
  HResult SetInterfaceSafetyOptions(const Guid& riid, std::uint32_t optionSetMask,
                                    std::uint32_t enabledOptions) override;
};

}  // namespace depcalc
