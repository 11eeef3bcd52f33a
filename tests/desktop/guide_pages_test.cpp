// The guide's pages: sound, complete, and true to the last digit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <functional>
#include <set>

#include "desktop/guide/guide_pages.h"
#include "desktop/guide/next_step.h"
#include "engine/calculate_dep.h"
#include "engine/convention.h"
#include "engine/disposal.h"
#include "engine/first_fiscal_year.h"
#include "engine/first_year_fraction.h"
#include "engine/method_results.h"
#include "engine/units_produced.h"
#include "entry/messages.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc::testing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

const QString folder = QStringLiteral(DEPCALC_GUIDE);

QString qt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString read(const QString& file) {
  QFile page(folder + u'/' + file);
  return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QStringList files() {
  return QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

/// An element with what stands in it, and what is said of the example that it belongs to.
struct Element {
  QString name;
  QXmlStreamAttributes attributes;
  QXmlStreamAttributes example;
  QString text;

  [[nodiscard]] bool has(const char* name_of) const {
    return attributes.hasAttribute(QLatin1String(name_of));
  }
  [[nodiscard]] QString at(const char* name_of) const {
    return attributes.value(QLatin1String(name_of)).toString();
  }
  [[nodiscard]] QString of(const char* name_of) const {
    return example.value(QLatin1String(name_of)).toString();
  }
};

/// Every element of a page in the order of their ends; says what is not well formed.
std::vector<Element> elements(const QString& file, QString& trouble) {
  std::vector<Element> open;
  std::vector<Element> found;
  QXmlStreamReader reader(read(file));
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      QXmlStreamAttributes example = open.empty() ? QXmlStreamAttributes() : open.back().example;
      if (reader.attributes().hasAttribute(QStringLiteral("data-basis"))) {
        example = reader.attributes();
      }
      open.push_back({reader.name().toString(), reader.attributes(), example, {}});
    } else if (reader.isCharacters()) {
      for (Element& each : open) each.text += reader.text();
    } else if (reader.isEndElement()) {
      open.back().text = open.back().text.simplified();
      found.push_back(open.back());
      open.pop_back();
    }
  }
  if (reader.hasError()) {
    trouble =
        QStringLiteral("%1:%2: %3").arg(file).arg(reader.lineNumber()).arg(reader.errorString());
  }
  return found;
}

void onEvery(const std::function<void(const QString& file, const Element& element)>& look) {
  for (const QString& file : files()) {
    QString trouble;
    for (const Element& each : elements(file, trouble)) look(file, each);
    EXPECT_EQ(trouble, "");
  }
}

QSet<QString> placesOn(const QString& file) {
  QSet<QString> places;
  QString trouble;
  for (const Element& each : elements(file, trouble)) places << each.at("id");
  return places;
}

/// Whether a link of `file` leads to a page and a place that are there.
bool leads(const QString& file, const QString& link) {
  const QString page = link.startsWith(u'#') ? file : link.section(u'#', 0, 0);
  const QString place = link.section(u'#', 1);
  return QFileInfo::exists(folder + u'/' + page) &&
         (place.isEmpty() || placesOn(page).contains(place));
}

// Pages ------------------------------------------------------------------------------------------

TEST(GuidePages, AreThePagesOfTheContentsWithTheirTitles) {
  QStringList listed;
  for (const desktop::GuidePage& page : desktop::guidePages()) {
    listed << qt(page.file);
    if (page.file == "index.html") continue;
    QString trouble;
    for (const Element& each : elements(qt(page.file), trouble)) {
      if (each.name == "h1" || each.name == "title") {
        EXPECT_EQ(each.text, qt(page.title));
      }
    }
  }
  listed.sort();
  EXPECT_EQ(listed, files());
}

TEST(GuidePages, AreWellFormedAndHaveOneHeadingAndOneStyleSheet) {
  for (const QString& file : files()) {
    QString trouble;
    int headings = 0;
    int sheets = 0;
    QSet<QString> ids;
    for (const Element& each : elements(file, trouble)) {
      headings += each.name == "h1" ? 1 : 0;
      sheets += each.name == "link" && each.at("href") == "guide.css" ? 1 : 0;
      if (each.has("id")) {
        EXPECT_FALSE(ids.contains(each.at("id"))) << each.at("id").toStdString();
        ids << each.at("id");
      }
    }
    EXPECT_EQ(trouble, "");
    EXPECT_EQ(headings, 1) << file.toStdString();
    EXPECT_EQ(sheets, 1) << file.toStdString();
  }
}

