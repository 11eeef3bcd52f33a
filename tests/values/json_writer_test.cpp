#include "values/json_writer.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "values/json_text.h"

namespace depcalc {
namespace {

using Layout = JsonWriter::Layout;

std::string jsonString(std::string_view text) {
  std::string string;
  appendJsonString(string, text);
  return string;
}

std::string written(const std::function<void(JsonWriter&)>& write) {
  JsonWriter json;
  write(json);
  return std::string(json.take());
}

TEST(JsonWriter, WritesSeparatorsAndTheLineEndItself) {
  struct Case {
    const char* document;
    std::function<void(JsonWriter&)> write;
  };
  const std::vector<Case> cases = {
      {"[]\n", [](JsonWriter& json) { json.beginArray().endArray(); }},
      {"[]\n", [](JsonWriter& json) { json.beginArray(Layout::below).endArray(); }},
      {"{}\n", [](JsonWriter& json) { json.beginObject().endObject(); }},
      {"[\"a\",1.50,null]\n",
       [](JsonWriter& json) { json.beginArray().text("a").number("1.50").null().endArray(); }},
      {"[\n1,\n2\n]\n",
       [](JsonWriter& json) { json.beginArray(Layout::below).number("1").number("2").endArray(); }},
      {"{\"a\":\"x\",\"b\":-1}\n",
       [](JsonWriter& json) {
         json.beginObject().name("a").text("x").name("b").number("-1").endObject();
       }},
      {"{\"t\":[\n{\"n\":1},\n{\"n\":2}\n],\"u\":{}}\n",
       [](JsonWriter& json) {
         json.beginObject().name("t").beginArray(Layout::below);
         for (const char* n : {"1", "2"}) json.beginObject().name("n").number(n).endObject();
         json.endArray().name("u").beginObject().endObject().endObject();
       }},
      {"[[],[[]],\"\"]\n",
       [](JsonWriter& json) {
         json.beginArray().beginArray().endArray();
         json.beginArray().beginArray().endArray().endArray().text("").endArray();
       }},
  };
  for (const Case& each : cases) EXPECT_EQ(written(each.write), each.document);
}

TEST(JsonWriter, EscapesNamesAndTexts) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginObject().name(std::string("a\"b")).text("c\\d\n\x1F\xC3\xA9").endObject();
            }),
            "{\"a\\\"b\":\"c\\\\d\\n\\u001f\xC3\xA9\"}\n");
}

TEST(JsonWriter, GoesOnBehindWhatWasTakenOut) {
  JsonWriter json;
  json.beginArray(Layout::below).number("1");
  EXPECT_EQ(json.take(), "[\n1");
  json.number("2");
  EXPECT_EQ(json.take(), ",\n2");
  json.endArray();
  EXPECT_EQ(json.take(), "\n]\n");
}

TEST(JsonWriter, WritesNumbersAndMoneyOfAnySize) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginArray().number(0).number(INT64_MIN).number(INT64_MAX);
              json.money(Currency::fromTicks(INT64_MIN)).money(Currency::fromTicks(5)).endArray();
            }),
            "[0,-9223372036854775808,9223372036854775807,"
            "\"-922337203685477.5808\",\"0.0005\"]\n");
}

TEST(JsonWriter, HoldsTextsLongerThanItsRoom) {
  for (const std::size_t size : {4'000U, 5'000U, 70'000U}) {
    const std::string text(size, '\x01');
    JsonWriter json;
    json.beginArray().text(text).text(text).endArray();
    EXPECT_EQ(json.take(), '[' + jsonString(text) + ',' + jsonString(text) + "]\n");
  }
}

TEST(JsonWriter, GrowsInTimeForEveryPiece) {
  struct Piece {
    std::string json;
    std::function<void(JsonWriter&)> write;
  };
  const std::string lowest = "\"-922337203685477.5808\"";
  const std::vector<Piece> pieces = {
      {"[]", [](JsonWriter& json) { json.beginArray().endArray(); }},
      {"[\n1\n]", [](JsonWriter& json) { json.beginArray(Layout::below).number("1").endArray(); }},
      {"{\"n\":1}", [](JsonWriter& json) { json.beginObject().name("n").number("1").endObject(); }},
      {"{\"\\\\\":1}",
       [](JsonWriter& json) {
         json.beginObject().name(std::string("\\")).number("1").endObject();
       }},
      {"\"\\u0001\"", [](JsonWriter& json) { json.text("\x01"); }},
      {lowest, [](JsonWriter& json) { json.money(Currency::fromTicks(INT64_MIN)); }},
      {"-9223372036854775808", [](JsonWriter& json) { json.number(INT64_MIN); }},
  };
  for (const Piece& piece : pieces) {
    for (std::size_t filled = 4'050; filled < 4'100; ++filled) {
      const std::string digits(filled, '7');
      JsonWriter json;
      json.beginArray().number(digits);
      piece.write(json);
      json.endArray();
      ASSERT_EQ(json.take(), '[' + digits + ',' + piece.json + "]\n");
    }
  }
}

TEST(JsonWriter, GoesOnBehindWhatAnotherWrote) {
  JsonWriter json;
  json.beginArray(Layout::below);
  EXPECT_EQ(json.take(), "[");
  json.goOn();
  json.endArray();
  EXPECT_EQ(json.take(), "\n]\n");
}

/// Writes a value made at random, and returns it in the plainest form.
std::string writeRandom(JsonWriter& json, std::mt19937& random, int depth) {
  const auto pick = [&random](unsigned count) { return static_cast<unsigned>(random() % count); };
  const unsigned kind = pick(depth == 0 ? 3 : 5);
  if (kind == 0) return json.null(), "null";
  if (kind == 1) {
    const std::string digits = std::to_string(pick(1000));
    return json.number(digits), digits;
  }
  if (kind == 2) {
    const std::string text(pick(4), static_cast<char>(pick(128)));
    return json.text(text), jsonString(text);
  }
  const bool object = kind == 3;
  const bool below = !object && pick(2) == 0;
  object ? json.beginObject() : json.beginArray(below ? Layout::below : Layout::beside);
  std::string inside;
  for (unsigned left = pick(4); left > 0; --left) {
    if (!inside.empty()) inside += ',';
    if (below) inside += '\n';
    if (object) {
      json.name("n");
      inside += "\"n\":";
    }
    inside += writeRandom(json, random, depth - 1);
  }
  if (below && !inside.empty()) inside += '\n';
  object ? json.endObject() : json.endArray();
  return object ? '{' + inside + '}' : '[' + inside + ']';
}

TEST(JsonWriter, WritesAnyDocument) {
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  for (int i = 0; i < 2'000; ++i) {
    JsonWriter json;
    json.beginArray();
    const std::string value = writeRandom(json, random, 4);
    json.endArray();
    ASSERT_EQ(json.take(), '[' + value + "]\n") << "seed " << seed;
  }
}

}  // namespace
}  // namespace depcalc
