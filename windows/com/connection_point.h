// How events reach who asked for them.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <vector>

#include "windows/com/com_call.h"
#include "windows/com/com_object.h"
#include "windows/com/com_ptr.h"

namespace depcalc::windows {

/// Who listens to one of an object's event interfaces. Sinks may come and go, and the object may be
/// released, while an event is under way.
class ConnectionPoint final : public ComObject<IConnectionPoint> {
 public:
  /// A sink must answer to `events`, or at least to IDispatch where those are a dispinterface.
  ConnectionPoint(REFIID events, IConnectionPointContainer& owner)
      : events_(events), owner_(&owner) {}

  /// The object that raises the events is no more.
  void orphan();

  /// Calls `member` of every sink, in the order in which they came; one that is disconnected
  /// meanwhile is left out. What a sink answers is its own affair: where it fails, the others are
  /// told all the same, and what it had set by then counts.
  void raise(DISPID member, DISPPARAMS& arguments);

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD cookie;
    ComPtr<IUnknown> sink;
  };

  [[nodiscard]] bool isConnected(DWORD cookie) const;

  CallPlace place_{L"DepCalc10", IID_IConnectionPoint};
  IID events_;
  IConnectionPointContainer* owner_;  // not counted: it owns this
  DWORD last_cookie_ = 0;
  std::vector<Connection> connections_;
};

/// IConnectionPointContainer over an object's points.
using ConnectionPoints = std::vector<ComPtr<ConnectionPoint>>;
HRESULT enumerateConnectionPoints(const ConnectionPoints& points,
                                  IEnumConnectionPoints** enumeration);
HRESULT findConnectionPoint(const ConnectionPoints& points, REFIID events,
                            IConnectionPoint** point);

}  // namespace depcalc::windows
