#include "windows/ole/ole_object_part.h"

#include <cwchar>
#include <new>

namespace depcalc::windows {
namespace {

void requireContent(DWORD aspect) {
  if (aspect != DVASPECT_CONTENT) throw ComFailure(DV_E_DVASPECT);
}

/// A text in memory that the caller frees.
wchar_t* taskText(const wchar_t* text) {
  const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
  auto* const copy = static_cast<wchar_t*>(CoTaskMemAlloc(bytes));
  if (copy == nullptr) throw std::bad_alloc();
  return std::wcscpy(copy, text);
}

}  // namespace

HRESULT OleObjectPart::SetClientSite(IOleClientSite* site) {
  return hub().answer([&] { hub().setSite(site); });
}

HRESULT OleObjectPart::GetClientSite(IOleClientSite** site) {
  return hub().answer([&] { required(site) = ComPtr<IOleClientSite>(hub().site()).Detach(); });
}

HRESULT OleObjectPart::SetHostNames(LPCOLESTR /*application*/, LPCOLESTR /*object*/) {
  return S_OK;
}

HRESULT OleObjectPart::Close(DWORD save) {
  return hub().answer([&] {
    if (save > OLECLOSE_PROMPTSAVE) throw ComFailure(E_INVALIDARG);
    saveWhereAsked(save);
    hub().window().deactivate();
    if (IOleAdviseHolder* const holder = hub().adviseHolderIfAny()) holder->SendOnClose();
  });
}

/// There is nobody to ask whether to save a control's looks: asked or not, they are saved.
void OleObjectPart::saveWhereAsked(DWORD save) {
  if (save != OLECLOSE_NOSAVE && hub().dirty() && hub().site() != nullptr)
    hub().site()->SaveObject();
}

HRESULT OleObjectPart::SetMoniker(DWORD /*which*/, IMoniker* /*moniker*/) { return E_NOTIMPL; }

HRESULT OleObjectPart::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) {
  return hub().answer([&] {
    required(moniker) = nullptr;
    return E_NOTIMPL;
  });
}

HRESULT OleObjectPart::InitFromData(IDataObject* /*data*/, BOOL /*creation*/, DWORD /*reserved*/) {
  return E_NOTIMPL;
}

HRESULT OleObjectPart::GetClipboardData(DWORD /*reserved*/, IDataObject** data) {
  return hub().answer([&] {
    required(data) = nullptr;
    return E_NOTIMPL;
  });
}

HRESULT OleObjectPart::DoVerb(LONG verb, MSG* /*message*/, IOleClientSite* /*active_site*/,
                              LONG /*index*/, HWND /*parent*/, const RECT* /*position*/) {
  return hub().answer([&] {
    if (verb < OLEIVERB_DISCARDUNDOSTATE) throw ComFailure(E_NOTIMPL);
    runVerb(verb);
    // A verb of our own there is none: the first one is done instead, as for every object.
    return verb > OLEIVERB_PRIMARY ? OLEOBJ_S_INVALIDVERB : S_OK;
  });
}

void OleObjectPart::runVerb(LONG verb) {
  switch (verb) {
    case OLEIVERB_HIDE:
      return hub().window().setVisible(false);
    case OLEIVERB_DISCARDUNDOSTATE:
      return;
    case OLEIVERB_INPLACEACTIVATE:
      hub().window().activate(activeObject());
      return hub().window().setVisible(true);
    default:
      hub().window().activateUi(activeObject());
      return hub().window().setVisible(true);
  }
}

HRESULT OleObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
  return hub().answer([&] {
    required(verbs) = nullptr;
    return OLEOBJ_E_NOVERBS;
  });
}

HRESULT OleObjectPart::Update() { return S_OK; }
HRESULT OleObjectPart::IsUpToDate() { return S_OK; }

HRESULT OleObjectPart::GetUserClassID(CLSID* id) {
  return hub().answer([&] { required(id) = hub().of().id; });
}

HRESULT OleObjectPart::GetUserType(DWORD /*form*/, LPOLESTR* type) {
  return hub().answer([&] { required(type) = taskText(hub().of().description); });
}

HRESULT OleObjectPart::SetExtent(DWORD aspect, SIZEL* extent) {
  return hub().answer([&] {
    requireContent(aspect);
    hub().setExtent(required(extent));
  });
}

HRESULT OleObjectPart::GetExtent(DWORD aspect, SIZEL* extent) {
  return hub().answer([&] {
    SIZEL& given = required(extent);
    requireContent(aspect);
    given = hub().extent();
  });
}

HRESULT OleObjectPart::Advise(IAdviseSink* sink, DWORD* connection) {
  return hub().answer([&] {
    required(sink);
    required(connection) = 0;
    return hub().adviseHolder().Advise(sink, connection);
  });
}

HRESULT OleObjectPart::Unadvise(DWORD connection) {
  return hub().answer([&] {
    IOleAdviseHolder* const holder = hub().adviseHolderIfAny();
    return holder == nullptr ? OLE_E_NOCONNECTION : holder->Unadvise(connection);
  });
}

HRESULT OleObjectPart::EnumAdvise(IEnumSTATDATA** connections) {
  return hub().answer([&] {
    required(connections) = nullptr;
    return hub().adviseHolder().EnumAdvise(connections);
  });
}

HRESULT OleObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
  return hub().answer([&] {
    required(status) = 0;
    requireContent(aspect);
    *status = hub().of().misc_status;
  });
}

HRESULT OleObjectPart::SetColorScheme(LOGPALETTE* /*palette*/) { return E_NOTIMPL; }

HRESULT OleObjectPart::GetControlInfo(CONTROLINFO* info) {
  return hub().answer([&] {
    CONTROLINFO& given = required(info);
    if (given.cb != sizeof(CONTROLINFO)) throw ComFailure(E_UNEXPECTED);
    given = {sizeof(CONTROLINFO), nullptr, 0, 0};
  });
}

HRESULT OleObjectPart::OnMnemonic(MSG* message) {
  return hub().answer([&] { hub().window().translate(required(message)); });
}

HRESULT OleObjectPart::OnAmbientPropertyChange(DISPID /*property*/) {
  return hub().answer([&] { hub().readAmbient(); });
}

HRESULT OleObjectPart::FreezeEvents(BOOL freeze) {
  return hub().answer([&] {
    if (EventOutlet* const events = hub().model().events()) events->freeze(freeze != FALSE);
  });
}

}  // namespace depcalc::windows
