#include "windows/ole/ambient_properties.h"

#include <ocidl.h>
#include <olectl.h>

#include <optional>

#include "values/runtime_error.h"
#include "windows/com/com_call.h"
#include "windows/com/com_ptr.h"
#include "windows/com/com_text.h"
#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

/// The host's value of a property as `type`; empty where it has none.
bool read(IDispatch& host, DISPID property, VARTYPE type, Variant& value) {
  DISPPARAMS none{};
  Variant given;
  if (FAILED(host.Invoke(property, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none,
                         &given.get(), nullptr, nullptr)))
    return false;
  try {
    convertVariant(given.get(), type, value.get());
    return true;
  } catch (const RuntimeError&) {
    return false;
  } catch (const ComFailure&) {
    return false;
  }
}

std::optional<COLORREF> colour(IDispatch& host, DISPID property) {
  Variant value;
  COLORREF shown = 0;
  if (!read(host, property, VT_I4, value)) return {};
  if (FAILED(OleTranslateColor(static_cast<OLE_COLOR>(V_I4(&value.get())), nullptr, &shown)))
    return {};
  return shown;
}

std::wstring fontFamily(IDispatch& host) {
  Variant value;
  ComPtr<IFont> font;
  if (!read(host, DISPID_AMBIENT_FONT, VT_UNKNOWN, value) || V_UNKNOWN(&value.get()) == nullptr ||
      FAILED(V_UNKNOWN(&value.get())->QueryInterface(IID_PPV_ARGS(&font))))
    return {};
  BSTR name = nullptr;
  if (FAILED(font->get_Name(&name)) || name == nullptr) return {};
  std::wstring family(name, SysStringLen(name));
  SysFreeString(name);
  return family;
}

}  // namespace

AmbientValues AmbientValues::of(IOleClientSite* site) {
  AmbientValues values;
  ComPtr<IDispatch> host;
  if (site == nullptr || FAILED(site->QueryInterface(IID_PPV_ARGS(&host)))) return values;
  values.look.font_family = fontFamily(*host.Get());
  values.look.colours = {colour(*host.Get(), DISPID_AMBIENT_FORECOLOR),
                         colour(*host.Get(), DISPID_AMBIENT_BACKCOLOR)};
  Variant mode;
  if (read(*host.Get(), DISPID_AMBIENT_USERMODE, VT_BOOL, mode))
    values.user_mode = V_BOOL(&mode.get()) != VARIANT_FALSE;
  Variant language;
  if (read(*host.Get(), DISPID_AMBIENT_LOCALEID, VT_I4, language))
    values.language = static_cast<LCID>(V_I4(&language.get()));
  return values;
}

}  // namespace depcalc::windows
