#include "tests/windows/library/hosted_control.h"

#include <oleauto.h>

#include <stdexcept>
#include <vector>

#include "windows/com/com_object.h"

extern "C" {
BOOL WINAPI AtlAxWinInit();
HRESULT WINAPI AtlAxAttachControl(IUnknown* control, HWND window, IUnknown** container);
}

namespace depcalc::windows {
namespace {

class Sink final : public ComObject<IDispatch> {
 public:
  explicit Sink(EventListener listener) : listener_(std::move(listener)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*,
                                   EXCEPINFO* exception, UINT*) override {
    std::vector<VARIANTARG*> arguments;
    for (UINT i = given->cArgs; i > 0; --i) arguments.push_back(&given->rgvarg[i - 1]);
    try {
      listener_(member, arguments.data(), arguments.size());
      return S_OK;
    } catch (const SinkFailure&) {
      exception->bstrDescription = SysAllocString(L"not today");
      exception->scode = E_FAIL;
      return DISP_E_EXCEPTION;
    }
  }

 private:
  EventListener listener_;
};

}  // namespace

HostedControl::HostedControl(ComPtr<IUnknown> control) : control_(std::move(control)) {
  AtlAxWinInit();
  page_ = CreateWindowExW(0, L"AtlAxWin", nullptr, WS_POPUP | WS_VISIBLE, 20, 20, 900, 700, nullptr,
                          nullptr, nullptr, nullptr);
  if (page_ == nullptr) throw std::runtime_error("no control container");
  ComPtr<IUnknown> container;
  if (FAILED(AtlAxAttachControl(control_.Get(), page_, &container)))
    throw std::runtime_error("the control cannot be hosted");
  deliverMessages();
}

HostedControl::~HostedControl() { end(); }

void HostedControl::end() {
  if (page_ != nullptr) DestroyWindow(page_);
  page_ = nullptr;
  control_.Reset();
}

HWND HostedControl::window() const {
  ComPtr<IOleInPlaceObject> object;
  HWND window = nullptr;
  if (control_ == nullptr || FAILED(control_.As(&object))) return nullptr;
  object->GetWindow(&window);
  return window;
}

void deliverMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

EventConnection::EventConnection(IUnknown& control, EventListener listener) {
  ComPtr<IProvideClassInfo2> provider;
  ComPtr<IConnectionPointContainer> points;
  GUID events{};
  if (FAILED(control.QueryInterface(IID_IProvideClassInfo2,
                                    reinterpret_cast<void**>(provider.GetAddressOf()))) ||
      FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events)) ||
      FAILED(provider.As(&points)) || FAILED(points->FindConnectionPoint(events, &point_)) ||
      FAILED(point_->Advise(owned(new Sink(std::move(listener))).Get(), &cookie_)))
    throw std::runtime_error("no events to connect to");
}

void EventConnection::disconnect() {
  if (cookie_ != 0) point_->Unadvise(cookie_);
  cookie_ = 0;
}

}  // namespace depcalc::windows