TEST(GuidePages, LeadToNothingThatIsNotThere) {
  int links = 0;
  onEvery([&](const QString& file, const Element& element) {
    if (element.name != "a") return;
    ++links;
    EXPECT_TRUE(leads(file, element.at("href")))
        << file.toStdString() << ": " << element.at("href").toStdString();
  });
  EXPECT_GT(links, 50);
}

TEST(GuidePages, AreAllReachedFromTheFirst) {
  QMap<QString, QSet<QString>> to;
  onEvery([&](const QString& file, const Element& element) {
    if (element.name == "a") to[file] << element.at("href").section(u'#', 0, 0);
  });
  for (const desktop::GuidePage& page : desktop::guidePages()) {
    if (page.file == "index.html") continue;
    EXPECT_TRUE(to[QStringLiteral("index.html")].contains(qt(page.file))) << page.file;
    EXPECT_TRUE(to[qt(page.file)].contains(QStringLiteral("index.html"))) << page.file;
  }
}

/// Between menus and status line. Text and frames have many, for their edges are smoothed; an empty
/// page has one.
std::size_t colorsInTheMiddle(const QImage& picture) {
  std::set<QRgb> colors;
  for (int y = picture.height() / 8; y < picture.height() * 7 / 8; ++y) {
    for (int x = picture.width() / 8; x < picture.width() * 7 / 8; ++x) {
      colors.insert(picture.pixel(x, y));
    }
  }
  return colors.size();
}

TEST(GuidePages, HavePicturesInLightAndDarkWithWordsForThem) {
  QSet<QString> used;
  onEvery([&](const QString& file, const Element& element) {
    if (element.name != "img") return;
    const QString light = element.at("src");
    const QString dark = QString(light).replace("-light.", "-dark.");
    EXPECT_NE(light, dark) << file.toStdString();
    for (const QString& picture : {light, dark}) {
      EXPECT_TRUE(QFileInfo::exists(folder + u'/' + picture)) << picture.toStdString();
      used << QFileInfo(picture).fileName();
    }
    EXPECT_GT(element.at("alt").size(), 20) << light.toStdString();
    EXPECT_GT(element.at("width").toInt(), 100) << light.toStdString();
  });
  EXPECT_GE(used.size(), 10);
  qint64 bytes = 0;
  for (const QFileInfo& picture : QDir(folder + "/images").entryInfoList(QDir::Files)) {
    EXPECT_TRUE(used.contains(picture.fileName())) << picture.fileName().toStdString();
    EXPECT_GT(colorsInTheMiddle(QImage(picture.filePath())), 10U)
        << picture.fileName().toStdString() << " shows nothing";
    bytes += picture.size();
  }
  EXPECT_LT(bytes, 3'000'000);
}

TEST(GuidePages, NeedNoNetwork) {
  for (const QString& file : QDir(folder).entryList(QDir::Files)) {
    EXPECT_FALSE(read(file).contains(QStringLiteral("://"))) << file.toStdString();
  }
}

// Two clicks -------------------------------------------------------------------------------------

/// Where one may be stuck, and the page and place that help there. One click or key opens them: F1,
/// Help, a hint's button, or an item of the Help menu.
TEST(GuidePages, HelpWithinTwoClicksWhereOneMayBeStuck) {
  using desktop::ShownScreen;
  namespace guide = desktop::guide;
  const std::pair<const char*, std::string_view> places[] = {
      {"no company", desktop::guidePageFor({})},
      {"form", desktop::guidePageFor({.screen = ShownScreen::form})},
      {"comparison", desktop::guidePageFor({.screen = ShownScreen::comparison})},
      {"empty register", desktop::guidePageFor({.screen = ShownScreen::assets})},
      {"register", desktop::guidePageFor({.screen = ShownScreen::assets, .assets = 3})},
      {"Company Info", guide::company_info},
      {"Open Company", guide::open_company},
      {"Open from Server", guide::servers},
      {"Import", guide::importing},
      {"Reports", guide::reports},
      {"Print", guide::printing},
      {"Export", guide::exporting},
      {"Dispose", guide::disposals},
      {"Units Produced", guide::units},
      {"Recalculate", guide::recalculation},
      {"History", guide::history},
      {"Restore Backup", guide::backups},
      {"Change Not Saved", guide::not_saved},
      {"Preferences", guide::preferences}};
  for (const auto& [where, page] : places) {
    EXPECT_TRUE(leads(QStringLiteral("index.html"), qt(page))) << where << ": " << page;
  }
  for (const Message& message : field_messages) {
    const std::string_view page = desktop::guidePageForBox(message.title);
    EXPECT_TRUE(leads(QStringLiteral("index.html"), qt(page))) << message.title;
    EXPECT_NE(page, guide::contents) << message.title;
  }
  for (const desktop::NextStep& step : desktop::nextSteps()) {
    EXPECT_TRUE(leads(QStringLiteral("index.html"), qt(step.page))) << step.page;
  }
}

