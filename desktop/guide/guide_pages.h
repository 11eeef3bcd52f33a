// The pages of the guide, and which one helps where. No toolkit is in it.
#pragma once

#include <span>
#include <string_view>

#include "desktop/guide/next_step.h"

namespace depcalc::desktop {

struct GuidePage {
  std::string_view file;
  std::string_view title;
};

/// In the order of the contents; the first is the one to begin at.
[[nodiscard]] std::span<const GuidePage> guidePages();

/// The page for whoever asks for the guide and stands there.
[[nodiscard]] std::string_view guidePageFor(const UserState& state);

/// The page for a box that the calculator shows, by its title: why it refuses a text, or what its
/// question means.
[[nodiscard]] std::string_view guidePageForBox(std::string_view title);

/// The pages that the program's own windows and boxes open.
namespace guide {
inline constexpr std::string_view contents = "index.html";
inline constexpr std::string_view first_company = "first-company.html";
inline constexpr std::string_view company_info = "first-company.html#company-info";
inline constexpr std::string_view open_company = "first-company.html#open";
inline constexpr std::string_view servers = "servers.html";
inline constexpr std::string_view importing = "importing-assets.html";
inline constexpr std::string_view reports = "year-end.html#reports";
inline constexpr std::string_view printing = "year-end.html#printing";
inline constexpr std::string_view exporting = "year-end.html#export";
inline constexpr std::string_view disposals = "year-end.html#disposals";
inline constexpr std::string_view units = "year-end.html#units";
inline constexpr std::string_view recalculation = "corrections.html#recalculate";
inline constexpr std::string_view history = "corrections.html#history";
inline constexpr std::string_view backups = "backups.html#restore";
inline constexpr std::string_view not_saved = "backups.html#not-saved";
inline constexpr std::string_view preferences = "window.html#preferences";
}  // namespace guide

}  // namespace depcalc::desktop
