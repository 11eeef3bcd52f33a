#include "windows/com/connection_point.h"

#include <oleauto.h>

#include <algorithm>
#include <utility>

#include "windows/com/enumeration.h"
#include "windows/com/variant_value.h"

namespace depcalc::windows {

namespace {

/// A pointer that its receiver releases.
template <typename Interface>
struct CountedPointer {
  using Kept = ComPtr<Interface>;
  static Interface* copy(const Kept& kept) {
    kept->AddRef();
    return kept.Get();
  }
};

struct CountedConnection {
  struct Kept {
    DWORD cookie;
    ComPtr<IUnknown> sink;
  };
  static CONNECTDATA copy(const Kept& kept) {
    return {CountedPointer<IUnknown>::copy(kept.sink), kept.cookie};
  }
};

/// What a sink said of its failure: some tell it without looking whether anyone asked. Nobody does,
/// and it must not be taken later for the description of an error of ours.
class IgnoredFailure {
 public:
  IgnoredFailure() = default;
  ~IgnoredFailure() {
    SysFreeString(told_.bstrSource);
    SysFreeString(told_.bstrDescription);
    SysFreeString(told_.bstrHelpFile);
    SetErrorInfo(0, nullptr);
  }
  IgnoredFailure(const IgnoredFailure&) = delete;
  IgnoredFailure& operator=(const IgnoredFailure&) = delete;

  EXCEPINFO* exception() { return &told_; }
  UINT* argument() { return &argument_; }

 private:
  EXCEPINFO told_{};
  UINT argument_ = 0;
};

using ConnectionList = Enumeration<IEnumConnections, CONNECTDATA, CountedConnection>;
using PointList =
    Enumeration<IEnumConnectionPoints, IConnectionPoint*, CountedPointer<IConnectionPoint>>;

}  // namespace

void ConnectionPoint::orphan() {
  owner_ = nullptr;
  connections_.clear();
}

bool ConnectionPoint::isConnected(DWORD cookie) const {
  return std::any_of(connections_.begin(), connections_.end(),
                     [cookie](const Connection& c) { return c.cookie == cookie; });
}

void ConnectionPoint::raise(DISPID member, DISPPARAMS& arguments) {
  const ComPtr<ConnectionPoint> alive(this);
  const std::vector<Connection> told = connections_;
  for (const Connection& connection : told) {
    ComPtr<IDispatch> sink;
    if (!isConnected(connection.cookie) || FAILED(connection.sink.As(&sink))) continue;
    Variant ignored;
    IgnoredFailure failure;
    sink->Invoke(member, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &arguments, &ignored.get(),
                 failure.exception(), failure.argument());
  }
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  *id = events_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  return place_.answer([&] {
    required(container) = nullptr;
    if (owner_ == nullptr) throw ComFailure(E_UNEXPECTED);
    owner_->AddRef();
    *container = owner_;
  });
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  return place_.answer([&] {
    required(cookie) = 0;
    void* answering = nullptr;
    if (FAILED(required(sink).QueryInterface(events_, &answering)) &&
        FAILED(sink->QueryInterface(IID_IDispatch, &answering)))
      throw ComFailure(CONNECT_E_CANNOTCONNECT);
    connections_.push_back({++last_cookie_, owned(static_cast<IUnknown*>(answering))});
    *cookie = last_cookie_;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  return place_.answer([&] {
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [cookie](const Connection& c) { return c.cookie == cookie; });
    if (found == connections_.end()) throw ComFailure(CONNECT_E_NOCONNECTION);
    const Connection dropped = std::move(*found);  // its last release may come back here
    connections_.erase(found);
  });
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  return place_.answer([&] {
    std::vector<CountedConnection::Kept> kept;
    for (const Connection& c : connections_) kept.push_back({c.cookie, c.sink});
    required(connections) = new ConnectionList(std::move(kept));
  });
}

HRESULT enumerateConnectionPoints(const ConnectionPoints& points,
                                  IEnumConnectionPoints** enumeration) {
  return CallPlace{L"DepCalc10", IID_IConnectionPointContainer}.answer([&] {
    required(enumeration) = new PointList({points.begin(), points.end()});
  });
}

HRESULT findConnectionPoint(const ConnectionPoints& points, REFIID events,
                            IConnectionPoint** point) {
  return CallPlace{L"DepCalc10", IID_IConnectionPointContainer}.answer([&] {
    required(point) = nullptr;
    for (const auto& candidate : points) {
      IID offered;
      candidate->GetConnectionInterface(&offered);
      if (offered != events) continue;
      candidate->AddRef();
      *point = candidate.Get();
      return;
    }
    throw ComFailure(CONNECT_E_NOCONNECTION);
  });
}

}  // namespace depcalc::windows
