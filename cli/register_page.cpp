#include "cli/register_page.h"

#include "DepCalc/register_reading.h"
#include "common/report_error.h"
#include "controls/user.h"
#include "register/print_pages.h"

namespace depcalc {
namespace {

/// Runs `work` and answers the last report that the register itself makes meanwhile.
template <typename Work>
std::string registerReport(Work&& work) {
  std::string last;
  bool short_of_memory = false;
  const ErrorReportHook hook([&](const ErrorReport& report) {
    short_of_memory = short_of_memory || report.isOfMemory();
    if (report.procedure.starts_with("DepCalcView::")) last = report.text();
  });
  work();
  // The page would lack what there was no memory for.
  if (short_of_memory) throw RuntimeError::outOfMemory();
  return last;
}

}  // namespace

/// Answers the register's events from the company file; what only users do is not answered.
class RegisterPage::Container final : public UserControl, private DepCalcViewEvents {
 public:
  Container(Stage& stage, Company& company) : UserControl(stage, "DepCalcCont"), company_(company) {
    show();
  }

 private:
  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override {
    const std::int32_t count = company_.assetCount();
    if (count == 0) return;
    myCalcDep.assign(static_cast<std::size_t>(count) + 1, nullptr);
    readRegister(
        company_.store(), company_.state(),
        [this](std::int16_t index) { return company_.asset(index); }, myCalcDep, myStartYr,
        myNumYrs, myNumAssets);
  }
  void GetCalcDep(CalculateDepPtr& myCalcDep) override {
    myCalcDep = company_.state().CurrentRecord;
  }
  void ResizedDisplay() override {}
  void SaveRecord(const CalculateDepPtr& /*myRecord*/) override {}
  void ButtonClick(const std::string& /*myButton*/) override {}
  void DeleteButtonClick(CalculateDepArray& /*myCalcDep*/, std::int16_t /*myIndex*/) override {}
  void GetStartDir(std::string& /*myStartDir*/) override {}
  void HelpClick(const std::string& /*myTopic*/) override {}
  void ShowCover(bool /*showHide*/) override {}

  Company& company_;

 public:
  DepCalcView view{*this, "DepCalcView1", *this};
};

RegisterPage::RegisterPage(Company& company)
    : site_(company.today()), container_(std::make_unique<Container>(stage_, company)) {
  trouble_ = registerReport([this] { container_->view.show(); });
}

RegisterPage::~RegisterPage() = default;

const Grid& RegisterPage::table() const { return container_->view.AssetViewTable; }

bool RegisterPage::hasAssets() const { return table().visible(); }

void RegisterPage::select(int column) {
  User(stage_).clickCell(container_->view.AssetViewTable, 0, column);
}

std::string RegisterPage::print(Printer& printer) {
  site_.setPrinter(printer);
  return registerReport([this] { User(stage_).click(container_->view.PrintButton.normal); });
}

int RegisterPage::assetsLeftOut(Printer& printer) const {
  return assetsOnNoPage(table(), pageRoomBelow(measureScheduleHeading(printer), printer));
}

}  // namespace depcalc
