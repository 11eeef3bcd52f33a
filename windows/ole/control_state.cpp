#include "windows/ole/control_state.h"

#include <array>
#include <cstdint>

#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

// "DCS" and the number of this form.
constexpr std::int32_t mark = 0x31534344;

LONG asLong(Colour colour) { return static_cast<LONG>(colour.value()); }
Colour asColour(LONG value) { return Colour(static_cast<std::uint32_t>(value)); }

void writeNumber(IPropertyBag& bag, const wchar_t* name, LONG value) {
  Variant number;
  V_VT(&number.get()) = VT_I4;
  V_I4(&number.get()) = value;
  passed(bag.Write(name, &number.get()));
}

LONG readNumber(IPropertyBag& bag, IErrorLog* log, const wchar_t* name, LONG usual) {
  Variant given;
  V_VT(&given.get()) = VT_I4;
  if (FAILED(bag.Read(name, &given.get(), log))) return usual;
  Variant number;
  convertVariant(given.get(), VT_I4, number.get());
  return V_I4(&number.get());
}

}  // namespace

ControlState ControlState::of(ControlHub& hub) {
  const UserControl& content = hub.model().content();
  return {hub.extent(), asLong(content.backColour()), asLong(content.foreColour()), hub.enabled()};
}

void ControlState::apply(ControlHub& hub) const {
  hub.setExtent(extent);
  hub.model().content().setBackColour(asColour(back_colour));
  hub.model().content().setForeColour(asColour(fore_colour));
  hub.setEnabled(enabled);
  hub.setDirty(false);
}

void ControlState::write(IStream& stream) const {
  const std::array<std::int32_t, 6> numbers{mark,        extent.cx,   extent.cy,
                                            back_colour, fore_colour, enabled ? 1 : 0};
  static_assert(sizeof numbers == stream_size);
  ULONG written = 0;
  passed(stream.Write(numbers.data(), stream_size, &written));
  if (written != stream_size) throw ComFailure(STG_E_MEDIUMFULL);
}

ControlState ControlState::read(IStream& stream) {
  std::array<std::int32_t, 6> numbers{};
  ULONG read = 0;
  passed(stream.Read(numbers.data(), stream_size, &read));
  if (read != stream_size || numbers[0] != mark || (numbers[5] & ~1) != 0)
    throw ComFailure(STG_E_DOCFILECORRUPT);
  return {{numbers[1], numbers[2]}, numbers[3], numbers[4], numbers[5] == 1};
}

void ControlState::write(IPropertyBag& bag) const {
  writeNumber(bag, L"_ExtentX", extent.cx);
  writeNumber(bag, L"_ExtentY", extent.cy);
  writeNumber(bag, L"BackColor", back_colour);
  writeNumber(bag, L"ForeColor", fore_colour);
  writeNumber(bag, L"Enabled", enabled ? VARIANT_TRUE : VARIANT_FALSE);
}

ControlState ControlState::read(IPropertyBag& bag, IErrorLog* log, const ControlState& usual) {
  const auto number = [&](const wchar_t* name, LONG otherwise) {
    return readNumber(bag, log, name, otherwise);
  };
  return {{number(L"_ExtentX", usual.extent.cx), number(L"_ExtentY", usual.extent.cy)},
          number(L"BackColor", usual.back_colour),
          number(L"ForeColor", usual.fore_colour),
          number(L"Enabled", usual.enabled ? 1 : 0) != 0};
}

}  // namespace depcalc::windows
