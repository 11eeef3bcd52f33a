// Words found in the guide.
#include "desktop/guide/guide_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace depcalc::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

GuideSearch guide() {
  GuideSearch search;
  search.addPage("Entering assets", "Type the basis. The basis is what the asset cost.");
  search.addPage("Backups", "A copy of every asset is kept.\nRestore one from the File menu.");
  search.addPage("Methods", "Straight line takes basis less salvage over the life; assets differ.");
  return search;
}

std::vector<std::size_t> found(std::string_view words) {
  std::vector<std::size_t> pages;
  for (const FoundPage& each : guide().find(words)) pages.push_back(each.page);
  return pages;
}

TEST(GuideSearch, FindsPagesThatHaveEveryWord) {
  EXPECT_THAT(found("restore"), ElementsAre(1));
  EXPECT_THAT(found("BASIS salvage"), ElementsAre(2));
  EXPECT_THAT(found("basis restore"), IsEmpty());
  EXPECT_THAT(found("depot"), IsEmpty());
}

TEST(GuideSearch, PutsTitlesFirstAndThenWhatHasTheWordMoreOften) {
  EXPECT_THAT(found("basis"), ElementsAre(0, 2));
  EXPECT_THAT(found("asset"), ElementsAre(0, 1, 2));
  EXPECT_THAT(found("methods"), ElementsAre(2));
}

TEST(GuideSearch, FindsWordsByTheirBeginningOnly) {
  EXPECT_THAT(found("sal"), ElementsAre(2));
  EXPECT_THAT(found("vage"), IsEmpty());
}

TEST(GuideSearch, TakesSignsForNoWords) {
  EXPECT_THAT(found(""), IsEmpty());
  EXPECT_THAT(found(" ,.? "), IsEmpty());
  EXPECT_THAT(found("basis, salvage?"), ElementsAre(2));
}

TEST(GuideSearch, ShowsTheLineWithTheFirstWord) {
  EXPECT_THAT(guide().find("restore").front().line, HasSubstr("Restore one from the File menu."));
  EXPECT_THAT(guide().find("restore").front().line, HasSubstr("kept. Restore"));
  GuideSearch longer;
  longer.addPage("A", std::string(200, 'a') + " the word stands here " + std::string(200, 'b'));
  EXPECT_EQ(longer.find("word").front().line, "… the word stands here …");
  longer.addPage("Accumulated", std::string(100, ' ') + "é" + std::string(100, ' '));
  EXPECT_THAT(longer.find("accumulated").front().line, HasSubstr("…"));
}

}  // namespace
}  // namespace depcalc::desktop
