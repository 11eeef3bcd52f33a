#include "host/history/text_difference.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "host/history/bytes.h"

namespace depcalc {
namespace {

using Members = std::span<const std::string_view>;

std::string joined(Members members) {
  std::string text;
  for (const std::string_view member : members) text += member;
  return text;
}

/// One text's part in a difference: what is to be found, and what takes its place.
struct Exchange {
  std::string_view found;
  std::string_view put;
};

Exchange readExchange(ByteReader& reader, Side side) {
  const std::string_view before = reader.text();
  const std::string_view after = reader.text();
  return side == Side::before ? Exchange{after, before} : Exchange{before, after};
}

}  // namespace

std::vector<std::string_view> membersOf(std::string_view text) {
  // A quote inside of a text has a backslash before it, so this is between two members, or at a
  // text's end: where it is cut there, that is the same in every text of that kind.
  constexpr std::string_view between = ",\"";
  std::vector<std::string_view> members;
  while (true) {
    const std::size_t end = text.find(between, 1);
    members.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return members;
    text.remove_prefix(end);
  }
}

std::string differenceOf(std::string_view before, std::string_view after) {
  const auto old_members = membersOf(before);
  const auto new_members = membersOf(after);
  const std::size_t both = std::min(old_members.size(), new_members.size());
  std::vector<std::size_t> differing;
  for (std::size_t i = 0; i < both; ++i) {
    if (old_members[i] != new_members[i]) differing.push_back(i);
  }
  ByteWriter out;
  out.number(differing.size());
  for (const std::size_t i : differing) out.number(i).text(old_members[i]).text(new_members[i]);
  out.number(both);
  out.text(joined(Members(old_members).subspan(both)));
  out.text(joined(Members(new_members).subspan(both)));
  return out.take();
}

std::string textOfSide(std::string_view other, std::string_view difference, Side side) {
  auto members = membersOf(other);
  ByteReader reader(difference);
  for (std::uint64_t count = reader.number(); count > 0; --count) {
    const std::uint64_t at = reader.numberBelow(members.size());
    const Exchange exchange = readExchange(reader, side);
    if (members[at] != exchange.found) throw RuntimeError::typeMismatch();
    members[at] = exchange.put;
  }
  const std::uint64_t both = reader.numberBelow(members.size() + 1);
  const Exchange rest = readExchange(reader, side);
  if (joined(Members(members).subspan(both)) != rest.found) throw RuntimeError::typeMismatch();
  members.resize(both);
  members.push_back(rest.put);
  return joined(members);
}

}  // namespace depcalc
