// The help catalogue.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace depcalc {

/// Texts are UTF-8, paragraphs end with CR LF, and every blank and apostrophe is meant.
struct HelpTopic {
  std::string_view topic;  ///< what screens and links ask for, case included
  std::string_view title;
  std::string_view body;
};

/// The topic of the page that shows links instead of a body.
inline constexpr std::string_view main_help_topic = "MainHelp";

std::span<const HelpTopic> helpTopics();
/// Nothing when the catalogue does not have the topic.
const HelpTopic* findHelpTopic(std::string_view topic);

/// A link of the main page.
struct HelpLink {
  std::string_view caption;
  std::string_view topic;
};

std::span<const HelpLink> helpLinks();

}  // namespace depcalc
