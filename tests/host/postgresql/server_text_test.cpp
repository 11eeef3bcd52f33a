// Records as texts for a server: nothing is lost that is no UTF-8.
#include "host/postgresql/server_text.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "host/stored/record_text.h"
#include "values/utf8.h"

namespace depcalc {
namespace {

bool isUtf8(std::string_view text) {
  Utf8Check utf8;
  for (const char c : text) {
    if (!utf8.accepts(static_cast<unsigned char>(c))) return false;
  }
  return utf8.atBoundary();
}

std::string textWith(const std::string& value) {
  return textOfRecord(RecordValues({{"A", StoredValue::text(value)}}));
}

TEST(ServerTexts, AreTheRecordsOwnWhereTheyCanBe) {
  for (const char* const value : {"", "Truck",
                                  "B\xC3\xA4"
                                  "cker",
                                  "\xF0\x9F\x9A\x9A", "\\udc41", "a \"b\" \\ \n \x01"}) {
    const std::string text = textWith(value);
    EXPECT_EQ(serverText(text), text);
    EXPECT_EQ(textOfServer(text), text);
    EXPECT_FALSE(readableText(text));
  }
}

TEST(ServerTexts, ComeBackToTheByte) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  constexpr std::string_view bytes("ab\\\"u\xFF\xC3\xA4\xED\xA0\x80\xF4\x90\0\n", 16);
  for (int i = 0; i < 20'000; ++i) {
    std::string value;
    for (auto left = random() % 12; left > 0; --left) value += bytes[random() % bytes.size()];
    const std::string text = textWith(value);
    const std::string sent = serverText(text);
    ASSERT_TRUE(isUtf8(sent)) << "seed " << seed;
    ASSERT_EQ(sent.find('\0'), std::string::npos);
    ASSERT_EQ(textOfServer(sent), text) << "seed " << seed;
  }
}

TEST(ServerTexts, AreShownWithoutWhatSqlCannotRead) {
  const std::string sent =
      serverText(textWith(std::string("A\xFF"
                                      "B\0C",
                                      5)));
  EXPECT_EQ(sent, R"({"A":"A\udcffB\u0000C"})");
  EXPECT_EQ(readableText(sent), R"({"A":"A\ufffdB\ufffdC"})");
}

}  // namespace
}  // namespace depcalc
