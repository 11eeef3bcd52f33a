// Files of every dialect on their way into a register.
#include "importing/asset_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/method_results.h"
#include "host/failing/failing_host.h"
#include "host/memory/memory_host.h"
#include "importing/asset_saving.h"

namespace depcalc {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const ImportingCompany company{Date::strict(2024, 6, 15), Date::strict(2024, 12, 31), 0};

struct Importing {
  explicit Importing(std::string bytes, Duplicates duplicates = {}, AssetImport::Recall recall = {},
                     const ImportingCompany& into = company)
      : import(std::move(bytes), into, std::move(duplicates), std::move(recall)) {
    finish();
  }
  void finish() {
    while (import.goOn(7)) {
    }
  }
  /// "id|name|date|life|basis|salvage|method" of each asset.
  std::vector<std::string> assets() {
    std::vector<std::string> texts;
    for (const CalculateDepPtr& asset : import.assets()) {
      texts.push_back(asset->AssetID() + "|" + asset->AssetName() + "|" +
                      asset->AssetStartDate().toIsoText() + "|" +
                      std::to_string(static_cast<int>(asset->DepRecovery())) + "|" +
                      asset->AssetBasis().toText() + "|" + asset->AssetSalvage().toText() + "|" +
                      asset->DepMethod());
    }
    return texts;
  }
  std::string problems(std::size_t row) {
    std::string text;
    for (const RowFinding& finding : import.row(row).problems) {
      text += (finding.column ? std::string(nameOf(*finding.column)) : "row"s) + ": " +
              finding.message + "\n";
    }
    return text;
  }

  AssetImport import;
};

std::string utf16(std::string_view ascii, bool little) {
  std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : ascii) little ? bytes.append({c, '\0'}) : bytes.append({'\0', c});
  return bytes;
}

TEST(AssetImport, FindsOutEveryDialect) {
  const std::pair<const char*, std::string> files[] = {
      {"American",
       "Asset No,Description,Purchase date,Useful life,Cost,Salvage\n"
       "A1,\"Truck, red\",03/15/2020,5,\"38,450.50\",\"4,000.00\"\n"},
      {"American, tabs",
       "Asset No\tDescription\tPurchase date\tUseful life\tCost\tSalvage\n"
       "A1\tTruck, red\t3/15/2020\t5\t\"$38,450.50\"\t\"$4,000.00\"\n"},
      {"British",
       "Asset No,Description,Acquisition date,Life,Cost,Residual value\r\n"
       "A1,\"Truck, red\",15/03/2020,5,£38450.50,£4000\r\n"},
      {"German",
       "Anlagen-Nr.;Bezeichnung;Anschaffungsdatum;Nutzungsdauer;AHK;Restwert\r\n"
       "A1;Truck, red;15.03.2020;5;38.450,50 €;4.000,00 €\r\n"},
      {"German, short",
       "Anlagen-Nr.;Bezeichnung;Anschaffungsdatum;ND;AHK;Restwert\r\n"
       "A1;Truck, red;15.3.20;5;38450,5;4000\r\n"},
      {"French",
       "N° immobilisation;Libellé;Date de mise en service;Durée;Coût d'acquisition;Valeur "
       "résiduelle\nA1;Truck, red;15/03/2020;5;38\u202F450,50 €;4\u00A0000,00 €\n"},
      {"Swiss",
       "Nummer;Bezeichnung;Anschaffung;Nutzungsdauer;AHK;Restwert\n"
       "A1;Truck, red;15.03.2020;5;CHF 38'450.50;4’000.00\n"},
      {"ISO and bars",
       "id|name|placed_in_service|life|basis|salvage\n"
       "A1|Truck, red|2020-03-15|5|38450.5|4000\n"},
      {"told by its first line",
       "sep=;\nID;Name;In service;Life;Cost;Salvage\n"
       "A1;Truck, red;2020-03-15;5;38450.50;4000\n"},
      {"titled",
       "Fixed assets,,,,,\n\n,,,,,\nID,Name,In service,Life,Cost,Salvage\n"
       "A1,\"Truck, red\",15-Mar-2020,5,38450.50,(0)\n"},
      {"Unicode text", utf16("ID\tName\tIn service\tLife\tCost\tSalvage\r\n"
                             "A1\tTruck, red\t3/15/2020\t5\t\"38,450.50\"\t4000\r\n",
                             true)},
      {"Unicode text, big-endian", utf16("ID\tName\tIn service\tLife\tCost\tSalvage\r\n"
                                         "A1\tTruck, red\t3/15/2020\t5\t38450.50\t4000\r\n",
                                         false)},
  };
  for (const auto& [what, bytes] : files) {
    Importing file(bytes);
    EXPECT_EQ(file.import.obstacle(), std::nullopt) << what;
    const char* salvage = what == "titled"s ? "0" : "4000";
    EXPECT_THAT(file.assets(), ElementsAre("A1|Truck, red|2020-03-15|5|38450.5|"s + salvage + "|"))
        << what;
  }
}

