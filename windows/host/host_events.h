// Hearing a host's events.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <functional>
#include <optional>
#include <string>

namespace depcalc {

/// An event that a host's object raises without arguments. A source interface of DepCalcHost's has
/// its identifier and its number; any other one is found by the event's name.
struct HostEvent {
  IID source;
  DISPID id;
  const wchar_t* name;
};

extern const HostEvent company_file_opened;
extern const HostEvent company_file_closing;

/// Hears one event of an object from when it is made until it is gone. An object that raises no
/// such event is a silent one; one that cannot be connected to is the error its HRESULT carries.
class HostEventConnection {
 public:
  HostEventConnection(IDispatch& source, const HostEvent& event, std::function<void()> heard);
  /// The source may be dead by now.
  ~HostEventConnection();
  HostEventConnection(const HostEventConnection&) = delete;
  HostEventConnection& operator=(const HostEventConnection&) = delete;

 private:
  class Sink;

  Microsoft::WRL::ComPtr<IConnectionPoint> point_;
  Microsoft::WRL::ComPtr<Sink> sink_;
  DWORD cookie_ = 0;
};

}  // namespace depcalc
