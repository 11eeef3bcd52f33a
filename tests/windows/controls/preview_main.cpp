// native-preview DIRECTORY: takes pictures of the screens as they are on the display, at 96 and at
// 192 dots an inch, into DIRECTORY as bitmaps.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/driver.h"
#include "tests/drive/memory_drive_host.h"
#include "tests/windows/controls/top_window.h"
#include "tests/windows/controls/window_hands.h"
#include "windows/controls/windows_site.h"

namespace depcalc::testing {
namespace {

/// Texts measured as the calculator's user has them.
class MeasuringSite : public drive::DriveSite {
 public:
  using DriveSite::DriveSite;
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override {
    return measure_.extent(text, font, wrap_width);
  }

 private:
  native::TextMeasure measure_{native::usualFamily()};
};

class Hands : public WindowHands {
 public:
  Hands(std::unique_ptr<native::ScreenWindow> screen, native::ScreenWindow*& seen)
      : WindowHands(*screen), screen_(std::move(screen)) {
    seen = screen_.get();
  }

 private:
  std::unique_ptr<native::ScreenWindow> screen_;
};

void savePicture(const std::filesystem::path& path, const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = height;
  header.biPlanes = 1;
  header.biBitCount = 32;
  header.biSizeImage = static_cast<DWORD>(width * height * 4);
  void* bits = nullptr;
  const HDC display = GetDC(nullptr);
  const native::MemoryDc dc(display);
  const native::BitmapHandle bitmap(CreateDIBSection(
      display, reinterpret_cast<const BITMAPINFO*>(&header), DIB_RGB_COLORS, &bits, nullptr, 0));
  const HGDIOBJ former = SelectObject(dc.get(), bitmap.get());
  BitBlt(dc.get(), 0, 0, width, height, display, area.left, area.top, SRCCOPY);
  GdiFlush();
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof header;
  file.bfSize = file.bfOffBits + header.biSizeImage;
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&file), sizeof file);
  out.write(reinterpret_cast<const char*>(&header), sizeof header);
  out.write(static_cast<const char*>(bits), header.biSizeImage);
  SelectObject(dc.get(), former);
  ReleaseDC(nullptr, display);
}

constexpr const char* truck =
    "focus IDText\ntype TRK-014\nfocus NameText\ntype Delivery truck\nfocus SerialText\n"
    "type 1FTYR10D\nfocus DeptText\ntype Warehouse\nfocus StartDateText\ntype 9/15/2023\n"
    "focus DRecoveryText\ntype 5\nchoose DConvList Half Year\nfocus BasisText\ntype 38450\n"
    "focus SalvageText\ntype 4000\nfocus ProdCapText\ntype 150000\n";
constexpr const char* bench =
    "click CalcButton\nclick DDBOption\nclick SaveButton\nclick NewButton\nfocus IDText\n"
    "type BEN-002\nfocus NameText\ntype Workbench\nfocus StartDateText\ntype 1/10/2022\n"
    "focus DRecoveryText\ntype 7\nfocus BasisText\ntype 6200\nfocus SalvageText\ntype 200\n"
    "click CalcButton\nclick SaveButton\nclick NewButton\nfocus IDText\ntype LTH-031\n"
    "focus NameText\ntype Lathe\nfocus DeptText\ntype Turning\nfocus StartDateText\n"
    "type 3/3/2021\nfocus DRecoveryText\ntype 10\nfocus BasisText\ntype 27800\n"
    "focus SalvageText\ntype 1800\nchoose DConvList Full Month\nclick CalcButton\n"
    "click SaveButton\n";

class Preview {
 public:
  Preview(std::filesystem::path directory, int dpi)
      : directory_(std::move(directory)), dpi_(dpi), top_(1250 * dpi / 96, 640 * dpi / 96) {}

  void take() {
    CalculatorScreens screens;
    drive::MemoryDriveHost host(Date::strict(2024, 4, 1));
    host.open("preview");
    std::ostringstream said;
    drive::Driver driver(
        host, screens, said, {Date::strict(2024, 6, 15)},
        {[](std::ostream& out, Date today) { return std::make_unique<MeasuringSite>(out, today); },
         [this](DepCalcCont& container) { return seat(container); }});
    run(driver, std::string("start\n") + truck);
    shoot("entry");
    run(driver, "focus SalvageText\nclick ASalvageLabel");
    shoot("entry-help");
    run(driver, "click DepCalcPopup1.CloseButton\nclick CalcButton\nclick DDBOption");
    shoot("comparison");
    run(driver, "click HelpLabel");
    shoot("comparison-help");
    run(driver, std::string("click DepCalcPopup1.CloseButton\nclick CloseButton\n") + bench);
    run(driver, "cell AssetViewTable 5 2");
    shoot("register");
  }

 private:
  std::unique_ptr<drive::Hands> seat(DepCalcCont& container) {
    auto screen = std::make_unique<native::ScreenWindow>(top_.handle(), container, nullptr);
    screen->setDpi(dpi_);
    screen->place(top_.client());
    screen->show(true);
    screen->takeFocus();
    return std::make_unique<Hands>(std::move(screen), screen_);
  }
  static void run(drive::Driver& driver, const std::string& script) {
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) driver.run(line);
  }
  void shoot(const char* name) {
    MSG message{};
    for (int i = 0; i < 20; ++i) {
      UpdateWindow(top_.handle());
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
      Sleep(10);
    }
    savePicture(directory_ / (std::string(name) + "-" + std::to_string(dpi_) + ".bmp"),
                top_.client());
  }

  std::filesystem::path directory_;
  int dpi_;
  TopWindow top_;
  native::ScreenWindow* screen_ = nullptr;
};

}  // namespace
}  // namespace depcalc::testing

int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "usage: native-preview DIRECTORY\n";
    return 2;
  }
  for (const int dpi : {96, 192}) depcalc::testing::Preview(words[1], dpi).take();
  return 0;
}