TEST(AssetImport, FindsOutDatesAndNumbersFromAllRows) {
  Importing file(
      "id;in "
      "service;life;cost\n1;03/04/2020;5;1.200\n2;05/06/2020;5;1.300\n3;25/06/2020;5;1.400,5\n");
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_THAT(file.assets(), ElementsAre("1||2020-04-03|5|1200|0|", "2||2020-06-05|5|1300|0|",
                                         "3||2020-06-25|5|1400.5|0|"));
}

TEST(AssetImport, AsksWhatCannotBeFoundOut) {
  Importing file("id,in service,life,cost\n1,03/04/2020,5,\"1,200\"\n");
  EXPECT_EQ(file.import.obstacle(),
            "\"03/04/2020\" can be read as two days. Please choose the order of day and month.");
  file.import.setDates(DateOrder::day_month_year);
  file.finish();
  EXPECT_EQ(file.import.obstacle(),
            "\"1,200\" can be read as two numbers. Please choose the decimal sign.");
  file.import.setDecimal(DecimalSign::point);
  file.finish();
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_THAT(file.assets(), ElementsAre("1||2020-04-03|5|1200|0|"));
  file.import.setUse(0, AssetColumn::serial);
  file.finish();
  EXPECT_EQ(file.import.obstacle(), std::nullopt) << "what was chosen stays";
}

TEST(AssetImport, RefusesInTheFormsOwnWords) {
  const std::string header =
      "id;in service;life;cost;salvage;capacity;method;convention;disposed;proceeds\n";
  const struct {
    const char* row;
    const char* problem;
  } cases[] = {
      {"1;;5;100;0;;;;;", "placed_in_service: Please enter the Placed-in-service Date.\n"},
      {"1;31.02.2020;5;100;0;;;;;", "placed_in_service: Please enter a valid date.\n"},
      {"1;12/31/2020;5;100;0;;;;;", "placed_in_service: Please enter a valid date.\n"},
      {"1;15.03.2020;;100;0;;;;;", "life: Please enter the useful life.\n"},
      {"1;15.03.2020;x;100;0;;;;;", "life: Please enter a valid number.\n"},
      {"1;15.03.2020;60;100;0;;;;;", "life: Please enter a number less than or equal to 50.\n"},
      {"1;15.03.2020;-1;100;0;;;;;", "life: The useful life must be a positive number.\n"},
      {"1;15.03.2020;5;;0;;;;;", "basis: Please enter the basis.\n"},
      {"1;15.03.2020;5;12.50;0;;;;;", "basis: Please enter a valid number.\n"},
      {"1;15.03.2020;5;-12,50;0;;;;;", "basis: The basis must be a positive number.\n"},
      {"1;15.03.2020;5;10.000.000;0;;;;;", "basis: The basis must be less than 10,000,000.\n"},
      {"1;15.03.2020;5;100;200;;;;;",
       "salvage: The salvage value of the asset must be less than the basis.\n"},
      {"1;15.03.2020;5;100;0;-5;;;;",
       "capacity: The production capacity must be a positive number.\n"},
      {"1;15.03.2020;5;100;0;;XYZ;;;", "method: Please enter SL, SYD, DDB or UOP.\n"},
      {"1;15.03.2020;5;100;0;;;9;;",
       "convention: Please enter a number from 0 to 4, Full Year, Half Year, Full Month, Half "
       "Month or "
       "Actual Days.\n"},
      {"1;15.03.2020;5;100;0;;;;;50,00", "proceeds: Please enter the date of the disposal, too.\n"},
      {"1;15.03.2020;5;100;0;;;;01.01.2019;",
       "disposed: The asset was placed in service on 03/15/2020. Please enter that day or a later "
       "one.\n"},
      {"1;15.03.2020;5",
       "row: The row has 3 fields, but the header has 10. Please check each of them.\n"
       "basis: Please enter the basis.\n"},
      {"1;15.03.2020;5;100;\"0;;;;;",
       "row: The quote opened here is never closed; please add the "
       "closing quote.\n"},
  };
  for (const auto& [row, problem] : cases) {
    Importing file(header + "0;15.03.2020;5;1.000,50;0;;Straight line;half-year;;\n" + row + "\n");
    ASSERT_EQ(file.import.rowCount(), 2U) << row;
    EXPECT_EQ(file.problems(0), "");
    EXPECT_EQ(file.problems(1), problem) << row;
    EXPECT_EQ(file.import.obstacle(), "Please correct the rows with problems, or leave them out.");
  }
}

