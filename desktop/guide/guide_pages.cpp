#include "desktop/guide/guide_pages.h"

#include <algorithm>
#include <array>
#include <utility>

namespace depcalc::desktop {
namespace {

constexpr std::array pages{
    GuidePage{"index.html", "Contents"},
    GuidePage{"first-company.html", "Your first company"},
    GuidePage{"entering-assets.html", "Entering assets"},
    GuidePage{"importing-assets.html", "Importing assets"},
    GuidePage{"choosing-a-method.html", "Choosing a method"},
    GuidePage{"insight.html", "Why this amount, chart and what if"},
    GuidePage{"year-end.html", "The year’s end"},
    GuidePage{"corrections.html", "Corrections, undo and history"},
    GuidePage{"backups.html", "Backups"},
    GuidePage{"servers.html", "Companies on a server"},
    GuidePage{"methods.html", "Methods and conventions"},
    GuidePage{"refusals.html", "What the calculator refuses, and why"},
    GuidePage{"window.html", "The window, its keys and preferences"},
};

/// By the titles of the boxes, as they are in the form's messages.
constexpr std::array<std::pair<std::string_view, std::string_view>, 8> boxes{
    {{"Placed-in-service Date", "refusals.html#date"},
     {"End of Fiscal Year", "refusals.html#fiscal-year"},
     {"Useful Life", "refusals.html#life"},
     {"Basis", "refusals.html#basis"},
     {"Salvage Value", "refusals.html#salvage"},
     {"Production Capacity", "refusals.html#capacity"},
     {"Save Changes", "corrections.html#unsaved"},
     {"Undo Disposal", guide::disposals}}};

}  // namespace

std::span<const GuidePage> guidePages() { return pages; }

std::string_view guidePageFor(const UserState& state) {
  switch (state.screen) {
    case ShownScreen::form:
      return "entering-assets.html";
    case ShownScreen::comparison:
      return "choosing-a-method.html";
    case ShownScreen::assets:
      return state.assets == 0 ? guide::first_company : guide::contents;
    case ShownScreen::none:
      break;
  }
  return guide::first_company;
}

std::string_view guidePageForBox(std::string_view title) {
  const auto* const found = std::find_if(boxes.begin(), boxes.end(),
                                         [title](const auto& box) { return box.first == title; });
  return found == boxes.end() ? guide::contents : found->second;
}

}  // namespace depcalc::desktop
