#include "windows/ole/info_part.h"

#include "windows/com/type_library.h"

namespace depcalc::windows {

HRESULT InfoPart::GetClassInfo(ITypeInfo** info) {
  return hub().answer([&] {
    required(info) = nullptr;
    *info = typeInfoOf(hub().of().id).Detach();
  });
}

HRESULT InfoPart::GetGUID(DWORD kind, GUID* id) {
  return hub().answer([&] {
    required(id) = IID_NULL;
    const bool has_events = hub().of().events != IID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || !has_events) throw ComFailure(E_INVALIDARG);
    *id = hub().of().events;
  });
}

HRESULT InfoPart::EnumConnectionPoints(IEnumConnectionPoints** points) {
  return hub().answer([&] { return enumerateConnectionPoints(hub().points(), points); });
}

HRESULT InfoPart::FindConnectionPoint(REFIID events, IConnectionPoint** point) {
  return hub().answer([&] { return findConnectionPoint(hub().points(), events, point); });
}

HRESULT InfoPart::InterfaceSupportsErrorInfo(REFIID id) {
  return id == hub().of().interface_id ? S_OK : S_FALSE;
}

}  // namespace depcalc::windows
