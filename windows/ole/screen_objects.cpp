#include "windows/ole/screen_objects.h"

namespace depcalc::windows {
namespace {

const ControlClass entry_class = {
    __uuidof(::DepCalcCtl),  __uuidof(::IDepCalcCtl), __uuidof(::DDepCalcCtlEvents),
    L"DepCalc10.DepCalcCtl", L"Asset entry",          control_misc_status};
const ControlClass comparison_class = {__uuidof(::DepCalcDisplayCtl),
                                       __uuidof(::IDepCalcDisplayCtl),
                                       __uuidof(::DDepCalcDisplayCtlEvents),
                                       L"DepCalc10.DepCalcDisplayCtl",
                                       L"Method comparison",
                                       control_misc_status};
const ControlClass register_class = {
    __uuidof(::DepCalcView),  __uuidof(::IDepCalcView), __uuidof(::DDepCalcViewEvents),
    L"DepCalc10.DepCalcView", L"Asset register",        control_misc_status};
const ControlClass popup_class = {__uuidof(::DepCalcPopup),
                                  __uuidof(::IDepCalcPopup),
                                  __uuidof(::DDepCalcPopupEvents),
                                  L"DepCalc10.DepCalcPopup",
                                  L"Help popup",
                                  control_misc_status};

template <typename Dual>
class ScreenObject final : public ControlObject<Dual> {
 public:
  using ControlObject<Dual>::ControlObject;
};

template <typename Dual, typename Model>
IUnknown* newScreen(const ControlClass& of, const char* name) {
  return static_cast<Dual*>(new ScreenObject<Dual>(of, std::make_shared<Model>(name)));
}

}  // namespace

IUnknown* newDepCalcCtl() {
  return newScreen<::IDepCalcCtl, EntryModel>(entry_class, "DepCalcCtl");
}
IUnknown* newDepCalcDisplayCtl() {
  return newScreen<::IDepCalcDisplayCtl, ComparisonModel>(comparison_class, "DepCalcDisplayCtl");
}
IUnknown* newDepCalcView() {
  return newScreen<::IDepCalcView, RegisterModel>(register_class, "DepCalcView");
}
IUnknown* newDepCalcPopup() {
  return newScreen<::IDepCalcPopup, PopupModel>(popup_class, "DepCalcPopup");
}

const ControlClass& entryClass() { return entry_class; }
const ControlClass& comparisonClass() { return comparison_class; }
const ControlClass& registerClass() { return register_class; }
const ControlClass& popupClass() { return popup_class; }

}  // namespace depcalc::windows
