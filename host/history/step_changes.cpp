#include "host/history/step_changes.h"

#include <algorithm>
#include <utility>

#include "host/history/bytes.h"

namespace depcalc {
namespace {

/// How a change stands in the bytes: by a difference where it has both texts and the other one will
/// be at hand; else by its texts.
enum class Form : std::uint8_t { texts, difference };

using Place = std::optional<std::int16_t>;

void putPlace(ByteWriter& out, const Place& place) {
  out.number(place ? static_cast<std::uint64_t>(*place) + 1 : 0);
}

Place readPlace(ByteReader& in) {
  const std::uint64_t number = in.numberBelow(INT16_MAX + 2);
  if (number == 0) return std::nullopt;
  return static_cast<std::int16_t>(number - 1);
}

void putInfo(ByteWriter& out, const CompanyInfo& info) {
  out.text(info.name).number(static_cast<std::uint64_t>(info.first_month));
  out.number(info.multi_user ? 1 : 0);
}

CompanyInfo readInfo(ByteReader& in) {
  CompanyInfo info;
  info.name = in.text();
  info.first_month = static_cast<int>(in.numberBelow(13));
  info.multi_user = in.numberBelow(2) == 1;
  return info;
}

Form formOf(const RecordChange& change, const std::vector<FollowedTable>& tables) {
  const bool alike = change.from && change.to && tables[change.table].counts(*change.from) &&
                     tables[change.table].counts(*change.to);
  return alike ? Form::difference : Form::texts;
}

void putChange(ByteWriter& out, const RecordChange& change, Form form) {
  out.number(change.table * 2 + static_cast<std::uint64_t>(form));
  putPlace(out, change.from);
  putPlace(out, change.to);
  if (form == Form::difference) {
    out.text(differenceOf(change.before, change.after));
  } else {
    out.text(change.before).text(change.after);
  }
}

RecordChange readChange(ByteReader& in, Side missing, const TextAt& text_at) {
  RecordChange change;
  constexpr std::uint64_t most_tables = 16;
  const std::uint64_t table_and_form = in.numberBelow(most_tables * 2);
  change.table = table_and_form / 2;
  change.from = readPlace(in);
  change.to = readPlace(in);
  if (!change.from && !change.to) throw RuntimeError::typeMismatch();
  if (static_cast<Form>(table_and_form % 2) == Form::texts) {
    change.before = in.text();
    change.after = in.text();
    return change;
  }
  const bool undoing = missing == Side::before;
  const Place& at_hand = undoing ? change.to : change.from;
  if (!at_hand) throw RuntimeError::typeMismatch();
  std::string there = text_at(change.table, *at_hand);
  std::string other = textOfSide(there, in.text(), missing);
  change.before = std::move(undoing ? other : there);
  change.after = std::move(undoing ? there : other);
  return change;
}

/// Where what was in `from` is now: in the same place or, where it is more like that, in the one
/// before it.
class Pairing {
 public:
  explicit Pairing(ChangedPlaces& places) : places_(places) {
    anything_went_ = std::any_of(places.begin(), places.end(),
                                 [](const auto& place) { return !place.second.after; });
  }

  Place of(std::int16_t from, const std::string& before) const {
    const auto* const same = after(from);
    const auto* const ahead =
        anything_went_ && from > 0 ? after(static_cast<std::int16_t>(from - 1)) : nullptr;
    const auto one_less = static_cast<std::int16_t>(from - 1);
    if (ahead == nullptr) return same == nullptr ? Place() : Place(from);
    if (same == nullptr) return one_less;
    const bool moved = differenceOf(before, *ahead).size() < differenceOf(before, *same).size();
    return moved ? one_less : from;
  }

 private:
  [[nodiscard]] const std::string* after(std::int16_t index) const {
    const auto found = places_.find(index);
    return found == places_.end() || !found->second.after ? nullptr : &*found->second.after;
  }

  ChangedPlaces& places_;
  bool anything_went_ = false;
};

/// Adds the shares of one side, or takes them away.
std::uint64_t shares(const StepChanges& changes, Side side,
                     const std::vector<FollowedTable>& tables) {
  const bool before = side == Side::before;
  std::uint64_t sum = 0;
  if (changes.info) sum += digestOfInfo(before ? changes.info->before : changes.info->after);
  for (const RecordChange& change : changes.records) {
    const Place& place = before ? change.from : change.to;
    if (!place || !tables.at(change.table).counts(*place)) continue;
    sum += digestOfRecord(change.table, *place, before ? change.before : change.after);
  }
  return sum;
}

}  // namespace

/// The last come first: of those that moved up, the last place is empty now.
void appendChanges(std::vector<RecordChange>& changes, std::size_t table, ChangedPlaces places) {
  const Pairing pairing(places);
  for (auto place = places.rbegin(); place != places.rend(); ++place) {
    if (!place->second.before) continue;
    RecordChange change{
        table, place->first, pairing.of(place->first, *place->second.before), {}, {}};
    change.before = std::move(*place->second.before);
    if (change.to) change.after = *std::exchange(places[*change.to].after, std::nullopt);
    changes.push_back(std::move(change));
  }
  for (auto& [index, place] : places) {
    if (place.after) changes.push_back({table, {}, index, {}, std::move(*place.after)});
  }
}

std::string bytesOfChanges(const StepChanges& changes, const std::vector<FollowedTable>& tables) {
  ByteWriter out;
  out.number(changes.info ? 1 : 0);
  if (changes.info) {
    putInfo(out, changes.info->before);
    putInfo(out, changes.info->after);
  }
  out.number(changes.records.size());
  for (const RecordChange& change : changes.records) putChange(out, change, formOf(change, tables));
  return out.take();
}

StepChanges changesOfBytes(std::string_view bytes, Side missing, const TextAt& text_at) {
  ByteReader in(bytes);
  StepChanges changes;
  if (in.numberBelow(2) == 1) {
    changes.info.emplace();
    changes.info->before = readInfo(in);
    changes.info->after = readInfo(in);
  }
  for (std::uint64_t count = in.number(); count > 0; --count) {
    changes.records.push_back(readChange(in, missing, text_at));
  }
  if (!in.atEnd()) throw RuntimeError::typeMismatch();
  return changes;
}

std::uint64_t digestAfter(std::uint64_t before, const StepChanges& changes,
                          const std::vector<FollowedTable>& tables) {
  return before - shares(changes, Side::before, tables) + shares(changes, Side::after, tables);
}

std::uint64_t digestBefore(std::uint64_t after, const StepChanges& changes,
                           const std::vector<FollowedTable>& tables) {
  return after - shares(changes, Side::after, tables) + shares(changes, Side::before, tables);
}

}  // namespace depcalc
