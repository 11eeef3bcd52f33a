#include "host/stored/record_in_text.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/record_values.h"
#include "host/stored/record_reader.h"
#include "host/stored/record_text.h"
#include "values/json_text.h"

namespace depcalc {
namespace {

constexpr std::string_view no_members = "{}";

/// The same for names that differ in the case of letters only. The ends tell names apart, or the
/// numbers behind them.
std::uint32_t digestOfName(std::string_view name) {
  auto digest = static_cast<std::uint32_t>(name.size());
  for (const char c : name.substr(name.size() - std::min<std::size_t>(name.size(), 3))) {
    digest = digest * 31 + (static_cast<unsigned char>(c) | 0x20U);
  }
  return digest;
}

}  // namespace

RecordInText::RecordInText() : text_(no_members), digests_(std::make_unique<Digests>()) {}

RecordInText::RecordInText(SharedText text) : text_(std::move(text)) {
  const std::string_view whole = text_.view();
  if (whole.size() < 2 || whole.front() != '{' || whole.back() != '}') RecordReader::fail();
}

StoredValue RecordInText::get(std::string_view name) const {
  if (!set_.empty()) join();
  RecordReader reader(text_.view(), at_);
  if (!reader.passName(name)) {
    const std::size_t begin = find(name);
    if (begin == nowhere) return {};
    reader = RecordReader(text_.view(), begin);
  }
  return read(reader);
}

StoredValue RecordInText::read(RecordReader& reader) const {
  StoredValue value = reader.value();
  at_ = requireBoundary(reader.at());
  return value;
}

void RecordInText::set(std::string_view name, const StoredValue& value) {
  requireKeepable(name, value);
  if (isSurelyNew(name)) return append(name, value);
  RecordReader reader(text_.view(), at_);
  if (reader.passName(name)) return replace(reader.at(), value);
  join();
  const std::size_t old = find(name);
  if (old == nowhere) {
    knowNames(name);
    append(name, value);
  } else {
    replace(old, value);
  }
}

std::vector<std::string> RecordInText::names() const {
  join();
  std::vector<std::string> names;
  RecordReader reader(text_.view());
  reader.expect('{');
  if (reader.accept('}')) return names;
  do {
    names.push_back(reader.string());
    reader.expect(':');
    reader.passValue();
  } while (reader.accept(','));
  reader.expect('}');
  return names;
}

const SharedText& RecordInText::kept() const {
  join();
  return text_;
}

bool RecordInText::isSurelyNew(std::string_view name) {
  if (digests_ == nullptr) return false;
  auto bit = (*digests_)[digestOfName(name) % digests_->size()];
  const bool is_new = !bit;
  bit = true;
  return is_new;
}

/// A name that is not there is often followed by others.
void RecordInText::knowNames(std::string_view added) {
  if (digests_ != nullptr) return;
  auto digests = std::make_unique<Digests>();
  for (const std::string& name : names()) digests->set(digestOfName(name) % digests->size());
  digests->set(digestOfName(added) % digests->size());
  digests_ = std::move(digests);
}

/// Where the value called `name` begins, with its member at `at_`.
std::size_t RecordInText::find(std::string_view name) const {
  const std::size_t from = at_;
  const std::size_t behind = findBetween(from, end(), name);
  return behind != nowhere ? behind : findBetween(0, from, name);
}

/// The same for the members that begin there.
std::size_t RecordInText::findBetween(std::size_t from, std::size_t to,
                                      std::string_view name) const {
  const std::string_view text = text_.view();
  if (text == no_members || text[from] == '}') return nowhere;
  RecordReader reader(text, from);
  while (reader.at() < to) {
    const std::size_t member = reader.at();
    reader.expect(member == 0 ? '{' : ',');
    const bool found = reader.passString(name);
    reader.expect(':');
    if (found) {
      at_ = member;
      return reader.at();
    }
    reader.passValue();
  }
  return nowhere;
}

/// Puts `value` in the place of the one that begins at `old`.
void RecordInText::replace(std::size_t old, const StoredValue& value) {
  const std::string_view text = text_.view();
  RecordReader reader(text, old);
  reader.passValue();
  const std::size_t behind = requireBoundary(reader.at());
  const std::string_view name = text.substr(at_, old - at_);
  char* const out = room(name.size() + valueRoom(value));
  set_.endAt(writeValue(value, std::copy(name.begin(), name.end(), out)));
  at_ = behind;
}

void RecordInText::append(std::string_view name, const StoredValue& value) {
  const bool first = at_ == 0 && text_.view() == no_members;
  if (!first && at_ != end()) {
    join();
    at_ = end();
  }
  char* out = room(2 + jsonStringRoom(name) + valueRoom(value));
  *out++ = first ? '{' : ',';
  out = writeJsonString(name, out);
  *out++ = ':';
  set_.endAt(writeValue(value, out));
  at_ = end();
}

/// Where the text goes on once something is set, with room for `size` bytes.
char* RecordInText::room(std::size_t size) {
  if (!set_.empty()) return set_.room(size);
  const std::string_view before = text_.view().substr(0, at_);
  char* const out = set_.room(text_.view().size() + size);
  return std::copy(before.begin(), before.end(), out);
}

/// `at` where a member may end.
std::size_t RecordInText::requireBoundary(std::size_t at) const {
  const bool is_one = at < text_.view().size() && (text_.view()[at] == ',' || at == end());
  if (!is_one) RecordReader::fail();
  return at;
}

void RecordInText::join() const {
  if (set_.empty()) return;
  text_ = SharedText(set_.view(), text_.view().substr(at_));
  at_ = set_.view().size();
  set_.clear();
}

}  // namespace depcalc
