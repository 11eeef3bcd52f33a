#include "windows/com/run_time_errors.h"

#include <algorithm>
#include <iterator>

namespace depcalc {
namespace {

constexpr HRESULT control_errors = static_cast<HRESULT>(0x800A0000);
constexpr HRESULT number_bits = 0xFFFF;

struct SystemError {
  HRESULT result;
  int number;
};

constexpr SystemError system_errors[] = {
    {E_OUTOFMEMORY, 7},
    {E_INVALIDARG, 5},
    {E_NOTIMPL, 445},
    {E_NOINTERFACE, 430},
    {DISP_E_TYPEMISMATCH, 13},
    {DISP_E_OVERFLOW, 6},
    {DISP_E_BADINDEX, 9},
    {DISP_E_DIVBYZERO, 11},
    {DISP_E_ARRAYISLOCKED, 10},
    {DISP_E_MEMBERNOTFOUND, 438},
    {DISP_E_UNKNOWNNAME, 438},
    {DISP_E_UNKNOWNINTERFACE, 438},
    {DISP_E_PARAMNOTFOUND, 448},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_NONAMEDARGS, 446},
    {DISP_E_BADVARTYPE, 458},
    {CO_E_CLASSSTRING, 429},
    {REGDB_E_CLASSNOTREG, 429},
    {RPC_E_SERVERFAULT, 462},
    {RPC_E_DISCONNECTED, 462},
    {CO_E_OBJNOTCONNECTED, 462},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), 462},
};

}  // namespace

HRESULT hresultOfError(int number) {
  return number < 0 ? static_cast<HRESULT>(number) : control_errors | (number & number_bits);
}

int errorOfHresult(HRESULT result) {
  if ((result & ~number_bits) == control_errors) return static_cast<int>(result & number_bits);
  const auto* known = std::find_if(std::begin(system_errors), std::end(system_errors),
                                   [&](const SystemError& e) { return e.result == result; });
  return known == std::end(system_errors) ? static_cast<int>(result) : known->number;
}

}  // namespace depcalc
