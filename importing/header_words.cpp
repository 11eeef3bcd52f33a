#include "importing/header_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "values/utf8.h"

namespace depcalc {
namespace {

/// From U+00C0 to U+00FF; a blank is none.
constexpr std::string_view base_letters =
    "aaaaaaaceeeeiiiidnooooo ouuuuypsaaaaaaaceeeeiiiidnooooo ouuuuypy";

/// In English, German, French, Spanish and Italian, as `plainLetters` has them, the more usual ones
/// first; in the order of AssetColumn.
constexpr std::array<std::string_view, asset_column_names.size()> column_words{
    "id assetid assetno assetnumber assetnr assetcode assettag tag fixedasset fixedassetno "
    "fano anlagennummer anlagennr anlagenr anlage inventarnummer inventarnr invnr "
    "nimmobilisation numeroimmobilisation codeimmobilisation numero codigo codice nummer "
    "number no nr code",
    "name assetname description assetdescription asset bezeichnung anlagenbezeichnung "
    "beschreibung designation libelle descripcion descrizione nombre nom item text",
    "serial serialnumber serialno serialnr sn seriennummer seriennr fabriknummer "
    "numerodeserie nserie numerodiserie",
    "department dept deptloc departmentlocation costcenter costcentre location abteilung "
    "kostenstelle standort service departement departamento reparto ubicacion",
    "placedinservice placedinservicedate dateplacedinservice inservicedate inservice "
    "startdate capitalizationdate capitalisationdate capdate purchasedate dateofpurchase "
    "purchased acquisitiondate dateacquired acquired inbetriebnahme aktivierungsdatum "
    "anschaffungsdatum anschaffung kaufdatum zugangsdatum zugang datedemiseenservice "
    "miseenservice datedacquisition dateachat datedachat fechadecompra fechadeadquisicion "
    "datadiacquisto date datum",
    "fiscalyearend endoffiscalyear fyend fye yearend geschaftsjahresende "
    "wirtschaftsjahresende",
    "life usefullife usefullifeyears lifeyears lifeinyears usefullifeinyears recoveryperiod "
    "depreciationperiod years nutzungsdauer nutzungsdauerjahre nutzungsdauerinjahren nd "
    "ndjahre abschreibungsdauer laufzeit duree dureedutilisation dureedamortissement "
    "vidautil vitautile",
    "convention proratingconvention averagingconvention konvention",
    "basis cost costbasis originalcost historicalcost historiccost acquisitioncost "
    "acquisitionvalue purchaseprice purchasecost purchasevalue assetcost depreciablebasis "
    "anschaffungskosten anschaffungswert anschaffungsundherstellungskosten "
    "anschaffungsherstellungskosten ahk ak kaufpreis coutdacquisition valeurdacquisition "
    "valeurdorigine costedeadquisicion coste costo costostorico price value amount",
    "salvage salvagevalue residualvalue residual scrapvalue restwert schrottwert "
    "valeurresiduelle valorresidual valoreresiduo",
    "capacity productioncapacity totalunits units lifetimeunits gesamtleistung kapazitat "
    "leistung",
    "method depreciationmethod deprmethod depmethod methode abschreibungsmethode afaart "
    "afamethode methodedamortissement metodo",
    "disposed disposaldate dateofdisposal disposedon datedisposed retirementdate retired "
    "saledate datesold abgangsdatum abgang datedecession fechadebaja",
    "proceeds saleprice disposalproceeds saleproceeds salesproceeds erlos verkaufserlos "
    "prixdecession",
};

/// What stands beside the year of an amount.
constexpr std::array<std::string_view, 17> amount_words{
    "fy",     "fiscalyear",    "year",         "depreciation", "depr",        "dep",
    "amount", "geschaftsjahr", "abschreibung", "gj",           "wj",          "jahr",
    "afa",    "amortissement", "exercice",     "amortizacion", "ammortamento"};

/// How far behind the most usual name of `column` this one stands; nothing where it is none.
std::optional<std::size_t> rankOf(std::string_view plain, AssetColumn column) {
  std::string_view words = column_words[static_cast<std::size_t>(column)];
  std::size_t rank = 0;
  while (!words.empty() && !plain.empty()) {
    const std::size_t end = std::min(words.find(' '), words.size());
    if (words.substr(0, end) == plain) return rank;
    words.remove_prefix(std::min(end + 1, words.size()));
    ++rank;
  }
  return std::nullopt;
}

int numberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// "2024", "24", "202324" and "20232024".
std::optional<int> yearOf(std::string_view digits, bool may_be_short) {
  constexpr int first = 1900;
  constexpr int last = 2199;
  if (digits.size() == 2 && may_be_short) return 2000 + numberOf(digits);
  if (digits.size() != 4 && digits.size() != 6 && digits.size() != 8) return std::nullopt;
  const int year = numberOf(digits.substr(0, 4));
  if (year < first || year > last) return std::nullopt;
  if (digits.size() == 4) return year;
  const std::string next = std::to_string(year + 1);
  return std::string_view(next).ends_with(digits.substr(4)) ? std::optional(year + 1)
                                                            : std::nullopt;
}

std::optional<AmountOfYear> amountNamed(std::string_view plain) {
  constexpr std::string_view figures = "0123456789";
  const std::size_t begin = plain.find_first_of(figures);
  if (begin == std::string_view::npos) return std::nullopt;
  const std::size_t end = std::min(plain.find_first_not_of(figures, begin), plain.size());
  std::string rest(plain.substr(0, begin));
  const bool is_fy = rest.ends_with("fy");
  rest.append(plain.substr(end));
  while (!rest.empty()) {
    const auto* word =
        std::find_if(amount_words.begin(), amount_words.end(),
                     [&](std::string_view known) { return rest.starts_with(known); });
    if (word == amount_words.end()) return std::nullopt;
    rest.erase(0, word->size());
  }
  const auto year = yearOf(plain.substr(begin, end - begin), is_fy);
  return year ? std::optional(AmountOfYear{*year}) : std::nullopt;
}

}  // namespace

std::string plainLetters(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const Utf8Character character = decodedFirst(text);
    const char32_t code = character.code;
    if ((code >= U'a' && code <= U'z') || (code >= U'0' && code <= U'9')) {
      plain.push_back(static_cast<char>(code));
    } else if (code >= U'A' && code <= U'Z') {
      plain.push_back(static_cast<char>(code - U'A' + U'a'));
    } else if (code >= 0xC0 && code <= 0xFF && character.length == 2) {
      if (const char base = base_letters[code - 0xC0]; base != ' ') plain.push_back(base);
    } else if (code > 0xFF && code < 0x2000) {
      plain.append(text.substr(0, character.length));
    }
    text.remove_prefix(character.length);
  }
  return plain;
}

