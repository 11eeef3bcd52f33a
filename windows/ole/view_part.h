// A control as a picture.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "windows/com/com_object.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {

class ViewPart : public IViewObject2 {
 public:
  using Interfaces = InterfaceList<IViewObject2>;

  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspect_info,
                                 DVTARGETDEVICE* device, HDC information, HDC target,
                                 const RECTL* bounds, const RECTL* window_bounds,
                                 BOOL(STDMETHODCALLTYPE* go_on)(ULONG_PTR),
                                 ULONG_PTR context) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspect_info,
                                        DVTARGETDEVICE* device, HDC information,
                                        LOGPALETTE** palette) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspect_info,
                                   DWORD* freeze) override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                      SIZEL* extent) override;

 protected:
  virtual ControlHub& hub() = 0;
};

}  // namespace depcalc::windows
