// Whether the user lets the calculator go.
#pragma once

#include <QString>
#include <functional>

#include "desktop/site/desktop_site.h"

namespace depcalc::desktop {

class Calculator;

/// Asks before the calculator is taken away, where it has unsaved changes. Once the user has
/// agreed, the question is not repeated until something is done to the calculator.
class Leaving {
 public:
  /// `site` lives longer than this.
  explicit Leaving(DesktopSite& site) : site_(site) {}

  /// Whether `calculator`, which may be none, may be taken away. The field that has the focus
  /// validates first; where it refuses its text, and where the user cancels the question,
  /// everything stays as it is.
  bool ask(Calculator* calculator);
  /// The calculator stays after all, something was done to it, or it is another.
  void forget() { agreed_ = false; }
  /// What `leave` returns; a question that it asks has `note` below it.
  bool withNote(const QString& note, const std::function<bool()>& leave);

 private:
  DesktopSite& site_;
  QString note_;
  bool asking_ = false;
  bool agreed_ = false;
};

}  // namespace depcalc::desktop
