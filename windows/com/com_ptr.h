// Counted pointers.
#pragma once

#include <wrl/client.h>

namespace depcalc::windows {

using Microsoft::WRL::ComPtr;

/// Takes over a reference that is held already. (The compiler's ComPtr::Attach adds one more.)
template <typename Interface>
ComPtr<Interface> owned(Interface* held) {
  ComPtr<Interface> pointer;
  *pointer.GetAddressOf() = held;
  return pointer;
}

}  // namespace depcalc::windows
