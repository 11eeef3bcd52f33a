#include "register/dep_calc_view.h"

#include <array>

#include "common/trapped.h"
#include "register/register_array.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr std::array field_captions = {
    "Asset ID",
    "Name",
    "Serial #",
    "Dept/Loc",
    "Placed-in-service Date",
    "Basis",
    "Salvage Value",
    "Depreciation Basis",
    "Convention",
    "Useful Life",
    "Method",
    "Unit of Production Rate",
};
static_assert(field_captions.size() == DepCalcView::first_year_row);

}  // namespace

DepCalcView::DepCalcView(UserControl& parent, std::string name, DepCalcViewEvents& events)
    : UserControl(parent, std::move(name)), events_(events) {
  Initialize();
  setLooks();
  connectLabels();
  connectButtons();
  AssetViewTable.onClick = [this] { AssetViewTable_Click(); };
}

void DepCalcView::Initialize() {
  trapped("DepCalcView::Initialize", [this] {
    SetupPalette();
    myPixel = site().twipsPerPixel();
    myNumAssets = 2;  // by definition, without effect: the container says how many
    myStartYr = toInteger16HalfEven(site().today().year());
    for (int row = 0; row < first_year_row; ++row) {
      AssetViewTable.setText(row, 0, field_captions[static_cast<std::size_t>(row)]);
    }
    AssetViewTable.setColumnAlignment(0, CellAlignment::centerTop);
    AssetViewTable.setColumnWidth(0, caption_width);
    AssetViewTable.setMinimumRowHeight(least_row_height);
  });
}

void DepCalcView::connectLabels() {
  CalcDepLabel.onClick = [this] { startNew(); };
  HelpLabel.onClick = [this] { events_.HelpClick("MainHelp"); };
}

void DepCalcView::connectButtons() {
  NewButton.actOnRelease([this] { startNew(); });
  EditButton.actOnRelease([this] { edit(); });
  DeleteButton.actOnRelease([this] { AssetViewTable_DeleteButton_MouseUp(); });
  PrintButton.actOnRelease([this] { Printbutton_Mouseup(); });
}

void DepCalcView::Show() {
  if (!myLoaded) load();
}

void DepCalcView::Paint() {
  if (!myLoaded) load();
}

void DepCalcView::Resize() {
  if (!myArranging) ArrangeControls();
}

void DepCalcView::Hide() {
  trapped("DepCalcView::UserControl_Hide", [this] { myLoaded = false; });
}

void DepCalcView::load() {
  events_.ShowCover(true);
  AssetViewTable.hide();
  AssetViewTable.setRedraw(false);
  site().setPointer(Pointer::hourglass);
  myLoaded = true;
  myCalcDep.assign(2, nullptr);
  events_.GetCalcDepAll(myCalcDep, myStartYr, myNumYrs, myNumAssets);
  events_.GetCalcDep(myCurrentRecord);
  myNoAssets = slot(0) == nullptr;
  if (myNoAssets) {
    ShowNoAssets();
    PrintButton.setVisible(false);
  } else {
    SetupTable();
    DisplayData();
    PrintButton.setVisible(true);
    AssetViewTable.setColumn(0);
  }
  site().setPointer(Pointer::normal);
  ArrangeControls();
  AssetViewTable.setRedraw(true);
  events_.ShowCover(false);
}

void DepCalcView::AssetViewTable_Click() {
  trapped("DepCalcView::AssetViewTable_Click", [this] {
    if (AssetViewTable.column() == 0) return;
    if (myCurrentRecord == nullptr) throw RuntimeError::objectNotSet();
    myCurrentRecord->RecIndex(std::to_string(AssetViewTable.column()));
  });
}

void DepCalcView::startNew() {
  events_.ButtonClick("New");
  myLoaded = false;
}

void DepCalcView::edit() {
  if (AssetViewTable.column() < 1) {
    messageBox("Please select an asset to edit by clicking any cell in the column.", BoxButtons::ok,
               "Edit Assets");
    return;
  }
  events_.ButtonClick("Edit");
  myLoaded = false;
}

void DepCalcView::AssetViewTable_DeleteButton_MouseUp() {
  trapped("DepCalcView::AssetViewTable_DeleteButton_MouseUp", [this] {
    const char* const title = "Delete an Asset";
    const int column = AssetViewTable.column();
    if (column == 0) {
      messageBox("Please select an asset to delete by clicking any cell in the column.",
                 BoxButtons::ok, title);
      return;
    }
    const CalculateDepPtr& asset = slot(column - 1);
    if (asset == nullptr) throw RuntimeError::objectNotSet();
    const std::string question = "Are you sure you want to delete asset " + asset->AssetID() + "?";
    if (messageBox(question, BoxButtons::yesNo, title) == BoxAnswer::yes) deleteAsset(column);
  });
}

void DepCalcView::deleteAsset(int column) {
  site().setPointer(Pointer::hourglass);
  const std::int16_t index = takeOut(myCalcDep, column, AssetViewTable.columns() - 1);
  events_.DeleteButtonClick(myCalcDep, index);
  site().setPointer(Pointer::normal);
  ArrangeControls();
  myLoaded = false;
}

CalculateDepPtr& DepCalcView::slot(int index) {
  const auto position = static_cast<std::size_t>(index);
  if (index < 0 || position >= myCalcDep.size()) throw RuntimeError::subscriptOutOfRange();
  return myCalcDep[position];
}

}  // namespace depcalc
