#include "windows/host/find_member.h"

#include <dispex.h>
#include <wrl/client.h>

namespace depcalc {
namespace {

using Extended = Microsoft::WRL::ComPtr<IDispatchEx>;

Extended extended(IDispatch& object) {
  Extended answer;
  object.QueryInterface(IID_PPV_ARGS(&answer));
  return answer;
}

}  // namespace

HRESULT findMember(IDispatch& object, const wchar_t* name, DISPID& id) {
  auto* spelled = const_cast<wchar_t*>(name);
  const HRESULT found = object.GetIDsOfNames(IID_NULL, &spelled, 1, host_language, &id);
  const Extended other = found == E_NOTIMPL ? extended(object) : nullptr;
  if (other == nullptr) return found;
  const BSTR text = SysAllocString(name);
  if (text == nullptr) return E_OUTOFMEMORY;
  const HRESULT answer = other->GetDispID(text, fdexNameCaseInsensitive, &id);
  SysFreeString(text);
  return answer;
}

}  // namespace depcalc
