#include "desktop/guide/guide_search.h"

#include <algorithm>
#include <utility>

namespace depcalc::desktop {
namespace {

constexpr std::size_t line_before = 40;  // bytes around a word that was found
constexpr std::size_t line_after = 60;
constexpr int title_weight = 100;

bool isLetter(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
         (byte >= 'A' && byte <= 'Z');
}

/// Byte for byte, so that places stay.
std::string small(std::string_view text) {
  std::string result(text);
  for (char& each : result) {
    if (each >= 'A' && each <= 'Z') each = static_cast<char>(each - 'A' + 'a');
  }
  return result;
}

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  for (const char character : small(text) + ' ') {
    if (isLetter(character)) {
      word += character;
    } else if (!word.empty()) {
      words.push_back(std::exchange(word, {}));
    }
  }
  return words;
}

/// Where a word begins with `word`, from `from` on.
std::size_t findWord(std::string_view text, std::string_view word, std::size_t from = 0) {
  for (std::size_t at = text.find(word, from); at != std::string_view::npos;
       at = text.find(word, at + 1)) {
    if (at == 0 || !isLetter(text[at - 1])) return at;
  }
  return std::string_view::npos;
}

int countWord(std::string_view text, std::string_view word) {
  int count = 0;
  for (std::size_t at = findWord(text, word); at != std::string_view::npos;
       at = findWord(text, word, at + 1)) {
    ++count;
  }
  return count;
}

/// Whole words around the place `at`, on one line.
std::string lineAround(const std::string& text, std::size_t at) {
  std::size_t begin = at < line_before ? 0 : at - line_before;
  if (begin > 0) begin = std::min(at, text.find(' ', begin) + 1);
  std::size_t end = text.size();
  if (at + line_after < text.size()) end = std::max(at, text.rfind(' ', at + line_after));
  std::string line = text.substr(begin, end - begin);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return (begin > 0 ? "… " : "") + line + (end < text.size() ? " …" : "");
}

}  // namespace

void GuideSearch::addPage(std::string_view title, std::string_view text) {
  pages_.push_back({small(title), small(text), std::string(text)});
}

std::vector<FoundPage> GuideSearch::find(std::string_view words) const {
  const std::vector<std::string> wanted = wordsOf(words);
  std::vector<std::pair<int, FoundPage>> found;
  for (std::size_t i = 0; i < pages_.size() && !wanted.empty(); ++i) {
    int weight = 0;
    const bool all = std::all_of(wanted.begin(), wanted.end(), [&](const std::string& word) {
      const int here =
          countWord(pages_[i].folded, word) + title_weight * countWord(pages_[i].title, word);
      weight += here;
      return here > 0;
    });
    if (!all) continue;
    const std::size_t at = findWord(pages_[i].folded, wanted.front());
    found.push_back({weight, {i, lineAround(pages_[i].text, at == std::string::npos ? 0 : at)}});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<FoundPage> result;
  for (auto& [weight, page] : found) result.push_back(std::move(page));
  return result;
}

}  // namespace depcalc::desktop
