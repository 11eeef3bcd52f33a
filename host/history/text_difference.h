// What makes one record's text another's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace depcalc {

/// Which of two texts is asked for.
enum class Side { before, after };

/// The members of a record's text, each from the comma in front of it on; together they are the
/// text. Any text has at least one.
std::vector<std::string_view> membersOf(std::string_view text);

/// The members in which two texts differ, both ways, as bytes that are short where the texts are
/// much alike.
std::string differenceOf(std::string_view before, std::string_view after);

/// The text of `side`, made from the other one. Error 13 where that is not the one that the
/// difference was made of, as far as the difference can tell.
std::string textOfSide(std::string_view other, std::string_view difference, Side side);

}  // namespace depcalc