TEST(AssetImport, JudgesARowAgainOnceItIsCorrected) {
  Importing file("id;in service;life;cost\n1;15.03.2020;60;100\n2;15.03.2020;5;200\n");
  EXPECT_EQ(file.import.summary(), "1 asset ready · 1 with problems");
  EXPECT_THAT(file.import.inOrder(RowFilter::all), ElementsAre(0U, 1U));
  EXPECT_THAT(file.import.inOrder(RowFilter::problems), ElementsAre(0U));
  file.import.edit(0, AssetColumn::life, "6");
  EXPECT_EQ(file.import.summary(), "2 assets ready");
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_THAT(file.assets(), ElementsAre("1||2020-03-15|6|100|0|", "2||2020-03-15|5|200|0|"));
  file.import.edit(0, AssetColumn::basis, "1.250,5");
  EXPECT_THAT(file.assets(), testing::Contains("1||2020-03-15|6|1250.5|0|"))
      << "it is written as the file writes";
}

TEST(AssetImport, ARowOfAnotherWidthIsSeenToByCorrectingIt) {
  Importing file("id,in service,life,cost\n1,2020-03-15,5,1,200\n2,2020-03-15,5,300\n");
  EXPECT_EQ(file.import.summary(), "1 asset ready · 1 with problems");
  file.import.edit(0, AssetColumn::basis, "1200");
  EXPECT_EQ(file.import.summary(), "2 assets ready");
}

TEST(AssetImport, LeavesOutWhatTheUserLeavesOut) {
  Importing file("id;in service;life;cost\n1;;5;100\n2;15.03.2020;5;200\n");
  file.import.take(0, false);
  EXPECT_EQ(file.import.summary(), "1 asset ready · 1 left out by you");
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_THAT(file.assets(), ElementsAre("2||2020-03-15|5|200|0|"));
  file.import.take(1, false);
  EXPECT_EQ(file.import.obstacle(), "No asset is left to import.");
}

