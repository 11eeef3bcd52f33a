// Texts as HTML writes them.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// Adds `text` so that a browser shows it letter for letter, between tags as well as in the value
/// of an attribute between double quotes. Bytes that are no UTF-8 stay as they are.
void appendHtmlText(std::string& out, std::string_view text);

/// `text`, so written.
std::string htmlText(std::string_view text);

}  // namespace depcalc
