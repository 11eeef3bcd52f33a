#include "desktop/window/calculator.h"

#include "common/trapped.h"
#include "desktop/widgets/grid_widget.h"
#include "desktop/window/missing_assets.h"
#include "help/dep_calc_popup.h"
#include "values/number_text.h"

namespace depcalc::desktop {
namespace {

bool isCollapsed(const Grid& table) {
  for (int column = 0; column < table.columns(); ++column) {
    if (table.columnWidth(column) == 0) return true;
  }
  for (int row = 0; row < table.rows(); ++row) {
    if (table.rowHeight(row) == 0) return true;
  }
  return false;
}

}  // namespace

Calculator::Calculator(Site& site, std::shared_ptr<DesktopApplication> host, const Scale& scale,
                       const Colours& colours)
    : stage_(site),
      watched_screens_(screens_, [host](std::int32_t number,
                                        const auto& answer) { host->deletion(number, answer); }),
      container_(stage_, watched_screens_, [host] { return host; }),
      surface_(stage_, scale, colours) {}

void Calculator::start() {
  container_.show();
  surface_.act([this](User&) { container_.DepCalcCont_Initialize(); });
}

DepCalcView* Calculator::assetRegister() {
  return dynamic_cast<DepCalcView*>(container_.child("DepCalcView1"));
}

DepCalcCtl* Calculator::entryForm() {
  return dynamic_cast<DepCalcCtl*>(container_.visibleScreen());
}

bool Calculator::entersAnAsset() {
  const UserControl* const screen = container_.visibleScreen();
  return screen != nullptr && screen != assetRegister();
}

bool Calculator::validateField() {
  bool agreed = true;
  if (entersAnAsset()) surface_.act([&](User& user) { agreed = user.validateFocused(); });
  return agreed;
}

bool Calculator::asksWhenLeft() { return entersAnAsset() && container_.asksWhenLeft(); }

void Calculator::loseFocus() {
  if (entersAnAsset()) surface_.act([](User& user) { user.loseFocus(); });
}

void Calculator::showMainHelp() {
  surface_.act([this](User&) { container_.ShowMainHelp(); });
}

void Calculator::showHelpLink(int number) {
  showMainHelp();
  stage_.pumpPaint();
  auto* const popup = dynamic_cast<DepCalcPopup*>(container_.child("DepCalcPopup1"));
  if (popup == nullptr) return;
  Label& link = popup->LinkLabel.at(static_cast<std::size_t>(number));
  surface_.act([&link](User& user) { user.click(link); });
}

void Calculator::print(Printer& printer) {
  DepCalcView* const view = assetRegister();
  if (view == nullptr) return;
  trapped("DepCalcDesktop::print", [&] {
    showRegister();
    view->GetPrintPictures(printer);
    printer.endJob();
  });
  readCollapsedRegister();
}

QString Calculator::missingOnPaper(Printer& printer) {
  const DepCalcView* const view = assetRegister();
  if (view == nullptr) return {};
  showRegister();
  return missingAssetsNote(view->AssetViewTable, printer);
}

void Calculator::showRegister() {
  container_.ShowView(emv_ViewAll);
  stage_.pumpPaint();
}

void Calculator::readCollapsedRegister() {
  DepCalcView* const view = assetRegister();
  if (view == nullptr || !isCollapsed(view->AssetViewTable)) return;
  Grid& table = view->AssetViewTable;
  const int row = table.row();
  const int column = table.column();
  view->hide();
  showRegister();
  if (column > 0 && column < table.columns() && row < table.rows()) {
    surface_.act([&](User& user) { user.clickCell(table, row, column); });
  }
}

std::optional<int> Calculator::assetCount() {
  if (container_.TableName().empty() || container_.m_orvcf() == nullptr) return std::nullopt;
  std::optional<int> count;
  trapped("DepCalcDesktop::assetCount", [&] {
    const int records = container_.m_orvcf()->OpenTable(container_.TableName())->Count();
    count = std::max(0, records - 1);
  });
  return count;
}

std::optional<int> Calculator::currentAsset() {
  const CalculateDepPtr record = container_.CurrentRecord();
  if (record == nullptr) return std::nullopt;
  const double number = tryNumberFromText(record->RecIndex()).value_or(0.0);
  const int count = assetCount().value_or(0);
  return number >= 1 && number <= count ? std::optional(static_cast<int>(number)) : std::nullopt;
}

void Calculator::selectAsset(int number) {
  DepCalcView* const view = assetRegister();
  if (view == nullptr || container_.visibleScreen() != view) return;
  Grid& table = view->AssetViewTable;
  if (number >= table.columns()) return;
  surface_.act([&](User& user) { user.clickCell(table, 0, number); });
  if (auto* const grid = dynamic_cast<GridWidget*>(surface_.widget(table))) grid->revealCurrent();
}

bool Calculator::goToRegister() {
  if (!validateField()) return false;
  if (entersAnAsset()) {
    auto* const tab = dynamic_cast<Label*>(container_.visibleScreen()->child("ViewAllLabel"));
    if (tab == nullptr) return false;
    surface_.act([tab](User& user) { user.click(*tab); });
    stage_.pumpPaint();
  }
  return assetRegister() != nullptr && container_.visibleScreen() == assetRegister();
}

}  // namespace depcalc::desktop
