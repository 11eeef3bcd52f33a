#include "windows/ole/container_object.h"

#include <objsafe.h>

#include <bit>

// The compiler's header does not say so.
__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0,
                0x64)

namespace depcalc::windows {
namespace {

const ControlClass container_class = {
    __uuidof(::DepCalcCont),  __uuidof(::IDepCalcCont),   IID_NULL,
    L"DepCalc10.DepCalcCont", L"Depreciation calculator", control_misc_status};

/// The host's add-in interface, which has an IDispatch of its own. Part of the container, whose
/// references it counts.
class AddInPart final : public ::IOrvAddIn {
 public:
  AddInPart(::IDepCalcCont& whole, ControlHub& hub, DepCalcCont& container)
      : whole_(whole), hub_(hub), container_(container) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return whole_.QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return whole_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return whole_.Release(); }
  DEPCALC_DISPATCHED_BY(dispatch_, ::IOrvAddIn)

  /// Nothing is kept of the host's object: start-up made one of its own.
  HRESULT STDMETHODCALLTYPE Initialize(IDispatch* host) override {
    return hub_.answer([&] { required(host); });
  }
  HRESULT STDMETHODCALLTYPE AboutToTerminate() override {
    return hub_.answer([&] { container_.AboutToTerminate(); });
  }
  HRESULT STDMETHODCALLTYPE Terminate() override {
    return hub_.answer([&] { container_.Terminate(); });
  }

 private:
  ::IDepCalcCont& whole_;
  ControlHub& hub_;
  DepCalcCont& container_;
  Dispatch dispatch_{__uuidof(::IOrvAddIn)};
};

Guid guidOf(REFIID id) { return std::bit_cast<Guid>(id); }

class ContainerObject final : public ControlObject<::IDepCalcCont, ::IObjectSafety> {
 public:
  explicit ContainerObject(const std::shared_ptr<CalculatorModel>& model)
      : ControlObject(container_class, model),
        container_(model->container()),
        add_in_(*this, hub(), container_) {}

  HRESULT STDMETHODCALLTYPE ShowView(::eMyView view) override {
    return hub().answer([&] { container_.ShowView(static_cast<depcalc::eMyView>(view)); });
  }
  HRESULT STDMETHODCALLTYPE CheckforChanges(VARIANT_BOOL* changed) override {
    return hub().answer([&] {
      VARIANT_BOOL& answer = required(changed);
      answer = container_.CheckforChanges() ? VARIANT_TRUE : VARIANT_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE NewRecord() override {
    return hub().answer([&] { container_.NewRecord(); });
  }
  HRESULT STDMETHODCALLTYPE SaveCurrent() override {
    return hub().answer([&] { container_.SaveCurrent(); });
  }

  HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID id, DWORD* supported,
                                                      DWORD* enabled) override {
    return hub().answer([&] {
      std::uint32_t known = required(supported);
      std::uint32_t on = required(enabled);
      const auto result = container_.GetInterfaceSafetyOptions(guidOf(id), known, on);
      *supported = known;
      *enabled = on;
      return static_cast<HRESULT>(result);
    });
  }
  HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID id, DWORD mask,
                                                      DWORD enabled) override {
    return hub().answer([&] {
      return static_cast<HRESULT>(container_.SetInterfaceSafetyOptions(guidOf(id), mask, enabled));
    });
  }

 protected:
  void* find(REFIID id) override {
    if (id == __uuidof(::IOrvAddIn)) return &add_in_;
    return ControlObject::find(id);
  }

 private:
  DepCalcCont& container_;
  AddInPart add_in_;
};

}  // namespace

IUnknown* newDepCalcCont(const std::shared_ptr<CalculatorModel>& calculator) {
  calculator->start();
  return static_cast<::IDepCalcCont*>(new ContainerObject(calculator));
}

const ControlClass& containerClass() { return container_class; }

}  // namespace depcalc::windows