std::string nameOfUse(const ColumnUse& use) {
  if (const auto* column = std::get_if<AssetColumn>(&use)) return std::string(nameOf(*column));
  const auto* amount = std::get_if<AmountOfYear>(&use);
  return amount == nullptr ? "" : "fy" + std::to_string(amount->year);
}

std::optional<ColumnUse> useNamed(std::string_view name) {
  if (name.empty()) return ColumnUse();
  for (std::size_t i = 0; i < asset_column_names.size(); ++i) {
    if (name == asset_column_names[i]) return ColumnUse(static_cast<AssetColumn>(i));
  }
  const auto amount = name.starts_with("fy") ? amountNamed(name) : std::nullopt;
  return amount ? std::optional(ColumnUse(*amount)) : std::nullopt;
}

std::vector<ColumnUse> usesOfHeader(std::span<const std::string> header) {
  std::vector<std::string> plain(header.size());
  std::transform(header.begin(), header.end(), plain.begin(),
                 [](const std::string& text) { return plainLetters(text); });
  std::vector<ColumnUse> uses(header.size());
  for (std::size_t i = 0; i < header.size(); ++i) {
    const auto amount = amountNamed(plain[i]);
    const bool again =
        amount && std::find(uses.begin(), uses.end(), ColumnUse(*amount)) != uses.end();
    if (amount && !again) uses[i] = *amount;
  }
  for (std::size_t c = 0; c < asset_column_names.size(); ++c) {
    std::size_t best = std::numeric_limits<std::size_t>::max();
    std::optional<std::size_t> at;
    for (std::size_t i = 0; i < plain.size(); ++i) {
      const auto rank = rankOf(plain[i], static_cast<AssetColumn>(c));
      if (!rank || *rank >= best || !std::holds_alternative<std::monostate>(uses[i])) continue;
      best = *rank;
      at = i;
    }
    if (at) uses[*at] = static_cast<AssetColumn>(c);
  }
  return uses;
}

}  // namespace depcalc
