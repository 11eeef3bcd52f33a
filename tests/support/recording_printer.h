// A printer that keeps what was printed.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "controls/printer.h"
#include "values/runtime_error.h"

namespace depcalc::testing {

/// Every character is as wide as half the font's size, every line 1.25 times as high. Call number
/// `failing_call`, counted from 1, is error 482.
class RecordingPrinter : public Printer {
 public:
  struct Text {
    int x = 0;
    int y = 0;
    std::string text;
  };
  struct Page {
    std::vector<Text> texts;
    std::vector<GridPicture> pictures;
    int picture_x = -1;
    int picture_y = -1;
  };

  RecordingPrinter(int width, int height) : width_(width), height_(height) {}

  void setFontSize(double points) override {
    call();
    font_size = points;
  }
  int textWidth(std::string_view text) override {
    call();
    return static_cast<int>(static_cast<double>(text.size()) * font_size * 10);
  }
  int textHeight(std::string_view /*text*/) override {
    call();
    return static_cast<int>(font_size * 25);
  }
  int printableWidth() override {
    call();
    return width_;
  }
  int printableHeight() override {
    call();
    return height_;
  }
  int page() override {
    call();
    return static_cast<int>(finished.size()) + 1;
  }
  void setPosition(int x, int y) override {
    call();
    x_ = x;
    y_ = y;
  }
  void print(std::string_view text) override {
    call();
    current.texts.push_back({x_, y_, std::string(text)});
    x_ = 0;
    y_ += static_cast<int>(font_size * 25);
  }
  void paintPicture(const GridPicture& picture, int x, int y) override {
    call();
    current.pictures.push_back(picture);
    current.picture_x = x;
    current.picture_y = y;
  }
  void newPage() override {
    call();
    finished.push_back(std::move(current));
    current = {};
    x_ = 0;
    y_ = 0;
  }
  void endJob() override {
    call();
    ++jobs_ended;
  }

  double font_size = 0;
  std::vector<Page> finished;
  Page current;  ///< empty when a new page was started last
  int jobs_ended = 0;
  int calls = 0;
  int failing_call = std::numeric_limits<int>::max();

 private:
  void call() {
    if (++calls == failing_call) throw RuntimeError(482, "Printer error");
  }

  int width_;
  int height_;
  int x_ = 0;
  int y_ = 0;
};

}  // namespace depcalc::testing
