#include "windows/com/com_text.h"

#include <gtest/gtest.h>

#include <random>

namespace depcalc {
namespace {

struct TextCase {
  std::wstring units;
  std::string text;
};

const TextCase cases[] = {
    {L"", ""},
    {L"Forklift", "Forklift"},
    {L"Büro", "B\xC3\xBCro"},
    {L"\u20AC 5", "\xE2\x82\xAC 5"},
    {L"\U0001F600!", "\xF0\x9F\x98\x80!"},
    {std::wstring(L"a\0b", 3), std::string("a\0b", 3)},
    {{wchar_t{0xD83D}}, "\xED\xA0\xBD"},
    {{wchar_t{0xDE00}, wchar_t{0xD83D}}, "\xED\xB8\x80\xED\xA0\xBD"},
    {{wchar_t{0xD83D}, L'x'}, "\xED\xA0\xBDx"},
    {{wchar_t{0xFFFF}}, "\xEF\xBF\xBF"},
};

TEST(ComText, GoesBothWays) {
  for (const TextCase& c : cases) {
    EXPECT_EQ(textFromUtf16(c.units), c.text);
    EXPECT_EQ(utf16(c.text), c.units) << c.text;
  }
}

TEST(ComText, ShowsABrokenByteAsTheReplacementCharacter) {
  const wchar_t r = 0xFFFD;
  EXPECT_EQ(utf16("a\xFF"), (std::wstring{L'a', r}));
  EXPECT_EQ(utf16("\xC3"), (std::wstring{r}));
  EXPECT_EQ(utf16("\xC0\x80"), (std::wstring{r, r}));
  EXPECT_EQ(utf16("\xE2\x82x"), (std::wstring{r, r, L'x'}));
  EXPECT_EQ(utf16("\xF4\x90\x80\x80"), (std::wstring{r, r, r, r}));
  EXPECT_EQ(utf16("\xE0\x80\x80"), (std::wstring{r, r, r}));
}

TEST(ComText, KeepsEverySequenceOfUnits) {
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  for (int round = 0; round < 2000; ++round) {
    std::wstring units(random() % 40, L'\0');
    for (wchar_t& unit : units)
      unit = static_cast<wchar_t>(random() % 2 == 0 ? random() : 0xD800 + random() % 0x800);
    ASSERT_EQ(utf16(textFromUtf16(units)), units) << "seed " << seed << ", round " << round;
  }
}

TEST(ComText, TakesABstrAsLongAsItIs) {
  const std::string text = std::string("nul\0inside ", 11) + std::string(1 << 20, 'x');
  BSTR bstr = newBstr(text);
  EXPECT_EQ(SysStringLen(bstr), text.size());
  EXPECT_EQ(textFromBstr(bstr), text);
  SysFreeString(bstr);
  EXPECT_EQ(textFromBstr(nullptr), "");
}

}  // namespace
}  // namespace depcalc
