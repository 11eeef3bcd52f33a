#include "windows/host/host_error.h"

#include <gtest/gtest.h>

#include "windows/com/com_text.h"

namespace depcalc {
namespace {

TEST(HostError, TakesNumberAndDescriptionFromTheException) {
  EXCEPINFO exception{};
  exception.scode = static_cast<SCODE>(0x800A0009);
  exception.bstrSource = newBstr("Host");
  exception.bstrDescription = newBstr("No record 7");
  const RuntimeError error = hostError(DISP_E_EXCEPTION, exception);
  EXPECT_EQ(error.number(), 9);
  EXPECT_EQ(error.description(), "No record 7");
  EXPECT_EQ(exception.bstrSource, nullptr);
  EXPECT_EQ(exception.bstrDescription, nullptr);
}

HRESULT WINAPI fillIn(EXCEPINFO* exception) {
  exception->wCode = 3021;
  exception->bstrDescription = newBstr("Filled in late");
  return S_OK;
}

TEST(HostError, LetsTheExceptionBeFilledInLate) {
  EXCEPINFO exception{};
  exception.pfnDeferredFillIn = fillIn;
  const RuntimeError error = hostError(DISP_E_EXCEPTION, exception);
  EXPECT_EQ(error.number(), 3021);
  EXPECT_EQ(error.description(), "Filled in late");
}

TEST(HostError, IsAnErrorWhereTheExceptionNamesNone) {
  EXCEPINFO exception{};
  const RuntimeError error = hostError(DISP_E_EXCEPTION, exception);
  EXPECT_EQ(error.number(), E_FAIL);
  EXPECT_FALSE(error.description().empty());
}

TEST(HostError, TakesTheHresultWhereThereIsNoException) {
  EXCEPINFO exception{};
  EXPECT_EQ(hostError(DISP_E_TYPEMISMATCH, exception).number(), 13);
  EXPECT_EQ(hostError(RPC_E_DISCONNECTED, exception).number(), 462);
  EXPECT_FALSE(hostError(RPC_E_DISCONNECTED, exception).description().empty());
}

}  // namespace
}  // namespace depcalc
