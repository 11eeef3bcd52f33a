// Automation objects of a host, made from a table of members.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/host/owned_variant.h"

namespace depcalc::testing_support {

/// The arguments of a call, in the order in which they were written.
using Arguments = std::vector<const VARIANT*>;

/// A member by its name: a method or property, or a property that is set. A RuntimeError that it
/// throws becomes the call's exception.
struct ServedMember {
  std::wstring name;
  std::size_t arguments;
  std::function<OwnedVariant(const Arguments&)> answer;
  bool is_set = false;
};

/// An object with these members and, where `source` is given, one event without arguments, which
/// has the number `event` in that interface.
class ServedObject : public IDispatch, public IConnectionPointContainer, private IConnectionPoint {
 public:
  explicit ServedObject(std::vector<ServedMember> members, const IID* source = nullptr,
                        DISPID event = 1);
  virtual ~ServedObject() = default;
  ServedObject(const ServedObject&) = delete;
  ServedObject& operator=(const ServedObject&) = delete;

  /// Raises the event in every sink that is connected.
  void raise();
  [[nodiscard]] std::size_t sinkCount() const { return sinks_.size(); }

  // IUnknown, IDispatch
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT which, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* answer, EXCEPINFO* exception, UINT* wrong) override;

  // IConnectionPointContainer
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

 protected:
  /// The first sink has come, the last one has gone.
  virtual void listenedTo(bool /*listened*/) {}

 private:
  // IConnectionPoint
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

  [[nodiscard]] const ServedMember* member(DISPID id, WORD flags) const;

  LONG references_ = 0;
  std::vector<ServedMember> members_;
  const IID* source_;
  DISPID event_;
  DWORD last_cookie_ = 0;
  std::map<DWORD, Microsoft::WRL::ComPtr<IDispatch>> sinks_;
};

/// How many served objects live: what a host's process looks at before it ends.
LONG servedObjectCount();

}  // namespace depcalc::testing_support
