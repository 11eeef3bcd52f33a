#include "windows/host/host_events.h"

#include <ocidl.h>

#include <utility>

#include "windows/host/host_error.h"

namespace depcalc {

// The source interfaces of DepCalcHost.idl.
const HostEvent company_file_opened{
    {0x6462D4DD, 0x023B, 0x483C, {0xBE, 0x45, 0x12, 0x47, 0x80, 0xE2, 0x88, 0x52}},
    1,
    L"CompanyFileOpened"};
const HostEvent company_file_closing{
    {0x55B2CF96, 0xE82C, 0x411C, {0x95, 0x7B, 0x60, 0x2E, 0x83, 0x9B, 0x68, 0x51}},
    1,
    L"CompanyFileClosing"};

namespace {

using Microsoft::WRL::ComPtr;

/// Where an event can be heard, and its number there.
struct Source {
  ComPtr<IConnectionPoint> point;
  IID interface_id;
  DISPID id;
};

void require(HRESULT done) {
  EXCEPINFO none{};
  if (FAILED(done)) throw hostError(done, none);
}

/// The default source interface that an object's class is described with; null where there is none.
ComPtr<ITypeInfo> defaultSourceOf(IDispatch& object) {
  ComPtr<IProvideClassInfo> provider;
  ComPtr<ITypeInfo> coclass;
  if (FAILED(object.QueryInterface(IID_PPV_ARGS(&provider)))) return nullptr;
  if (FAILED(provider->GetClassInfo(&coclass)) || coclass == nullptr) return nullptr;
  constexpr INT wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  INT flags = 0;
  for (UINT i = 0; SUCCEEDED(coclass->GetImplTypeFlags(i, &flags)); ++i) {
    if ((flags & wanted) != wanted) continue;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> source;
    if (FAILED(coclass->GetRefTypeOfImplType(i, &reference))) return nullptr;
    if (FAILED(coclass->GetRefTypeInfo(reference, &source))) return nullptr;
    return source;
  }
  return nullptr;
}

/// The event by its name in the object's own source interface.
std::optional<Source> ownSource(IDispatch& object, IConnectionPointContainer& container,
                                const wchar_t* event) {
  const ComPtr<ITypeInfo> type = defaultSourceOf(object);
  if (type == nullptr) return std::nullopt;
  Source source{};
  TYPEATTR* attributes = nullptr;
  if (FAILED(type->GetTypeAttr(&attributes))) return std::nullopt;
  source.interface_id = attributes->guid;
  type->ReleaseTypeAttr(attributes);
  auto* name = const_cast<wchar_t*>(event);
  if (FAILED(type->GetIDsOfNames(&name, 1, &source.id))) return std::nullopt;
  if (FAILED(container.FindConnectionPoint(source.interface_id, &source.point)))
    return std::nullopt;
  return source;
}

std::optional<Source> sourceOf(IDispatch& object, const HostEvent& event) {
  ComPtr<IConnectionPointContainer> container;
  if (FAILED(object.QueryInterface(IID_PPV_ARGS(&container)))) return std::nullopt;
  Source source{nullptr, event.source, event.id};
  if (SUCCEEDED(container->FindConnectionPoint(event.source, &source.point))) return source;
  return ownSource(object, *container.Get(), event.name);
}

}  // namespace

/// What a host holds while it is connected. It may hold it longer than the connection lasts, and
/// hears nothing then.
class HostEventConnection::Sink final : public IDispatch {
 public:
  Sink(const IID& source, DISPID event, std::function<void()> heard)
      : source_(source), event_(event), heard_(std::move(heard)) {}

  void hearNoMore() { heard_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == source_;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    if (member != event_) return DISP_E_MEMBERNOTFOUND;
    // Who hears it may disconnect, and so let go of both.
    const ComPtr<Sink> alive(this);
    const auto heard = heard_;
    try {
      if (heard) heard();
    } catch (...) {
      return E_FAIL;
    }
    return S_OK;
  }

 private:
  ~Sink() = default;

  LONG references_ = 0;
  IID source_;
  DISPID event_;
  std::function<void()> heard_;
};

HostEventConnection::HostEventConnection(IDispatch& source, const HostEvent& event,
                                         std::function<void()> heard) {
  const auto found = sourceOf(source, event);
  if (!found) return;
  sink_ = new Sink(found->interface_id, found->id, std::move(heard));
  require(found->point->Advise(sink_.Get(), &cookie_));
  point_ = found->point;
}

HostEventConnection::~HostEventConnection() {
  if (sink_ != nullptr) sink_->hearNoMore();
  if (point_ != nullptr) point_->Unadvise(cookie_);
}

}  // namespace depcalc
