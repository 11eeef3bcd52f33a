#include "windows/com/com_call.h"

#include <oleauto.h>

#include <new>
#include <stdexcept>
#include <string>

#include "values/runtime_error.h"
#include "windows/com/com_ptr.h"
#include "windows/com/com_text.h"
#include "windows/com/run_time_errors.h"

namespace depcalc::windows {
namespace {

/// No memory for it: then the number has to do.
void tellError(const wchar_t* object, REFGUID interface_id, const std::string& description) {
  ComPtr<ICreateErrorInfo> created;
  ComPtr<IErrorInfo> error;
  if (FAILED(CreateErrorInfo(&created)) || FAILED(created.As(&error))) return;
  created->SetGUID(interface_id);
  created->SetSource(const_cast<wchar_t*>(object));
  created->SetDescription(utf16(description).data());
  SetErrorInfo(0, error.Get());
}

}  // namespace

HRESULT passed(HRESULT result) {
  if (FAILED(result)) throw ComFailure(result);
  return result;
}

HRESULT answerOfException(const wchar_t* object, REFGUID interface_id) noexcept {
  try {
    throw;
  } catch (const ComFailure& failure) {
    return failure.result();
  } catch (const RuntimeError& error) {
    try {
      tellError(object, interface_id, error.description());
    } catch (const std::exception&) {
      SetErrorInfo(0, nullptr);
    }
    return hresultOfError(error.number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::length_error&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace depcalc::windows
