#include "windows/library/classes.h"

#include <vector>

#include "windows/com/type_library.h"
#include "windows/record/calculate_dep_object.h"
#include "windows/typelib/DepCalc10.h"

namespace depcalc::windows {
namespace {

// As in the type library.
constexpr GUID library_id = {
    0x32952DFC, 0x1660, 0x4B2A, {0x9F, 0xDE, 0x43, 0x52, 0x7E, 0x03, 0x2F, 0x55}};

struct LibraryClass {
  RegisteredClass registered;
  ClassFactory::Maker make;
};

std::vector<LibraryClass> classes() {
  return {
      {{.id = __uuidof(::CalculateDep),
        .name = L"CalculateDep",
        .description = L"Asset with its depreciation"},
       newCalculateDep},
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
