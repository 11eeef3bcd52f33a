#include "windows/library/classes.h"

#include <string>
#include <utility>
#include <vector>

#include "windows/com/type_library.h"
#include "windows/library/calculator.h"
#include "windows/ole/container_object.h"
#include "windows/ole/screen_objects.h"
#include "windows/record/calculate_dep_object.h"
#include "windows/typelib/DepCalc10.h"

namespace depcalc::windows {
namespace {

// As in the type library.
constexpr GUID library_id = {
    0x32952DFC, 0x1660, 0x4B2A, {0x9F, 0xDE, 0x43, 0x52, 0x7E, 0x03, 0x2F, 0x55}};

constexpr GUID category_control = {
    0x40FC6ED4, 0x2438, 0x11CF, {0xA3, 0xDB, 0x08, 0x00, 0x36, 0xF1, 0x25, 0x02}};
constexpr GUID category_safe_for_scripting = {
    0x7DD95801, 0x9882, 0x11CF, {0x9F, 0xA9, 0x00, 0xAA, 0x00, 0x6C, 0x42, 0xC4}};
constexpr GUID category_safe_for_initialising = {
    0x7DD95802, 0x9882, 0x11CF, {0x9F, 0xA9, 0x00, 0xAA, 0x00, 0x6C, 0x42, 0xC4}};

constexpr WORD toolbox_bitmap = 101;  // as in resources.rc

struct LibraryClass {
  RegisteredClass registered;
  ClassFactory::Maker make;
};

/// Its name without the library's.
std::wstring ownName(const ControlClass& of) {
  const std::wstring name = of.name;
  return name.substr(name.find(L'.') + 1);
}

LibraryClass control(const ControlClass& of, ClassFactory::Maker make,
                     std::vector<GUID> categories = {}) {
  categories.push_back(category_control);
  return {{.id = of.id,
           .name = ownName(of),
           .description = of.description,
           .misc_status = of.misc_status,
           .control = true,
           .toolbox_bitmap = toolbox_bitmap,
           .categories = std::move(categories)},
          make};
}

std::vector<LibraryClass> classes() {
  return {
      control(containerClass(), newCalculator,
              {category_safe_for_scripting, category_safe_for_initialising}),
      {{.id = __uuidof(::CalculateDep),
        .name = L"CalculateDep",
        .description = L"Asset with its depreciation"},
       newCalculateDep},
      control(entryClass(), newDepCalcCtl),
      control(comparisonClass(), newDepCalcDisplayCtl),
      control(registerClass(), newDepCalcView),
      control(popupClass(), newDepCalcPopup),
  };
}

std::vector<RegisteredInterface> interfaces() {
  return {
      {__uuidof(::IOrvAddIn), L"IOrvAddIn"},
      {__uuidof(::ICalculateDep), L"ICalculateDep"},
      {__uuidof(::IDepCalcCont), L"IDepCalcCont"},
      {__uuidof(::IDepCalcCtl), L"IDepCalcCtl"},
      {__uuidof(::IDepCalcDisplayCtl), L"IDepCalcDisplayCtl"},
      {__uuidof(::IDepCalcView), L"IDepCalcView"},
      {__uuidof(::IDepCalcPopup), L"IDepCalcPopup"},
      {__uuidof(::DDepCalcCtlEvents), L"DDepCalcCtlEvents", true},
      {__uuidof(::DDepCalcDisplayCtlEvents), L"DDepCalcDisplayCtlEvents", true},
      {__uuidof(::DDepCalcViewEvents), L"DDepCalcViewEvents", true},
      {__uuidof(::DDepCalcPopupEvents), L"DDepCalcPopupEvents", true},
  };
}

}  // namespace

ClassFactory::Maker makerOf(REFCLSID class_id) {
  for (const LibraryClass& candidate : classes()) {
    if (candidate.registered.id == class_id) return candidate.make;
  }
  return nullptr;
}

RegisteredLibrary registeredLibrary() {
  RegisteredLibrary library{
      .name = L"DepCalc10",
      .file = modulePath(),
      .description = L"Fixed-asset depreciation calculator",
      .type_library = library_id,
      .version = L"1.0",
      .classes = {},
      .interfaces = interfaces(),
  };
  for (const LibraryClass& of : classes()) library.classes.push_back(of.registered);
  return library;
}

}  // namespace depcalc::windows