// Refusals ---------------------------------------------------------------------------------------

/// "TITLE | TEXT" of every message that the form can show.
QSet<QString> messagesOfForm() {
  QSet<QString> all;
  const auto add = [&](const Message& message) {
    all << qt(message.title) + " | " + qt(message.text);
  };
  for (const Message& message : field_messages) add(message);
  for (const Message& message : form_messages) add(message);
  add(save_changes_question);
  return all;
}

TEST(GuideRefusals, AreAllOfTheFormLetterForLetterAtThePlaceThatF1Opens) {
  QSet<QString> told;
  QString trouble;
  QString section;
  for (const Element& each : elements(QStringLiteral("refusals.html"), trouble)) {
    if (each.name == "h2") section = each.at("id");
    if (each.at("class") != "refusal") continue;
    told << each.at("data-title") + " | " + each.text;
    if (each.at("data-title") == qt(titles::save_changes)) continue;
    EXPECT_EQ(qt(desktop::guidePageForBox(each.at("data-title").toStdString())),
              QStringLiteral("refusals.html#") + section);
  }
  EXPECT_EQ(told - messagesOfForm(), QSet<QString>());
  EXPECT_EQ(messagesOfForm() - told, QSet<QString>());
}

// Figures ----------------------------------------------------------------------------------------

/// The asset of an example, calculated by every method.
struct Example {
  explicit Example(const Element& element)
      : start(date(element.of("data-start"))), year_end(Date::strict(2000, 3, 31)) {
    const auto number = [&](const char* name) {
      return numberFromText(element.of(name).toStdString());
    };
    convention = std::string(conventionDigit(element.of("data-convention").toStdString()));
    asset.AssetBasis(Currency::fromText(element.of("data-basis").toStdString()));
    asset.AssetSalvage(Currency::fromText(element.of("data-salvage").toStdString()));
    asset.DepRecovery(number("data-life"));
    asset.AssetStartDate(start);
    asset.FYEnd(year_end);
    asset.AssetProdCap(element.of("data-capacity").toStdString());
    asset.DepConvention(convention);
    calculateAllMethods(asset, results);
  }

  static Date date(const QString& text) {
    return Date::fromText(text.toStdString(), Date::strict(2024, 1, 1));
  }
  [[nodiscard]] int firstYear() const { return firstFiscalYear(start, year_end); }
  [[nodiscard]] const std::vector<Currency>& amounts(const QString& method) const {
    return method == "SL"    ? results.straight_line
           : method == "SYD" ? results.sum_of_years_digits
                             : results.double_declining_balance;
  }
  [[nodiscard]] Currency depreciable() const { return asset.AssetBasis() - asset.AssetSalvage(); }

  CalculateDep asset;
  MethodResults results;
  Date start;
  Date year_end;
  std::string convention;
};

Currency sum(const std::vector<Currency>& amounts, std::size_t count) {
  Currency total;
  for (std::size_t i = 0; i < std::min(count, amounts.size()); ++i) total += amounts[i];
  return total;
}

QString money(Currency amount) { return qt(formatMoney(amount)); }

QString amountOf(const Example& example, const QString& method, const QString& year) {
  const std::vector<Currency>& amounts = example.amounts(method);
  const Currency total = sum(amounts, amounts.size());
  if (year == "total") return money(total);
  if (year == "left") return money(example.depreciable() - total);
  const auto index = static_cast<std::size_t>(year.toInt() - example.firstYear());
  return index < amounts.size() ? money(amounts[index]) : QStringLiteral("no such year");
}

QString inputOf(const Example& example, const Element& element) {
  const QString input = element.at("data-input");
  if (input == "basis") return money(example.asset.AssetBasis());
  if (input == "salvage") return money(example.asset.AssetSalvage());
  if (input == "depreciable") return money(example.depreciable());
  if (input == "proceeds")
    return money(Currency::fromText(element.of("data-proceeds").toStdString()));
  if (input == "life") return element.of("data-life");
  if (input == "convention") return element.of("data-convention");
  if (input == "start") return qt(example.start.toText());
  return qt(formatWhole(numberFromText(element.of("data-capacity").toStdString())));
}

