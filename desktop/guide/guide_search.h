// Finding words in the guide. No toolkit is in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace depcalc::desktop {

/// A page by its place in the guide, and a line of it with the first word that was found.
struct FoundPage {
  std::size_t page = 0;
  std::string line;
};

/// The words of every page.
class GuideSearch {
 public:
  /// `text` is what the page says, without markup. In the order of the contents.
  void addPage(std::string_view title, std::string_view text);

  /// The pages that have every word of `words` or a longer one that begins so, small and capital
  /// letters alike; those with a word in the title first, then those that have them more often.
  /// None for no words.
  [[nodiscard]] std::vector<FoundPage> find(std::string_view words) const;

 private:
  struct Page {
    std::string title;  ///< in small letters, as `folded`
    std::string folded;
    std::string text;
  };

  std::vector<Page> pages_;
};

}  // namespace depcalc::desktop
