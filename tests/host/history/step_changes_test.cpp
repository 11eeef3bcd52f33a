// What makes one state of a company another's, and back.
#include "host/history/step_changes.h"

#include <gtest/gtest.h>

#include <random>

#include "values/runtime_error.h"

namespace depcalc {
namespace {

const std::vector<FollowedTable> tables{{"Assets", true}, {"Units", false}};

TEST(TextDifference, LeadsBothWaysBetweenAnyTexts) {
  struct Case {
    const char* before;
    const char* after;
  };
  for (const Case& each : std::vector<Case>{
           {R"({"A":1,"B":"x"})", R"({"A":2,"B":"x"})"},
           {R"({"A":1,"B":"x"})", R"({"A":1,"B":"x"})"},
           {R"({"A":1})", R"({"A":1,"Dep0":"","Dep1":5.0000})"},
           {R"({"A":1,"Dep0":"","Dep1":5.0000})", R"({"A":1})"},
           {R"({"A":"ends in a comma,","B":1})", R"({"A":"does not","B":1})"},
           {R"({"A":"a \",\" b","B":1})", R"({"B":1})"},
           {"{}", R"({"A":1})"},
           {"", "x"},
           {",\"", ",\",\""},
       }) {
    const std::string difference = differenceOf(each.before, each.after);
    EXPECT_EQ(textOfSide(each.after, difference, Side::before), each.before);
    EXPECT_EQ(textOfSide(each.before, difference, Side::after), each.after);
  }
}

TEST(TextDifference, IsShortWhereOneMemberDiffers) {
  std::string before = "{\"RecIndex\":17";
  for (int i = 0; i < 40; ++i) before += ",\"Dep" + std::to_string(i) + "\":1250.5000";
  std::string after = before;
  after.replace(12, 2, "16");
  EXPECT_LT(differenceOf(before + "}", after + "}").size(), 45U);
}

TEST(TextDifference, RefusesATextThatItWasNotMadeOf) {
  const std::string difference = differenceOf(R"({"A":1,"B":2})", R"({"A":3,"B":2})");
  EXPECT_THROW((void)textOfSide(R"({"A":4,"B":2})", difference, Side::before), RuntimeError);
  EXPECT_THROW((void)textOfSide("", difference, Side::before), RuntimeError);
  EXPECT_THROW((void)textOfSide(R"({"A":3,"B":2})", "\x05", Side::before), RuntimeError);
  EXPECT_THROW((void)textOfSide(R"({"A":3,"B":2})", "", Side::before), RuntimeError);
}

ChangedPlaces moved(const RecordTexts& before, const RecordTexts& after) {
  ChangedPlaces places;
  for (const auto& [index, text] : before) places[index].before = text;
  for (const auto& [index, text] : after) places[index].after = text;
  std::erase_if(places, [](const auto& each) { return each.second.before == each.second.after; });
  return places;
}

std::string record(int index, const std::string& name) {
  return "{\"RecIndex\":" + std::to_string(index) + ",\"AID\":\"" + name + "\",\"AName\":\"" +
         name + " and more\",\"ASerial\":\"" + name + name + "\"}";
}

TEST(StepChanges, KnowTheAssetThatWasDeletedAndThoseBehindIt) {
  RecordTexts before;
  RecordTexts after;
  for (int i = 1; i <= 9; ++i) {
    before[static_cast<std::int16_t>(i)] = record(i, "A" + std::to_string(i));
    if (i < 4) after[static_cast<std::int16_t>(i)] = record(i, "A" + std::to_string(i));
    if (i > 4) after[static_cast<std::int16_t>(i - 1)] = record(i - 1, "A" + std::to_string(i));
  }
  std::vector<RecordChange> changes;
  appendChanges(changes, 0, moved(before, after));
  ASSERT_EQ(changes.size(), 6U);
  for (const RecordChange& change : changes) {
    ASSERT_TRUE(change.from);
    if (*change.from == 4) {
      EXPECT_FALSE(change.to);
    } else {
      EXPECT_EQ(change.to, *change.from - 1);
    }
  }
}

TEST(StepChanges, KeepRecordsInTheirPlacesWhereNoneWent) {
  const RecordTexts before{{1, record(1, "A")}, {2, record(2, "A")}, {3, record(3, "B")}};
  const RecordTexts after{{1, record(1, "X")}, {2, record(2, "Y")}, {3, record(3, "A")}};
  std::vector<RecordChange> changes;
  appendChanges(changes, 0, moved(before, after));
  for (const RecordChange& change : changes) EXPECT_EQ(change.from, change.to);
  EXPECT_EQ(changes.size(), 3U);
}

/// Any two tables, near each other or not: what the bytes say leads from each to the other.
TEST(StepChanges, LeadBothWaysBetweenAnyStates) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto number = [&](int below) { return static_cast<int>(random() % unsigned(below)); };
  const auto any = [&] {
    Content content{{"C" + std::to_string(number(3)), 1 + number(12), number(2) == 1}, {{}, {}}};
    for (RecordTexts& texts : content.tables) {
      for (int left = number(8); left > 0; --left) {
        const int index = number(10);
        texts[static_cast<std::int16_t>(index)] = record(number(3), std::to_string(number(4)));
      }
    }
    return content;
  };
  for (int round = 0; round < 2'000; ++round) {
    Content before = any();
    Content after = any();
    StepChanges changes;
    if (!(before.info == after.info)) changes.info = {before.info, after.info};
    for (std::size_t table = 0; table < 2; ++table) {
      appendChanges(changes.records, table, moved(before.tables[table], after.tables[table]));
    }
    EXPECT_EQ(digestAfter(digestOfState(before, tables), changes, tables),
              digestOfState(after, tables));
    const std::string bytes = bytesOfChanges(changes, tables);
    for (const Side side : {Side::before, Side::after}) {
      const Content& there = side == Side::before ? after : before;
      const StepChanges again = changesOfBytes(bytes, side, [&](std::size_t table, std::int16_t i) {
        return there.tables[table].at(i);
      });
      ASSERT_EQ(again.records.size(), changes.records.size());
      for (std::size_t i = 0; i < changes.records.size(); ++i) {
        EXPECT_EQ(again.records[i].before, changes.records[i].before);
        EXPECT_EQ(again.records[i].after, changes.records[i].after);
      }
      EXPECT_EQ(digestBefore(digestOfState(after, tables), again, tables),
                digestOfState(before, tables));
    }
  }
}

TEST(StepChanges, RefuseBytesThatWereNotWritten) {
  StepChanges changes;
  changes.info = InfoChange{{"A", 1, false}, {"B", 2, true}};
  changes.records = {{0, 1, 1, record(1, "A"), record(1, "B")}, {1, {}, 5, "", "{}"}};
  const std::string bytes = bytesOfChanges(changes, tables);
  const TextAt text_at = [](std::size_t, std::int16_t) { return record(1, "B"); };
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_THROW((void)changesOfBytes(bytes.substr(0, size), Side::before, text_at), RuntimeError);
  }
  EXPECT_THROW((void)changesOfBytes(bytes + "x", Side::before, text_at), RuntimeError);
}

}  // namespace
}  // namespace depcalc