TEST(AssetImport, MarksDuplicatesWithinTheFileAndAgainstTheRegister) {
  auto host = std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1),
                                                  MemoryCompanyFile::Units::offered);
  CompanyAssets register_assets(host, company.today);
  auto known = std::make_shared<CalculateDep>();
  known->AssetID("R1");
  known->AssetStartDate(Date::strict(2020, 1, 1));
  ASSERT_EQ(saveAssets(register_assets, {known}, true, [](std::size_t) {}), std::nullopt);
  Importing file(
      "id,serial,in service,life,cost\nA,1,2020-03-15,5,100\nR1,2,2020-03-15,5,100\n"
      "B,1,2020-03-15,5,100\n,,2020-03-15,5,100\n,,2020-03-15,5,100\n",
      Duplicates(register_assets));
  EXPECT_EQ(file.import.summary(), "3 assets ready · 2 duplicates left out");
  EXPECT_THAT(
      file.import.row(1).duplicates,
      ElementsAre(RowFinding{AssetColumn::id, "Asset 1 of the register already has this ID."}));
  EXPECT_THAT(
      file.import.row(2).duplicates,
      ElementsAre(RowFinding{AssetColumn::serial, "Line 2 already has this serial number."}));
  EXPECT_EQ(file.import.assets().size(), 3U);
  file.import.take(1, true);
  EXPECT_EQ(file.import.summary(),
            "4 assets ready · 1 duplicate left out · 1 duplicate among them");
  file.import.leaveOutDuplicates(false);
  EXPECT_EQ(file.import.summary(), "5 assets ready · 2 duplicates among them");
  EXPECT_EQ(file.import.assets().size(), 5U);
  file.import.edit(1, AssetColumn::id, "R2");
  file.import.take(0, false);
  EXPECT_EQ(file.import.counts().repeated, 0U) << "nobody else has the serial number now";
}

TEST(AssetImport, HoldsTheFilesAmountsAgainstOurs) {
  Importing file(
      "id;in service;life;cost;salvage;method;FY2020;FY2021;FY2022;FY2023\n"
      "1;01.01.2020;3;1.000,00;100,00;SL;300,00;300,00;299,99;\n"
      "2;01.01.2020;3;1.000,00;100,00;SL;300;300;300;-\n"
      "3;01.01.2020;3;1.000,00;100,00;;300;300;300;0\n"
      "4;01.01.2020;3;1.000,00;100,00;SL;n/a;300;300;0\n");
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_EQ(file.import.summary(), "4 assets ready · 2 with amounts that differ");
  const auto amounts = file.import.amountsOf(0);
  ASSERT_EQ(amounts.size(), 3U);
  EXPECT_EQ(amounts[2].year, 2022);
  EXPECT_EQ(amounts[2].in_file, "299,99");
  EXPECT_EQ(amounts[2].expected, Currency::fromText("299.99"));
  EXPECT_EQ(amounts[2].calculated, Currency::fromText("300"));
  EXPECT_THAT(file.import.amountsOf(2), IsEmpty()) << "nothing is calculated";
  EXPECT_THAT(file.import.inOrder(RowFilter::differences), ElementsAre(0U, 3U));
  file.import.setMethod("SL");
  file.finish();
  EXPECT_EQ(file.import.amountsOf(2).size(), 4U);
  EXPECT_EQ(file.import.row(2).differences, 0U);
}

TEST(AssetImport, CanBeCorrectedInEverythingItFoundOut) {
  Importing file("a;b;c;d\nx;15.03.2020;5;1,5\n");
  EXPECT_EQ(file.import.settings().header_row, 1U);
  EXPECT_EQ(file.import.obstacle(),
            "Please choose the column of the file that holds the placed-in-service date.");
  file.import.setUse(0, AssetColumn::name);
  file.import.setUse(1, AssetColumn::placed_in_service);
  file.import.setUse(2, AssetColumn::life);
  file.import.setUse(3, AssetColumn::basis);
  file.finish();
  EXPECT_THAT(file.assets(), ElementsAre("|x|2020-03-15|5|1.5|0|"));
  file.import.setUse(2, AssetColumn::name);
  file.finish();
  EXPECT_EQ(file.import.settings().uses[0], ColumnUse()) << "a name stands in one column";
  file.import.setSeparator(',');
  file.finish();
  EXPECT_THAT(file.import.header(), ElementsAre("a;b;c;d"));
  file.import.setSeparator(';');
  file.finish();
  file.import.setHeaderRow(0);
  file.finish();
  EXPECT_EQ(file.import.rowCount(), 2U);
  EXPECT_THAT(file.import.header(), ElementsAre("Column 1", "Column 2", "Column 3", "Column 4"));
  Importing german("id;name;in service;life;cost\n1;B\xFCro;15.03.2020;5;100\n");
  EXPECT_THAT(german.assets(), ElementsAre("1|Büro|2020-03-15|5|100|0|"));
  german.import.setEncoding(Encoding::windows_1250);
  german.finish();
  EXPECT_EQ(german.import.unreadableCharacters(), 0U);
  german.import.setEncoding(Encoding::utf8);
  german.finish();
  EXPECT_EQ(german.import.unreadableCharacters(), 1U);
}

