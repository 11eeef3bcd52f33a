// A control, whole.
#pragma once

#include <memory>
#include <utility>

#include "windows/com/dispatch.h"
#include "windows/ole/in_place_part.h"
#include "windows/ole/info_part.h"
#include "windows/ole/ole_object_part.h"
#include "windows/ole/persist_part.h"
#include "windows/ole/view_part.h"
#include "windows/typelib/DepCalc10.h"

namespace depcalc::windows {

/// The parts behind one dual interface, with the stock members that all of them have.
template <typename Dual, typename... More>
class ControlObject
    : public ComObject<Dual, OleObjectPart, InPlacePart, ViewPart, PersistPart, InfoPart, More...> {
 public:
  ControlObject(const ControlClass& of, std::shared_ptr<ControlModel> model)
      : dispatch_(of.interface_id), hub_(of, std::move(model), *static_cast<Dual*>(this), *this) {}

  DEPCALC_DISPATCHED_BY(dispatch_, Dual)

  HRESULT STDMETHODCALLTYPE get_BackColor(long* colour) override {
    return hub_.answer([&] { required(colour) = asLong(content().backColour()); });
  }
  HRESULT STDMETHODCALLTYPE put_BackColor(long colour) override {
    return hub_.answer([&] {
      content().setBackColour(Colour(static_cast<std::uint32_t>(colour)));
      looksDifferent();
    });
  }
  HRESULT STDMETHODCALLTYPE get_ForeColor(long* colour) override {
    return hub_.answer([&] { required(colour) = asLong(content().foreColour()); });
  }
  HRESULT STDMETHODCALLTYPE put_ForeColor(long colour) override {
    return hub_.answer([&] {
      content().setForeColour(Colour(static_cast<std::uint32_t>(colour)));
      looksDifferent();
    });
  }
  HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* enabled) override {
    return hub_.answer([&] { required(enabled) = hub_.enabled() ? VARIANT_TRUE : VARIANT_FALSE; });
  }
  HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL enabled) override {
    return hub_.answer([&] { hub_.setEnabled(enabled != VARIANT_FALSE); });
  }
  HRESULT STDMETHODCALLTYPE get_hWnd(long* window) override {
    return hub_.answer([&] { required(window) = HandleToLong(hub_.window().handle()); });
  }
  HRESULT STDMETHODCALLTYPE Refresh() override {
    return hub_.answer([&] {
      const std::shared_ptr<ControlModel> model = hub_.sharedModel();
      model->stage().expose();
      model->stage().pumpPaint();
      if (HWND window = hub_.window().handle())
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
      hub_.viewChanged();
    });
  }

 protected:
  ControlHub& hub() override { return hub_; }
  IOleInPlaceActiveObject& activeObject() override { return *this; }

 private:
  static long asLong(Colour colour) { return static_cast<long>(colour.value()); }
  UserControl& content() { return hub_.model().content(); }
  void looksDifferent() {
    hub_.setDirty(true);
    hub_.viewChanged();
  }

  Dispatch dispatch_;
  ControlHub hub_;
};

}  // namespace depcalc::windows