/// The share of the first fiscal year by a convention, to four decimals.
double shareOf(const Example& example, const QString& convention) {
  const int number = conventionDigit(convention.toStdString())[0] - '0';
  const Date end = Date::strict(example.firstYear(), 3, 31);
  const Date begin = Date::strict(example.firstYear() - 1, 4, 1);
  return firstYearFraction(number, depreciationStart(number, example.start, begin, end), end);
}

QString firstAmountOf(const Element& element, const QString& convention) {
  Example example(element);
  example.asset.DepConvention(conventionDigit(convention.toStdString()));
  calculateAllMethods(example.asset, example.results);
  return money(example.results.straight_line.front());
}

QString disposalOf(const Example& example, const Element& element) {
  const Date day = Example::date(element.of("data-disposed"));
  const int year = firstFiscalYear(day, example.year_end);
  const auto index = static_cast<std::size_t>(year - example.firstYear());
  const std::vector<Currency>& amounts = example.amounts(element.of("data-chosen"));
  const int convention = example.convention[0] - '0';
  const double held =
      shareHeld(convention, Date::strict(year - 1, 4, 1), Date::strict(year, 3, 31), day);
  const Currency depreciation = amountOfDisposalYear(
      amounts[index], held,
      shareCovered(convention, shareOf(example, element.of("data-convention")), false));
  const Currency accumulated = sum(amounts, index) + depreciation;
  const QString figure = element.at("data-disposal");
  if (figure == "depreciation") return money(depreciation);
  if (figure == "accumulated") return money(accumulated);
  if (figure == "book") return money(example.asset.AssetBasis() - accumulated);
  const Currency proceeds = Currency::fromText(element.of("data-proceeds").toStdString());
  return money(gainOnDisposal(proceeds, example.asset.AssetBasis(), accumulated));
}

/// What the engine makes of a marked cell; null for one that is not marked.
QString calculated(const Element& element) {
  if (element.example.isEmpty()) return {};
  const Example example(element);
  if (element.has("data-input")) return inputOf(example, element);
  if (element.has("data-year")) {
    return amountOf(example, element.at("data-method"), element.at("data-year"));
  }
  if (element.has("data-share")) {
    return QString::number(shareOf(example, element.at("data-share")), 'f', 4);
  }
  if (element.has("data-first")) return firstAmountOf(element, element.at("data-first"));
  if (element.has("data-disposal")) return disposalOf(example, element);
  if (element.has("data-rate")) return qt(formatRate(example.results.rate));
  if (element.has("data-units")) {
    return money(amountOfUnits(element.at("data-units").toDouble(), example.results.rate,
                               example.depreciable()));
  }
  return {};
}

TEST(GuideFigures, AreTheEngines) {
  int figures = 0;
  onEvery([&](const QString& file, const Element& element) {
    const QString expected = calculated(element);
    if (expected.isNull()) return;
    ++figures;
    EXPECT_EQ(element.text, expected) << file.toStdString();
  });
  EXPECT_GE(figures, 70);
}

/// An amount in a table of an example that nobody works out would be taken on trust.
TEST(GuideFigures, AreMarkedInEveryTableOfAnExample) {
  onEvery([&](const QString& file, const Element& element) {
    const bool amount = element.name == "td" && element.at("class") == "n" &&
                        element.text.contains(QRegularExpression("[0-9]\\.[0-9]"));
    if (!amount || element.has("data-step")) return;
    EXPECT_FALSE(calculated(element).isNull())
        << file.toStdString() << ": " << element.text.toStdString();
  });
}

/// Steps stand as they are worked out: "34,450.00 × 5/15 × 0.5".
TEST(GuideFigures, HaveStepsThatArriveAtTheirAmounts) {
  int steps = 0;
  onEvery([&](const QString& file, const Element& element) {
    if (!element.has("data-step")) return;
    ++steps;
    double value = 1;
    for (const QString& factor : element.at("data-step").split(u'*')) {
      const QStringList parts = factor.split(u'/');
      value *= parts[0].toDouble();
      if (parts.size() > 1) value /= parts[1].toDouble();
    }
    EXPECT_EQ(element.text, QLocale(QLocale::English).toString(value, 'f', 4))
        << file.toStdString();
  });
  EXPECT_GE(steps, 2);
}

}  // namespace
}  // namespace depcalc::testing