TEST(AssetImport, RemembersTheColumnsOfAHeader) {
  std::vector<std::string> asked;
  Importing file("what;when;years;price\nx;15.03.2020;5;1,5\n", {},
                 [&](const std::vector<std::string>& header) {
                   asked = header;
                   return std::vector<ColumnUse>{AssetColumn::serial,
                                                 AssetColumn::placed_in_service, AssetColumn::life,
                                                 AssetColumn::basis};
                 });
  EXPECT_THAT(asked, ElementsAre("what", "when", "years", "price"));
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
  EXPECT_EQ(file.import.row(0).serial, "x");
}

TEST(AssetImport, SaysWhenTheRegisterHasNoRoom) {
  ImportingCompany full = company;
  full.assets = most_assets - 1;
  const std::string text = "id,in service,life,cost\n1,2020-03-15,5,1\n2,2020-03-15,5,1\n";
  Importing file(text, {}, {}, full);
  EXPECT_EQ(file.import.obstacle(),
            "The register holds at most 32,767 assets; it has 32,766, and the file has 2 more.");
  file.import.take(0, false);
  EXPECT_EQ(file.import.obstacle(), std::nullopt);
}

TEST(AssetImport, IsWholeForAFullRegister) {
  std::string text = "id,in service,life,cost\n";
  for (int i = 0; i < 40'000; ++i) text += "A" + std::to_string(i) + ",2020-03-15,5,100.50\n";
  Importing file(text);
  EXPECT_EQ(file.import.rowCount(), 32'866U) << "what can never be saved is only counted";
  EXPECT_THAT(file.import.obstacle().value_or(""), HasSubstr("the file has 40,000 more."));
}

TEST(AssetImport, HasNothingToOfferOfAnEmptyFile) {
  for (const char* text : {"", "\n\n", ";;;\n", "id;in service;life;cost\n"}) {
    Importing file(text);
    EXPECT_EQ(file.import.obstacle(), "The file has no rows with assets.") << text;
    EXPECT_EQ(file.import.done(), 1);
  }
}

/// A host of which call `fails` fails: nothing of the import may reach the file.
TEST(AssetImport, ImportsAllOrNothingWhicheverCallOfTheHostFails) {
  Importing file("id,in service,life,cost,method\n1,2020-03-15,5,100,SL\n2,2020-03-15,5,100,DDB\n");
  std::size_t failures = 0;
  for (int fails = 1; fails < 5'000; ++fails) {
    auto memory = std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1),
                                                      MemoryCompanyFile::Units::offered);
    {
      CompanyAssets before(memory, company.today);
      auto known = std::make_shared<CalculateDep>();
      known->AssetStartDate(Date::strict(2020, 1, 1));
      ASSERT_EQ(saveAssets(before, {known}, true, [](std::size_t) {}), std::nullopt);
    }
    const auto failing =
        failingCompanyFile(memory, std::make_shared<FailurePlan>(FailurePlan{.fail_at = fails}));
    std::optional<std::string> report;
    try {
      CompanyAssets into(failing, company.today);
      report = saveAssets(into, file.import.assets(), true, [](std::size_t) {});
    } catch (const RuntimeError& error) {
      report = "thrown";
    }
    const std::int32_t count = CompanyAssets(memory, company.today).assetCount();
    if (!report) {
      EXPECT_EQ(count, 3);
      EXPECT_GT(failures, 10U) << "calls that fail were met";
      return;
    }
    ++failures;
    EXPECT_EQ(count, 1) << "call " << fails;
  }
  FAIL() << "the import never succeeds";
}

}  // namespace
}  // namespace depcalc
