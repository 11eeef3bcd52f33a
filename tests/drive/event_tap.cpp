#include "tests/drive/event_tap.h"

#include <utility>

#include "tests/drive/drive_text.h"
#include "values/number_text.h"

namespace depcalc::drive {
namespace {

std::string textOf(const CalculateDepArray& assets) {
  std::string text;
  for (const CalculateDepPtr& asset : assets) {
    text += text.empty() ? "{" : ",";
    text += asset == nullptr ? "-" : asset->AssetID();
  }
  return text.empty() ? "{}" : text + "}";
}

}  // namespace

/// Says each event before the container answers it.
class EventTap::View final : public DepCalcViewEvents {
 public:
  View(DepCalcViewEvents& container, std::ostream* heard) : container_(container), heard_(heard) {}

  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override {
    container_.GetCalcDepAll(myCalcDep, myStartYr, myNumYrs, myNumAssets);
    say("GetCalcDepAll", textOf(myCalcDep) + ' ' + std::to_string(myStartYr) + ' ' +
                             numberToText(myNumYrs) + ' ' + std::to_string(myNumAssets));
  }
  void ResizedDisplay() override {
    say("ResizedDisplay");
    container_.ResizedDisplay();
  }
  void SaveRecord(const CalculateDepPtr& myRecord) override {
    say("SaveRecord");
    container_.SaveRecord(myRecord);
  }
  void ButtonClick(const std::string& myButton) override {
    say("ButtonClick", myButton);
    container_.ButtonClick(myButton);
  }
  void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) override {
    say("DeleteButtonClick", textOf(myCalcDep) + ' ' + std::to_string(myIndex));
    container_.DeleteButtonClick(myCalcDep, myIndex);
  }
  void GetCalcDep(CalculateDepPtr& myCalcDep) override {
    say("GetCalcDep");
    container_.GetCalcDep(myCalcDep);
  }
  void GetStartDir(std::string& myStartDir) override {
    say("GetStartDir", myStartDir);
    container_.GetStartDir(myStartDir);
  }
  void HelpClick(const std::string& myTopic) override {
    say("HelpClick", myTopic);
    container_.HelpClick(myTopic);
  }
  void ShowCover(bool showHide) override {
    say("ShowCover", showHide ? "True" : "False");
    container_.ShowCover(showHide);
  }

 private:
  void say(std::string_view name, const std::string& arguments = {}) {
    if (heard_ == nullptr) return;
    *heard_ << "event " << name << (arguments.empty() ? "" : " ") << inOneLine(arguments) << '\n';
  }

  DepCalcViewEvents& container_;
  std::ostream* heard_;
};

EventTap::EventTap(ScreenMaker& maker, std::ostream* heard) : maker_(maker), heard_(heard) {}
EventTap::~EventTap() = default;

DepCalcViewEvents& EventTap::view() const { return *view_; }

EventTap::Screen EventTap::makeCtl(UserControl& container, std::string name,
                                   DepCalcCtlEvents& events) {
  entry_ = &events;
  return maker_.makeCtl(container, std::move(name), events);
}

EventTap::Screen EventTap::makeDisplay(UserControl& container, std::string name,
                                       DepCalcDisplayCtlEvents& events) {
  compare_ = &events;
  return maker_.makeDisplay(container, std::move(name), events);
}

EventTap::Screen EventTap::makeView(UserControl& container, std::string name,
                                    DepCalcViewEvents& events) {
  view_ = std::make_unique<View>(events, heard_);
  return maker_.makeView(container, std::move(name), *view_);
}

EventTap::Screen EventTap::makePopup(UserControl& container, std::string name,
                                     DepCalcPopupEvents& events) {
  return maker_.makePopup(container, std::move(name), events);
}

}  // namespace depcalc::drive
