#include "windows/ole/control_hub.h"

#include <utility>

#include "windows/ole/extent.h"

namespace depcalc::windows {

ControlHub::ControlHub(const ControlClass& of, std::shared_ptr<ControlModel> model, IUnknown& whole,
                       IConnectionPointContainer& points)
    : class_(of),
      model_(std::move(model)),
      whole_(&whole),
      place_{of.name, of.interface_id},
      window_(*this) {
  if (model_->events() == nullptr) return;
  points_.push_back(owned(new ConnectionPoint(of.events, points)));
  model_->events()->connect(points_.front());
}

ControlHub::~ControlHub() {
  window_.deactivate();
  for (const auto& point : points_) point->orphan();
}

void ControlHub::setSite(IOleClientSite* site) {
  if (site == nullptr) window_.deactivate();
  site_ = site;
  readAmbient();
}

void ControlHub::readAmbient() {
  ambient_ = AmbientValues::of(site_.Get());
  window_.applyAmbient();
}

SIZEL ControlHub::extent() const {
  const UserControl& root = model_->root();
  return extent_ ? *extent_ : himetricOfTwips(root.width(), root.height());
}

void ControlHub::setExtent(const SIZEL& extent) {
  twipsOfHimetric(extent);  // refuses what is no size
  extent_ = extent;
  dirty_ = true;
}

void ControlHub::setEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) == enabled) return;
  dirty_ = true;
  window_.applyAmbient();
}

void ControlHub::adviseView(DWORD aspect, DWORD flags, IAdviseSink* sink) {
  view_sink_ = sink;
  view_aspect_ = aspect;
  view_flags_ = flags;
  if ((flags & ADVF_PRIMEFIRST) != 0) viewChanged();
}

void ControlHub::advisedView(DWORD* aspect, DWORD* flags, IAdviseSink** sink) const {
  if (aspect != nullptr) *aspect = view_aspect_;
  if (flags != nullptr) *flags = view_flags_;
  if (sink != nullptr) *sink = ComPtr<IAdviseSink>(view_sink_).Detach();
}

void ControlHub::viewChanged() {
  if (view_sink_ == nullptr || (view_aspect_ & DVASPECT_CONTENT) == 0) return;
  const ComPtr<IAdviseSink> sink =
      (view_flags_ & ADVF_ONLYONCE) != 0 ? std::exchange(view_sink_, {}) : view_sink_;
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

IOleAdviseHolder& ControlHub::adviseHolder() {
  if (advise_holder_ == nullptr) passed(CreateOleAdviseHolder(&advise_holder_));
  return *advise_holder_.Get();
}

}  // namespace depcalc::windows
