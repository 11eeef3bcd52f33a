// Blocks read one by one are what the whole text is read as.
#include "importing/record_blocks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "importing/csv_reader.h"

namespace depcalc {
namespace {

/// Gives a text in portions of at most `most` bytes, and fails behind it where told to.
class Portions final : public ByteSource {
 public:
  Portions(std::string_view text, std::size_t most, bool fails = false)
      : text_(text), most_(most), fails_(fails) {}

  std::optional<std::size_t> read(std::span<char> buffer) override {
    if (text_.empty() && fails_) return std::nullopt;
    const std::size_t count = text_.copy(buffer.data(), std::min(most_, buffer.size()));
    text_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view text_;
  std::size_t most_;
  bool fails_;
};

/// Everything that a reader tells, a line each.
void read(CsvReader& csv, std::vector<std::string>& told) {
  using Outcome = CsvReader::Outcome;
  const auto place = [](CsvPlace at) {
    return std::to_string(at.line) + ':' + std::to_string(at.column) + ' ';
  };
  for (Outcome outcome = csv.next(); outcome != Outcome::end && outcome != Outcome::unreadable;
       outcome = csv.next()) {
    std::string line;
    if (outcome == Outcome::problem) line = place(csv.problem().place) + csv.problem().message;
    if (outcome == Outcome::record) {
      for (const CsvField& field : csv.record()) {
        line += place(field.place) + '[' + std::string(field.text) + ']';
      }
    }
    told.push_back(line);
  }
}

std::vector<std::string> readWhole(const std::string& text) {
  Portions source(text, text.size() + 1);
  CsvReader csv(source, {}, 1);
  std::vector<std::string> told;
  read(csv, told);
  return told;
}

/// A block that is open has the rest of the source behind it.
class Chained final : public ByteSource {
 public:
  Chained(ByteSource& first, ByteSource* second) : first_(first), second_(second) {}
  std::optional<std::size_t> read(std::span<char> buffer) override {
    const auto count = first_.read(buffer);
    return count == 0 && second_ != nullptr ? second_->read(buffer) : count;
  }

 private:
  ByteSource& first_;
  ByteSource* second_;
};

std::vector<std::string> readInBlocks(const std::string& text, std::size_t portion,
                                      std::size_t begun, BlockSizes sizes) {
  Portions source(std::string_view(text).substr(begun), portion);
  RecordBlocks blocks(source, ',', std::string_view(text).substr(0, begun), 1, false, sizes);
  std::vector<std::string> told;
  RecordBlocks::Block block;
  while (blocks.next(block)) {
    Portions first(block.text, block.text.size());
    Chained chained(first, block.is_open ? &source : nullptr);
    CsvReader csv(chained, {}, block.line);
    read(csv, told);
  }
  EXPECT_TRUE(blocks.ended());
  return told;
}

std::string randomText(std::mt19937& random) {
  static constexpr std::string_view bytes = "aaaa,,,\"\"\n\n\r\xC3";
  std::string text(random() % 60, ' ');
  for (char& byte : text) byte = bytes[random() % bytes.size()];
  return text;
}

TEST(RecordBlocks, AreReadAsTheWholeTextIs) {
  constexpr unsigned seed = 20'261'122;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int i = 0; i < 30'000; ++i) {
    const std::string text = randomText(random);
    const std::size_t portion = 1 + random() % 7;
    const std::size_t begun = random() % (text.size() + 1);
    const BlockSizes sizes{.usual = 1 + random() % 12, .largest = 8 + random() % 30};
    ASSERT_EQ(readInBlocks(text, portion, begun, sizes), readWhole(text))
        << ::testing::PrintToString(text) << " in portions of " << portion << " behind " << begun
        << ", blocks of " << sizes.usual << " to " << sizes.largest;
  }
}

std::vector<std::string> blocksOf(ByteSource& source, BlockSizes sizes) {
  RecordBlocks blocks(source, ';', "", 1, false, sizes);
  std::vector<std::string> texts;
  for (RecordBlocks::Block block; blocks.next(block);) {
    texts.push_back(std::to_string(block.line) + (block.is_open ? "+" : " ") + block.text);
  }
  return texts;
}

TEST(RecordBlocks, EndBetweenRecordsAndKnowTheirLines) {
  const BlockSizes sizes{.usual = 4, .largest = 16};
  struct Case {
    std::string text;
    std::vector<std::string> blocks;
  };
  const std::vector<Case> cases = {
      {"", {}},
      {"a", {"1 a"}},
      {"ab;c\nd\n", {"1 ab;c\n", "2 d\n"}},
      {"ab;c\r\nd\r\ne", {"1 ab;c\r\n", "2 d\r\n", "3 e"}},
      {"a;\"b\nc\nd\ne\"\nf\n", {"1 a;\"b\nc\nd\ne\"\n", "5 f\n"}},
      {"a\"b\nc\nd\n", {"1 a\"b\n", "2 c\nd\n"}},
      {"\"0123456789012345678", {"1+\"012345678901234"}},
  };
  for (const Case& c : cases) {
    Portions source(c.text, 1);
    EXPECT_EQ(blocksOf(source, sizes), c.blocks) << c.text;
  }
}

TEST(RecordBlocks, HandOutTheWholeRecordsBeforeAFailure) {
  for (const std::size_t portion : {1U, 3U, 100U}) {
    Portions source("a\nb\nc", portion, true);
    RecordBlocks blocks(source, ',', "", 1, false);
    RecordBlocks::Block block;
    ASSERT_TRUE(blocks.next(block));
    EXPECT_EQ(block.text, "a\nb\n");
    EXPECT_FALSE(blocks.next(block));
    EXPECT_FALSE(blocks.ended());
  }
}

}  // namespace
}  // namespace depcalc
