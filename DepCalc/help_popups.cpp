#include "DepCalc/help_popups.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "controls/stage.h"

namespace depcalc {
namespace {

constexpr int usual_top = 1440;
constexpr int overlap_pixels = 50 / 2;  // of a scale unit of 50, half lies on the form's margin
constexpr int second_gap = 120;         // twips
constexpr std::string_view topic_at_bottom = "Total";

struct TopicTop {
  std::string_view topic;
  int top;  // twips
};

constexpr std::array topic_tops = {
    TopicTop{"MainHelp", 280}, TopicTop{"ID", 1630},        TopicTop{"Name", 2000},
    TopicTop{"Serial", 2360},  TopicTop{"Dept", 2720},      TopicTop{"Basis", 2255},
    TopicTop{"Salvage", 3520}, TopicTop{"StartDate", 3080}, TopicTop{"ProdCap", 2750},
    TopicTop{"FY", 3440},      TopicTop{"Recovery", 637},   TopicTop{"Step1", 750},
};

void showAgain(UserControl& popup) {
  popup.hide();
  popup.show();
}

}  // namespace

class HelpPopups::First final : public DepCalcPopupEvents {
 public:
  explicit First(HelpPopups& popups) : popups_(popups) {}

  void CloseMe() override { popups_.first_.screen->hide(); }
  void GetHelpTopic(std::string& myHelpTopic) override { myHelpTopic = popups_.HelpTopic_; }
  void ResizedDisplay() override { popups_.placeFirst(); }
  void OpenNewMe(const std::string& myHelpTopic) override { popups_.openLink(myHelpTopic); }
  void FrontMe() override { popups_.first_.screen->bringToFront(); }

 private:
  HelpPopups& popups_;
};

class HelpPopups::Second final : public DepCalcPopupEvents {
 public:
  explicit Second(HelpPopups& popups) : popups_(popups) {}

  void CloseMe() override { popups_.second_.screen->hide(); }
  void GetHelpTopic(std::string& myHelpTopic) override { myHelpTopic = popups_.HelpTopic_; }
  void ResizedDisplay() override { popups_.placeSecond(); }
  /// A link in the second popup opens nothing further.
  void OpenNewMe(const std::string& /*myHelpTopic*/) override {}
  void FrontMe() override { popups_.second_.screen->bringToFront(); }

 private:
  HelpPopups& popups_;
};

HelpPopups::HelpPopups(UserControl& container, ScreenMaker& screens,
                       std::function<int()> form_width, std::function<int()> comparison_height)
    : container_(container),
      form_width_(std::move(form_width)),
      comparison_height_(std::move(comparison_height)) {
  first_.events = std::make_unique<First>(*this);
  first_.screen = screens.makePopup(container, "DepCalcPopup1", *first_.events);
  second_.events = std::make_unique<Second>(*this);
  second_.screen = screens.makePopup(container, "DepCalcPopup2", *second_.events);
}

void HelpPopups::openFromForm(const std::string& topic) {
  open(topic, [] { return usual_top; });
}

void HelpPopups::openFromComparison(const std::string& topic) {
  open(topic, [&] { return topic == topic_at_bottom ? atBottomEdge() : usual_top; });
}

// The topic comes first, so that the popup shows the one just asked for.
void HelpPopups::open(const std::string& topic, const std::function<int()>& top) {
  HelpTopic_ = topic;
  showAgain(*first_.screen);
  first_.screen->setTop(top());
  first_.screen->bringToFront();
}

void HelpPopups::openLink(const std::string& topic) {
  second_.screen->bringToFront();
  HelpTopic_ = topic;
  showAgain(*second_.screen);
}

int HelpPopups::atBottomEdge() const { return comparison_height_() - first_.screen->height(); }

int HelpPopups::topFor(const std::string& topic) const {
  if (topic == topic_at_bottom) return atBottomEdge();
  const auto found = std::find_if(topic_tops.begin(), topic_tops.end(),
                                  [&](const TopicTop& place) { return place.topic == topic; });
  return found == topic_tops.end() ? usual_top : found->top;
}

/// Beside the form, which is explained there, and no further to the right for a register of many
/// assets.
int HelpPopups::besideForm() const {
  const double pixel = container_.stage().site().twipsPerPixel();
  return std::min(container_.width(), form_width_()) - static_cast<int>(overlap_pixels * pixel);
}

void HelpPopups::placeFirst() { first_.screen->setPosition(besideForm(), topFor(HelpTopic_)); }

/// Below the first one, whose links go on being of use.
void HelpPopups::placeSecond() {
  second_.screen->setPosition(first_.screen->left(),
                              first_.screen->top() + first_.screen->height() + second_gap);
}

}  // namespace depcalc
