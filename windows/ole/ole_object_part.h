// A control as the object that its host embeds.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include "windows/com/com_object.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {

class OleObjectPart : public IOleObject, public IOleControl {
 public:
  using Interfaces = InterfaceList<IOleObject, IOleControl>;

  // IOleObject
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
  HRESULT STDMETHODCALLTYPE Close(DWORD save) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* active_site, LONG index,
                                   HWND parent, const RECT* position) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override;
  HRESULT STDMETHODCALLTYPE IsUpToDate() override;
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* type) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** connections) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) override;

  // IOleControl
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) override;
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

 protected:
  virtual ControlHub& hub() = 0;
  virtual IOleInPlaceActiveObject& activeObject() = 0;

 private:
  void runVerb(LONG verb);
  void saveWhereAsked(DWORD save);
};

}  // namespace depcalc::windows
