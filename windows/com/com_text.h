// Texts on their way between COM and the calculator.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

namespace depcalc {

/// The text of UTF-16 units, as the calculator keeps texts (UTF-8). A surrogate without its partner
/// becomes the three bytes that its number has in UTF-8, which no well-formed text contains; so
/// every sequence of units, embedded NULs included, comes back from `utf16` as it was.
std::string textFromUtf16(std::wstring_view units);

/// The UTF-16 units of a text; a byte that belongs to no sequence becomes U+FFFD.
std::wstring utf16(std::string_view text);

/// A BSTR's text; the null BSTR is "".
std::string textFromBstr(BSTR text);

/// A new BSTR that the caller frees. No memory for it: std::bad_alloc.
BSTR newBstr(std::string_view text);

}  // namespace depcalc
