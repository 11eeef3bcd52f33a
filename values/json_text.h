// Texts as JSON writes them.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// Adds `text` as a JSON string, quotes included. Bytes that are no UTF-8 stay as they are.
void appendJsonString(std::string& out, std::string_view text);

/// `text` as a JSON string, quotes included.
std::string jsonString(std::string_view text);

}  // namespace depcalc
