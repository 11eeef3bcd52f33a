// What a control says about itself.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "windows/com/com_object.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {

class InfoPart : public IProvideClassInfo2,
                 public IConnectionPointContainer,
                 public ISupportErrorInfo {
 public:
  using Interfaces =
      InterfaceList<IProvideClassInfo2, IConnectionPointContainer, ISupportErrorInfo>;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID events, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 protected:
  virtual ControlHub& hub() = 0;
};

}  // namespace depcalc::windows
