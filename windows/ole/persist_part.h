// A control as its host keeps it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "windows/com/com_object.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {

class PersistPart : public IPersistStreamInit,
                    public IPersistStream,
                    public IPersistStorage,
                    public IPersistPropertyBag {
 public:
  using Interfaces =
      InterfaceList<IPersistStreamInit, IPersistStream, IPersistStorage, IPersistPropertyBag>;

  // In all of them, or in several.
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override;
  HRESULT STDMETHODCALLTYPE InitNew() override;

  // IPersistStreamInit, IPersistStream
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clear_dirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;

  // IPersistStorage
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL same_as_load) override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

  // IPersistPropertyBag
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clear_dirty, BOOL all) override;

 protected:
  virtual ControlHub& hub() = 0;
};

}  // namespace depcalc::windows
