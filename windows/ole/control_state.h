// What a host keeps of a control.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <objidl.h>

#include "windows/ole/control_hub.h"

namespace depcalc::windows {

/// How it looks; what it shows belongs to the company file.
struct ControlState {
  SIZEL extent{};
  LONG back_colour = 0;
  LONG fore_colour = 0;
  bool enabled = true;

  static ControlState of(ControlHub& hub);
  /// An extent that is none: ComFailure, and nothing is changed.
  void apply(ControlHub& hub) const;

  /// In a stream it takes this many bytes.
  static constexpr ULONG stream_size = 24;
  void write(IStream& stream) const;
  /// Not what `write` wrote: ComFailure.
  static ControlState read(IStream& stream);

  void write(IPropertyBag& bag) const;
  /// What is missing in the bag stays as in `usual`; what is there and cannot be read: error 13
  /// or 6.
  static ControlState read(IPropertyBag& bag, IErrorLog* log, const ControlState& usual);
};

}  // namespace depcalc::windows
