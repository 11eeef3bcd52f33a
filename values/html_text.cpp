#include "values/html_text.h"

namespace depcalc {
namespace {

/// "" for a character that stands for itself.
std::string_view entity(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return "";
  }
}

}  // namespace

void appendHtmlText(std::string& out, std::string_view text) {
  for (const char c : text) {
    const std::string_view named = entity(c);
    named.empty() ? out += c : out += named;
  }
}

std::string htmlText(std::string_view text) {
  std::string html;
  html.reserve(text.size());
  appendHtmlText(html, text);
  return html;
}

}  // namespace depcalc
