#include "tests/drive/page_recorder.h"

#include "controls/site.h"
#include "values/runtime_error.h"

namespace depcalc::drive {

int PageRecorder::textWidth(std::string_view text) { return plainTextExtent(text, font_, 0).width; }

int PageRecorder::textHeight(std::string_view text) {
  return plainTextExtent(text, font_, 0).height;
}

void PageRecorder::setPosition(int x, int y) {
  x_ = x;
  y_ = y;
}

void PageRecorder::print(std::string_view text) {
  pageToPrintOn().texts.push_back({x_, y_, std::string(text)});
  setPosition(0, y_ + textHeight(text));
}

void PageRecorder::paintPicture(const GridPicture& picture, int x, int y) {
  pageToPrintOn().pictures.push_back({x, y, picture});
}

PageRecorder::Page& PageRecorder::pageToPrintOn() {
  if (page() == failing_page_) throw RuntimeError(482, "Printer error");
  return job_.back();
}

void PageRecorder::newPage() {
  job_.emplace_back();
  setPosition(0, 0);
}

void PageRecorder::endJob() {
  if (job_.back().empty()) job_.pop_back();
  for (Page& page : job_) pages_.push_back(std::move(page));
  job_.assign(1, Page{});
  ++jobs_;
  setPosition(0, 0);
}

void PageRecorder::setPrintableSize(int width, int height) {
  width_ = width;
  height_ = height;
}

}  // namespace depcalc::drive
