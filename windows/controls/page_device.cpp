#include "windows/controls/page_device.h"

#include <winspool.h>

#include <cmath>
#include <utility>

namespace depcalc::native {
namespace {

constexpr double twips_per_inch = 1440;
constexpr double himetric_per_inch = 2540;
constexpr const wchar_t* job_name = L"Depreciation schedule";

class Printer final : public PageDevice {
 public:
  explicit Printer(HDC dc) : dc_(dc) {}
  ~Printer() override {
    Printer::abort();
    DeleteDC(dc_);
  }
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;

  [[nodiscard]] HDC dc() const override { return dc_; }
  [[nodiscard]] Zoom zoom() const override {
    return {GetDeviceCaps(dc_, LOGPIXELSX) / twips_per_inch,
            GetDeviceCaps(dc_, LOGPIXELSY) / twips_per_inch};
  }
  [[nodiscard]] SIZE printable() const override {
    return {static_cast<LONG>(GetDeviceCaps(dc_, HORZRES) / zoom().x),
            static_cast<LONG>(GetDeviceCaps(dc_, VERTRES) / zoom().y)};
  }
  bool beginPage() override {
    if (!started_) {
      DOCINFOW document{};
      document.cbSize = sizeof document;
      document.lpszDocName = job_name;
      started_ = StartDocW(dc_, &document) > 0;
    }
    return started_ && StartPage(dc_) > 0;
  }
  bool endPage() override { return EndPage(dc_) > 0; }
  bool endJob() override { return !std::exchange(started_, false) || EndDoc(dc_) > 0; }
  void abort() override {
    if (std::exchange(started_, false)) AbortDoc(dc_);
  }

 private:
  HDC dc_;
  bool started_ = false;
};

}  // namespace

std::unique_ptr<PageDevice> defaultPrinter() {
  DWORD length = 0;
  GetDefaultPrinterW(nullptr, &length);
  std::wstring name(length, L'\0');
  if (length == 0 || GetDefaultPrinterW(name.data(), &length) == FALSE) return nullptr;
  const HDC dc = CreateDCW(L"WINSPOOL", name.c_str(), nullptr, nullptr);
  return dc == nullptr ? nullptr : std::make_unique<Printer>(dc);
}

MetafilePages::~MetafilePages() {
  MetafilePages::abort();
  for (const HENHMETAFILE page : pages_) DeleteEnhMetaFile(page);
}

bool MetafilePages::beginPage() {
  const auto himetric = [](LONG twips) {
    return static_cast<LONG>(std::lround(twips * himetric_per_inch / twips_per_inch));
  };
  const RECT frame{0, 0, himetric(printable_.cx), himetric(printable_.cy)};
  dc_ = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
  if (dc_ == nullptr) return false;
  // The size of the reference device in millimetres says what a twip is on it.
  const auto pixels = [this](int resolution, int millimetres) {
    constexpr double per_inch = 25.4;
    return static_cast<int>(std::lround(GetDeviceCaps(dc_, resolution) * per_inch * 10 /
                                        GetDeviceCaps(dc_, millimetres)));
  };
  SetMapMode(dc_, MM_ANISOTROPIC);
  SetWindowExtEx(dc_, static_cast<int>(twips_per_inch) * 10, static_cast<int>(twips_per_inch) * 10,
                 nullptr);
  SetViewportExtEx(dc_, pixels(HORZRES, HORZSIZE), pixels(VERTRES, VERTSIZE), nullptr);
  return true;
}

bool MetafilePages::endPage() {
  const HENHMETAFILE page =
      dc_ == nullptr ? nullptr : CloseEnhMetaFile(std::exchange(dc_, nullptr));
  if (page != nullptr) job_.push_back(page);
  return page != nullptr;
}

bool MetafilePages::endJob() {
  pages_.insert(pages_.end(), job_.begin(), job_.end());
  job_.clear();
  return true;
}

void MetafilePages::abort() {
  if (dc_ != nullptr) endPage();
  for (const HENHMETAFILE page : job_) DeleteEnhMetaFile(page);
  job_.clear();
}

}  // namespace depcalc::native
