#include "windows/library/calculator.h"

#include <memory>

#include "windows/host/create_host.h"
#include "windows/ole/container_object.h"

namespace depcalc::windows {

IUnknown* newCalculator() {
  return newDepCalcCont(std::make_shared<CalculatorModel>(createHostApplication));
}

}  // namespace depcalc::windows
