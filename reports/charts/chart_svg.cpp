#include "reports/charts/chart_svg.h"

#include <array>
#include <charconv>
#include <cmath>

#include "reports/charts/chart_layout.h"
#include "reports/charts/svg_measures.h"
#include "reports/pages/paper_tones.h"
#include "values/html_text.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

constexpr double twips_per_pixel = 15;
constexpr double twips_per_point = 20;
constexpr double margin = 240;  ///< twips around a picture by itself
constexpr std::string_view family = "'DejaVu Sans', Verdana, 'Segoe UI', sans-serif";

/// Pixels with two decimals at most.
std::string pixels(double twips) {
  const double rounded = std::round(twips / twips_per_pixel * 100) / 100;
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), rounded == 0 ? 0 : rounded);
  return {text.data(), end.ptr};
}

std::string hex(PaperColour colour) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    text += digits[part / 16];
    text += digits[part % 16];
  }
  return text;
}

std::string number(PaperTone tone) { return std::to_string(static_cast<int>(tone)); }
std::string number(PaperFont font) { return std::to_string(static_cast<int>(font)); }

std::string attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string pathOf(const PaperStroke& stroke) {
  std::string path;
  for (const PaperPoint& point : stroke.points) {
    path += path.empty() ? "M" : "L";
    path += pixels(point.x) + ' ' + pixels(point.y);
  }
  return stroke.filled ? path + 'Z' : path;
}

void addStroke(std::string& out, const PaperStroke& stroke) {
  const std::string colour = hex(onWhite(stroke.tone));
  out += "<path" + attribute("d", pathOf(stroke));
  if (stroke.filled) {
    out += attribute("class", "f" + number(stroke.tone)) + attribute("fill", colour);
  } else if (stroke.width > 0) {
    out += attribute("class", "s" + number(stroke.tone)) + attribute("fill", "none") +
           attribute("stroke", colour) + attribute("stroke-width", pixels(stroke.width)) +
           attribute("stroke-linejoin", "round");
  } else {
    out += R"( fill="none" pointer-events="all")";
  }
  std::string dashes;
  for (const double dash : stroke.dashes) dashes += (dashes.empty() ? "" : " ") + pixels(dash);
  if (!dashes.empty()) out += attribute("stroke-dasharray", dashes);
  out += stroke.says.empty() ? "/>\n" : "><title>" + htmlText(stroke.says) + "</title></path>\n";
}

void addText(std::string& out, const PaperText& text, const SvgMeasures& measures) {
  const double part = text.hold == PaperHold::left ? 0 : text.hold == PaperHold::middle ? 0.5 : 1;
  const PaperLetters letters = lettersOf(text.font);
  out += "<text" + attribute("x", pixels(text.x + part * measures.width(text.text, text.font))) +
         attribute("y", pixels(text.y + SvgMeasures::ascent(text.font))) +
         attribute("class", "t" + number(text.font)) + attribute("fill", hex(onWhite(text.font))) +
         attribute("font-size", pixels(letters.points * twips_per_point));
  if (letters.bold) out += attribute("font-weight", "bold");
  if (part > 0) out += attribute("text-anchor", part < 1 ? "middle" : "end");
  out += ">" + htmlText(printableText(text.text)) + "</text>\n";
}

std::string nameOf(const Chart& chart) {
  return (chart.title.empty() ? "" : printableText(chart.title) + ": ") +
         "book value and depreciation by every method";
}

std::string descriptionOf(const Chart& chart) {
  std::string text;
  for (const std::string& sentence : crossingSentences(chart)) {
    text += (text.empty() ? "" : " ") + sentence;
  }
  return text.empty() ? "No two methods cross." : text;
}

void addHead(std::string& out, const Chart& chart, PaperArea area, double around, SvgUse use) {
  const std::string width = pixels(area.width + 2 * around);
  const std::string height = pixels(area.height + 2 * around);
  out += "<svg";
  if (use == SvgUse::file) out += attribute("xmlns", "http://www.w3.org/2000/svg");
  out +=
      attribute("class", "chart") + attribute("role", "img") + attribute("width", width) +
      attribute("height", height) +
      attribute("viewBox", pixels(-around) + ' ' + pixels(-around) + ' ' + width + ' ' + height) +
      attribute("font-family", family) + ">\n";
  out += "<title>" + htmlText(nameOf(chart)) + "</title>\n<desc>" + htmlText(descriptionOf(chart)) +
         "</desc>\n";
  if (use == SvgUse::in_a_page) return;
  out += "<rect" + attribute("x", pixels(-around)) + attribute("y", pixels(-around)) +
         attribute("width", width) + attribute("height", height) +
         attribute("fill", hex(white_paper)) + "/>\n";
}

}  // namespace

std::string chartSvg(const Chart& chart, PaperArea area, SvgUse use) {
  const bool file = use == SvgUse::file;
  const double around = file ? margin : 0;
  area = {area.width - 2 * around, area.height - 2 * around};
  const SvgMeasures measures;
  const ChartLayout layout(chart, area, measures, {.year = {}, .titled = true});
  std::string out;
  if (file) out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  addHead(out, chart, area, around, use);
  for (const PaperStroke& stroke : layout.page().strokes) addStroke(out, stroke);
  for (const PaperText& text : layout.page().texts) addText(out, text, measures);
  return out += "</svg>\n";
}

std::string chartStyleOnDark() {
  std::string rules;
  for (int i = 0; i <= static_cast<int>(last_paper_tone); ++i) {
    const auto tone = static_cast<PaperTone>(i);
    const std::string colour = hex(onDark(tone));
    rules += ".chart .s" + number(tone) + " { stroke: " + colour + "; } .chart .f" + number(tone) +
             " { fill: " + colour + "; }\n";
  }
  for (int i = 0; i <= static_cast<int>(last_paper_font); ++i) {
    const auto font = static_cast<PaperFont>(i);
    rules += ".chart .t" + number(font) + " { fill: " + hex(onDark(font)) + "; }\n";
  }
  return rules;
}

}  // namespace depcalc
