#include "windows/ole/in_place_part.h"

#include <ocidl.h>

namespace depcalc::windows {
namespace {

// As IOleControlSite::TranslateAccelerator counts them; the compiler's headers have no names.
constexpr DWORD shift_pressed = 1;
constexpr DWORD control_pressed = 2;
constexpr DWORD alt_pressed = 4;

DWORD pressedModifiers() {
  const auto pressed = [](int key) { return (GetKeyState(key) & 0x8000) != 0; };
  return (pressed(VK_SHIFT) ? shift_pressed : 0U) | (pressed(VK_CONTROL) ? control_pressed : 0U) |
         (pressed(VK_MENU) ? alt_pressed : 0U);
}

/// A key that is not the control's may be one of its host's.
HRESULT offerToHost(IOleClientSite* site, MSG& message) {
  ComPtr<IOleControlSite> host;
  if (site == nullptr || FAILED(site->QueryInterface(IID_PPV_ARGS(&host)))) return S_FALSE;
  return host->TranslateAccelerator(&message, pressedModifiers()) == S_OK ? S_OK : S_FALSE;
}

}  // namespace

HRESULT InPlacePart::GetWindow(HWND* window) {
  return hub().answer([&] {
    required(window) = hub().window().handle();
    return *window == nullptr ? E_FAIL : S_OK;
  });
}

HRESULT InPlacePart::ContextSensitiveHelp(BOOL /*enter*/) { return S_OK; }

HRESULT InPlacePart::InPlaceDeactivate() {
  return hub().answer([&] { hub().window().deactivate(); });
}

HRESULT InPlacePart::UIDeactivate() {
  return hub().answer([&] { hub().window().deactivateUi(true); });
}

HRESULT InPlacePart::SetObjectRects(const RECT* position, const RECT* clip) {
  return hub().answer([&] {
    const RECT& at = required(position);
    hub().window().place(at, clip == nullptr ? RECT{} : *clip);
  });
}

HRESULT InPlacePart::ReactivateAndUndo() { return INPLACE_E_NOTUNDOABLE; }

HRESULT InPlacePart::TranslateAccelerator(MSG* message) {
  return hub().answer([&] {
    MSG& key = required(message);
    return hub().window().translate(key) ? S_OK : offerToHost(hub().site(), key);
  });
}

HRESULT InPlacePart::OnFrameWindowActivate(BOOL /*activate*/) { return S_OK; }
HRESULT InPlacePart::OnDocWindowActivate(BOOL /*activate*/) { return S_OK; }

HRESULT InPlacePart::ResizeBorder(const RECT* border, IOleInPlaceUIWindow* window, BOOL /*frame*/) {
  return hub().answer([&] {
    required(border);
    required(window);
  });
}

HRESULT InPlacePart::EnableModeless(BOOL enable) {
  return hub().answer([&] { hub().window().setModeless(enable != FALSE); });
}

}  // namespace depcalc::windows
