// The container: what the host loads and shows.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>

#include "DepCalc/asset_store.h"
#include "DepCalc/comparison_answers.h"
#include "DepCalc/e_my_view.h"
#include "DepCalc/entry_answers.h"
#include "DepCalc/help_popups.h"
#include "DepCalc/host_palette.h"
#include "DepCalc/i_orv_add_in.h"
#include "DepCalc/register_answers.h"
#include "DepCalc/screen_maker.h"
#include "common/ObjectSafety/object_safety.h"
#include "controls/label.h"
#include "controls/picture_box.h"

namespace depcalc {

/// Owns everything that lasts (the current record, the register array, the store, the host's
/// objects), shows one of its screens at a time and answers all that they ask. Everything runs on
/// one thread, one event at a time.
class DepCalcCont final : public UserControl,
                          public IOrvAddIn,
                          public ObjectSafety,
                          private HostApplicationEvents,
                          private HostCompanyFileEvents {
 public:
  /// Made, it shows nothing yet. `create_host` is asked for the host's application object at
  /// start-up.
  DepCalcCont(Stage& stage, ScreenMaker& screens, CreateHost create_host,
              UtilModule::ExecutablePath executable_path = runningExecutablePath);
  ~DepCalcCont() override;

  /// Start-up; the host runs it once. Attaches to the host and its company file, refuses with a
  /// message where there is none or it is in multi-user mode, opens the store and shows the first
  /// view.
  void DepCalcCont_Initialize();

  /// Shows one screen, hides the others and takes its size. The entry form is hidden and shown
  /// again even when it is shown, so that it fills itself anew.
  void ShowView(eMyView view);
  /// A blank record becomes the current one.
  void NewRecord();
  /// Whether the current record differs from what is saved of it, or holds anything when nothing
  /// is. An error answers no.
  bool CheckforChanges();
  /// Whether the loss of the focus would now ask `leavingQuestion`.
  bool asksWhenLeft() { return state_.m_orvcf != nullptr && CheckforChanges(); }
  static MessageBox leavingQuestion();
  /// Writes the current record. Where an input of the calculation differs from the saved copy a
  /// message says so first; it stops nothing.
  void SaveCurrent();
  /// The calculator's main help.
  void ShowMainHelp() { popups_.openFromForm("MainHelp"); }

  // IOrvAddIn
  void Initialize(HostApplication& host) override;
  void AboutToTerminate() override;
  void Terminate() override;

  [[nodiscard]] const CalculateDepPtr& CurrentRecord() const { return state_.CurrentRecord; }
  [[nodiscard]] const std::string& TableName() const { return state_.TableName; }
  [[nodiscard]] const std::shared_ptr<HostCompanyFile>& m_orvcf() const { return state_.m_orvcf; }
  [[nodiscard]] bool MultiUser() const { return MultiUser_; }

  /// The one screen that is visible, nothing before start-up and after a refusal.
  [[nodiscard]] UserControl* visibleScreen() const;

 private:
  friend class ComparisonAnswers;
  friend class EntryAnswers;
  friend class RegisterAnswers;

  // Platform events.
  void Show() override { SetupPalette(); }
  void Paint() override { SetupPalette(); }
  void LostFocus() override;
  void CompanyFileOpened() override;
  void CompanyFileClosing() override;

  void showScreen(eMyView view, std::initializer_list<const ScreenMaker::Screen*> hidden,
                  UserControl& shown);
  bool refused();
  void refuse(const char* message);
  void hideScreens();
  void attach(std::shared_ptr<HostApplication> host);
  void takeCompanyFile(std::shared_ptr<HostCompanyFile> file);

  [[nodiscard]] CalculateDep& currentRecord() const;
  [[nodiscard]] CalculateDepPtr recordToHandOut() const;
  [[nodiscard]] std::int16_t currentIndex() const;
  [[nodiscard]] const CalculateDep* savedCopy() const;
  [[nodiscard]] std::int32_t recordCount() const;
  void writeCurrent();
  void refreshSummary();

  CreateHost create_host_;
  UtilModule util_;
  HostPalette host_palette_;  // before the screens, which apply it as they are made

  std::shared_ptr<HostApplication> m_orv_;
  StoreState state_;
  AssetStore store_;
  std::optional<CalculateDepArray> AllRecords_;  // empty until the register asks
  bool DisplayShown_ = false;
  bool ViewShown_ = false;
  bool MultiUser_ = false;
  std::string StartDir_;

  EntryAnswers entry_answers_{*this};
  ComparisonAnswers comparison_answers_{*this};
  RegisterAnswers register_answers_{*this};
  ScreenMaker::Screen DepCalcView1_;
  ScreenMaker::Screen DepCalcCtl1_;
  ScreenMaker::Screen DepCalcDisplayCtl1_;
  PictureBox CoverPicture_{*this, "CoverPicture", "cover"};
  Label WidthLabel_{*this, "WidthLabel"};
  HelpPopups popups_;
};

}  // namespace depcalc
