#include "tests/windows/host/served_object.h"

#include <utility>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/com/run_time_errors.h"

namespace depcalc::testing_support {
namespace {

LONG living_objects = 0;

Arguments inWrittenOrder(const DISPPARAMS& parameters) {
  Arguments arguments;
  for (UINT i = parameters.cArgs; i > 0; --i) arguments.push_back(&parameters.rgvarg[i - 1]);
  return arguments;
}

HRESULT throwIn(EXCEPINFO* exception, const RuntimeError& error) {
  if (exception == nullptr) return hresultOfError(error.number());
  *exception = EXCEPINFO{};
  exception->scode = hresultOfError(error.number());
  exception->bstrDescription = newBstr(error.description());
  return DISP_E_EXCEPTION;
}

}  // namespace

LONG servedObjectCount() { return living_objects; }

ServedObject::ServedObject(std::vector<ServedMember> members, const IID* source, DISPID event)
    : members_(std::move(members)), source_(source), event_(event) {
  InterlockedIncrement(&living_objects);
}

HRESULT ServedObject::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  } else if (source_ != nullptr && id == IID_IConnectionPointContainer) {
    *object = static_cast<IConnectionPointContainer*>(this);
  } else if (source_ != nullptr && id == IID_IConnectionPoint) {
    *object = static_cast<IConnectionPoint*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ServedObject::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

ULONG ServedObject::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) {
    delete this;
    InterlockedDecrement(&living_objects);
  }
  return static_cast<ULONG>(left);
}

HRESULT ServedObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ServedObject::GetTypeInfo(UINT /*which*/, LCID, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT ServedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (_wcsicmp(members_[i].name.c_str(), names[0]) == 0) ids[0] = static_cast<DISPID>(i + 1);
  }
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

const ServedMember* ServedObject::member(DISPID id, WORD flags) const {
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return nullptr;
  const ServedMember& found = members_[static_cast<std::size_t>(id - 1)];
  return found.is_set == ((flags & DISPATCH_PROPERTYPUT) != 0) ? &found : nullptr;
}

HRESULT ServedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                             VARIANT* answer, EXCEPINFO* exception, UINT* /*wrong*/) {
  const ServedMember* called = member(id, flags);
  if (called == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (parameters->cArgs != called->arguments) return DISP_E_BADPARAMCOUNT;
  const Microsoft::WRL::ComPtr<ServedObject> alive(this);
  try {
    OwnedVariant made = called->answer(inWrittenOrder(*parameters));
    if (answer != nullptr) *answer = made.release();
    return S_OK;
  } catch (const RuntimeError& error) {
    return throwIn(exception, error);
  }
}

HRESULT ServedObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
  *points = nullptr;
  return E_NOTIMPL;
}

HRESULT ServedObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  *point = nullptr;
  if (source_ == nullptr || id != *source_) return CONNECT_E_NOCONNECTION;
  AddRef();
  *point = this;
  return S_OK;
}

HRESULT ServedObject::GetConnectionInterface(IID* id) {
  *id = *source_;
  return S_OK;
}

HRESULT ServedObject::GetConnectionPointContainer(IConnectionPointContainer** container) {
  AddRef();
  *container = this;
  return S_OK;
}

HRESULT ServedObject::Advise(IUnknown* sink, DWORD* cookie) {
  Microsoft::WRL::ComPtr<IDispatch> dispatch;
  if (FAILED(sink->QueryInterface(IID_PPV_ARGS(&dispatch)))) return CONNECT_E_CANNOTCONNECT;
  const bool first = sinks_.empty();
  *cookie = ++last_cookie_;
  sinks_[*cookie] = dispatch;
  if (first) listenedTo(true);
  return S_OK;
}

HRESULT ServedObject::Unadvise(DWORD cookie) {
  if (sinks_.erase(cookie) == 0) return CONNECT_E_NOCONNECTION;
  if (sinks_.empty()) listenedTo(false);
  return S_OK;
}

HRESULT ServedObject::EnumConnections(IEnumConnections** connections) {
  *connections = nullptr;
  return E_NOTIMPL;
}

void ServedObject::raise() {
  const Microsoft::WRL::ComPtr<ServedObject> alive(this);
  const auto told = sinks_;
  for (const auto& [cookie, sink] : told) {
    DISPPARAMS none{};
    sink->Invoke(event_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                 nullptr);
  }
}

}  // namespace depcalc::testing_support
