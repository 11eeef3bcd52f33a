#include "windows/host/host_error.h"

#include <string>
#include <utility>

#include "windows/com/com_text.h"
#include "windows/com/run_time_errors.h"

namespace depcalc {
namespace {

std::string systemText(HRESULT result) {
  wchar_t* message = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&message), 0, nullptr);
  std::string text = textFromUtf16({message, length});
  LocalFree(message);
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text.empty() ? "Automation error" : text;
}

std::string takeText(BSTR& text) {
  std::string taken = textFromBstr(text);
  SysFreeString(std::exchange(text, nullptr));
  return taken;
}

/// An exception that names no error is one all the same.
int exceptionNumber(const EXCEPINFO& exception) {
  if (exception.wCode != 0) return exception.wCode;
  return errorOfHresult(FAILED(exception.scode) ? exception.scode : E_FAIL);
}

}  // namespace

RuntimeError hostError(HRESULT result, EXCEPINFO& exception) {
  if (result != DISP_E_EXCEPTION) return {errorOfHresult(result), systemText(result)};
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  takeText(exception.bstrSource);
  takeText(exception.bstrHelpFile);
  std::string description = takeText(exception.bstrDescription);
  return {exceptionNumber(exception),
          description.empty() ? systemText(exception.scode) : std::move(description)};
}

}  // namespace depcalc
