#include "windows/ole/view_part.h"

#include "windows/controls/screen_drawing.h"

namespace depcalc::windows {
namespace {

void requireContent(DWORD aspect) {
  if (aspect != DVASPECT_CONTENT) throw ComFailure(DV_E_DVASPECT);
}

RECT rectOf(const RECTL& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

}  // namespace

HRESULT ViewPart::Draw(DWORD aspect, LONG /*index*/, void* /*aspect_info*/,
                       DVTARGETDEVICE* /*device*/, HDC /*information*/, HDC target,
                       const RECTL* bounds, const RECTL* /*window_bounds*/,
                       BOOL(STDMETHODCALLTYPE* /*go_on*/)(ULONG_PTR), ULONG_PTR /*context*/) {
  return hub().answer([&] {
    requireContent(aspect);
    if (target == nullptr) throw ComFailure(E_INVALIDARG);
    native::drawScreen(target, rectOf(required(bounds)), hub().model().content(),
                       hub().ambient().look);
  });
}

HRESULT ViewPart::GetColorSet(DWORD aspect, LONG /*index*/, void* /*aspect_info*/,
                              DVTARGETDEVICE* /*device*/, HDC /*information*/,
                              LOGPALETTE** palette) {
  return hub().answer([&] {
    required(palette) = nullptr;
    requireContent(aspect);
    return S_FALSE;  // any colour
  });
}

HRESULT ViewPart::Freeze(DWORD /*aspect*/, LONG /*index*/, void* /*aspect_info*/, DWORD* freeze) {
  return hub().answer([&] {
    required(freeze) = 0;
    return E_NOTIMPL;
  });
}

HRESULT ViewPart::Unfreeze(DWORD /*freeze*/) { return E_NOTIMPL; }

HRESULT ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return hub().answer([&] {
    if ((aspects & ~static_cast<DWORD>(DVASPECT_CONTENT)) != 0) throw ComFailure(DV_E_DVASPECT);
    hub().adviseView(aspects, flags, sink);
  });
}

HRESULT ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  return hub().answer([&] { hub().advisedView(aspects, flags, sink); });
}

HRESULT ViewPart::GetExtent(DWORD aspect, LONG /*index*/, DVTARGETDEVICE* /*device*/,
                            SIZEL* extent) {
  return hub().answer([&] {
    SIZEL& given = required(extent);
    requireContent(aspect);
    given = hub().extent();
  });
}

}  // namespace depcalc::windows
