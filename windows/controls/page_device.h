// What pages are printed on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "windows/controls/zoom.h"

namespace depcalc::native {

/// A printer, or what takes its place. Pages are drawn one after the other on `dc`; each operation
/// answers whether it succeeded.
class PageDevice {
 public:
  virtual ~PageDevice() = default;

  /// Of the page that has begun; null where none has.
  [[nodiscard]] virtual HDC dc() const = 0;
  /// Units of `dc` to a twip.
  [[nodiscard]] virtual Zoom zoom() const = 0;
  /// What can be printed on, in twips.
  [[nodiscard]] virtual SIZE printable() const = 0;

  virtual bool beginPage() = 0;
  virtual bool endPage() = 0;
  /// The pages that have ended are sent.
  virtual bool endJob() = 0;
  /// Nothing is sent.
  virtual void abort() = 0;
};

/// The user's default printer; null where there is none or it cannot be reached.
[[nodiscard]] std::unique_ptr<PageDevice> defaultPrinter();

/// Pages as enhanced metafiles whose unit is the twip, for a preview or where there is no printer.
class MetafilePages : public PageDevice {
 public:
  /// `printable`: the size of a page inside its margins, in twips.
  explicit MetafilePages(SIZE printable) : printable_(printable) {}
  ~MetafilePages() override;
  MetafilePages(const MetafilePages&) = delete;
  MetafilePages& operator=(const MetafilePages&) = delete;

  /// Those of the jobs that have ended.
  [[nodiscard]] const std::vector<HENHMETAFILE>& pages() const { return pages_; }

  [[nodiscard]] HDC dc() const override { return dc_; }
  [[nodiscard]] Zoom zoom() const override { return {1, 1}; }
  [[nodiscard]] SIZE printable() const override { return printable_; }
  bool beginPage() override;
  bool endPage() override;
  bool endJob() override;
  void abort() override;

 private:
  SIZE printable_;
  HDC dc_ = nullptr;
  std::vector<HENHMETAFILE> job_;
  std::vector<HENHMETAFILE> pages_;
};

}  // namespace depcalc::native
