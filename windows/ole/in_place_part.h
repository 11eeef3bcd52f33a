// A control with its windows on the host's page.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "windows/com/com_object.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {

class InPlacePart : public IOleInPlaceObject, public IOleInPlaceActiveObject {
 public:
  using Interfaces = InterfaceList<IOleInPlaceObject, IOleInPlaceActiveObject>;

  // IOleWindow
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;

  // IOleInPlaceObject
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(const RECT* position, const RECT* clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;

  // IOleInPlaceActiveObject
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL activate) override;
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL activate) override;
  HRESULT STDMETHODCALLTYPE ResizeBorder(const RECT* border, IOleInPlaceUIWindow* window,
                                         BOOL frame) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override;

 protected:
  virtual ControlHub& hub() = 0;
};

}  // namespace depcalc::windows
