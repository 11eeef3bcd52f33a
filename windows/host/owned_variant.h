// A VARIANT that frees what it holds.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace depcalc {

class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&content_); }
  ~OwnedVariant() { VariantClear(&content_); }
  OwnedVariant(OwnedVariant&& other) noexcept : content_(other.content_) {
    VariantInit(&other.content_);
  }
  OwnedVariant& operator=(OwnedVariant&& other) noexcept {
    std::swap(content_, other.content_);
    return *this;
  }

  [[nodiscard]] const VARIANT& get() const noexcept { return content_; }
  [[nodiscard]] VARTYPE type() const noexcept { return content_.vt; }
  /// For a call that fills it; it holds nothing before.
  [[nodiscard]] VARIANT* out() noexcept {
    VariantClear(&content_);
    return &content_;
  }
  /// Hands the content over to a caller who frees it.
  [[nodiscard]] VARIANT release() noexcept {
    const VARIANT content = content_;
    VariantInit(&content_);
    return content;
  }

 private:
  VARIANT content_;
};

}  // namespace depcalc
