// The register: every asset side by side.
#pragma once

#include <cstdint>
#include <string>

#include "controls/grid.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/user_control.h"
#include "register/dep_calc_view_events.h"

namespace depcalc {

/// One column per asset, one row per field and per fiscal year. Each showing reads the whole
/// register anew through the container; editing, saving and removing are the container's.
///
/// Errors in loading's last step, selecting, deleting and printing are reported as
/// "DepCalcView::…"; the table keeps what it showed by then.
class DepCalcView : public UserControl {
 public:
  // Twips.
  static constexpr int caption_width = 1800;
  static constexpr int asset_width = 1200;
  static constexpr int least_row_height = 450;

  /// The rows above this one are fields, the others fiscal years.
  static constexpr int first_year_row = 12;

  DepCalcView(UserControl& parent, std::string name, DepCalcViewEvents& events);

  /// Prints the table, cut into pages, into the open job. A page shows the table with the rows and
  /// columns of all other pages collapsed; afterwards everything has its size again. An error ends
  /// the run with a message, and what is collapsed then stays so until the next load.
  void GetPrintPictures(Printer& printer);

  Shape BackShape{*this, "BackShape"};
  Shape PageShape{*this, "PageShape"};
  Label CalcDepLabel{*this, "CalcDepLabel", "Calculate Depreciation"};
  Label ViewAllLabel{*this, "ViewAllLabel", "  View All   Assets  "};
  Label HelpLabel{*this, "HelpLabel", "Using this calculator"};
  Label TitleLabel{*this, "TitleLabel", "View all assets:"};
  Label InstrLabel{*this, "InstrLabel", "Click any cell to select an asset to edit or delete."};
  Label NoAssetsLabel{*this, "NoAssetsLabel",
                      "You have no assets to display, click the New button to enter your assets."};
  PicturePair NewButton{*this, "NewButton", "new", "New", 'N'};
  PicturePair EditButton{*this, "EditButton", "edit", "Edit", 'E'};
  PicturePair DeleteButton{*this, "DeleteButton", "delete", "Delete", 'D'};
  PicturePair PrintButton{*this, "PrintButton", "print", "Print", 'P'};
  Grid AssetViewTable{*this, "AssetViewTable", first_year_row};
  // By definition, without effect: printing takes its pages from the table.
  PictureBox Picture1{*this, "Picture1"};
  PictureBox Picture2{*this, "Picture2"};
  PictureBox Picture3{*this, "Picture3"};
  PictureBox Picture4{*this, "Picture4"};

 private:
  void Show() override;
  void Paint() override;
  void Resize() override;
  void Hide() override;

  // dep_calc_view.cpp
  void Initialize();
  void connectLabels();
  void connectButtons();
  void load();
  void AssetViewTable_Click();
  void startNew();
  void edit();
  void AssetViewTable_DeleteButton_MouseUp();
  void deleteAsset(int column);
  [[nodiscard]] CalculateDepPtr& slot(int index);

  // register_layout.cpp
  void setLooks();
  void ArrangeControls();

  // register_table.cpp
  void SetupTable();
  void DisplayData();
  void ShowNoAssets();
  void fillColumn(int column, CalculateDep& asset);
  void fillFields(int column, const CalculateDep& asset);
  void fillYears(int column, CalculateDep& asset);

  // register_print.cpp
  void Printbutton_Mouseup();

  DepCalcViewEvents& events_;
  CalculateDepArray myCalcDep{nullptr, nullptr};
  std::int16_t myStartYr = 0;
  double myNumYrs = 0;
  std::int16_t myNumAssets = 2;
  CalculateDepPtr myCurrentRecord;
  bool myLoaded = false;
  bool myNoAssets = false;
  bool myArranging = false;
  double myPixel = 0;  ///< twips
};

}  // namespace depcalc
