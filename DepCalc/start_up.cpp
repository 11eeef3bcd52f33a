// How the container attaches to the host, follows it and lets go of it.
#include "DepCalc/dep_calc_cont.h"
#include "common/trapped.h"

namespace depcalc {

DepCalcCont::~DepCalcCont() {
  state_.CurrentRecord = nullptr;
  Terminate();
}

void DepCalcCont::DepCalcCont_Initialize() {
  SetupPalette();
  show();
  trapped("DepCalc::DepCalcCont_Initialize", [&] {
    state_.CurrentRecord = nullptr;
    CoverPicture_.hide();
    attach(create_host_());
    if (refused()) return;
    hideScreens();
    StartDir_ = m_orv_->StartDirectory();
    if (state_.CurrentRecord == nullptr) {
      state_.CurrentRecord = std::make_shared<CalculateDep>();
      state_.CurrentRecord->RecNew(true);
    }
    MultiUser_ = false;
    const bool empty = store_.open() == AssetStore::FirstView::entry_form;
    ShowView(empty ? emv_Calc : emv_ViewAll);
  });
}

bool DepCalcCont::refused() {
  if (state_.m_orvcf == nullptr) {
    refuse(
        "You must have a company file open to use this feature. Open a company file, then select "
        "the Depreciation Calculator again.");
    return true;
  }
  if (state_.m_orvcf->IsMultiUser()) {
    refuse(
        "You must be in single-user mode to use this feature. To change modes, choose Switch to "
        "Single-user Mode from the File menu.");
    return true;
  }
  return false;
}

void DepCalcCont::refuse(const char* message) {
  hideScreens();
  WidthLabel_.hide();
  messageBox(message, BoxButtons::ok, "Depreciate Your Assets");
}

void DepCalcCont::hideScreens() {
  DepCalcCtl1_->hide();
  DepCalcDisplayCtl1_->hide();
  DepCalcView1_->hide();
}

void DepCalcCont::attach(std::shared_ptr<HostApplication> host) {
  if (host == nullptr) throw RuntimeError::objectNotSet();
  m_orv_ = std::move(host);
  m_orv_->advise(*this);
  if (m_orv_->IsCompanyFileOpen()) takeCompanyFile(m_orv_->CompanyFile());
}

void DepCalcCont::takeCompanyFile(std::shared_ptr<HostCompanyFile> file) {
  if (state_.m_orvcf != nullptr) state_.m_orvcf->unadvise(*this);
  state_.m_orvcf = std::move(file);
  if (state_.m_orvcf != nullptr) state_.m_orvcf->advise(*this);
}

void DepCalcCont::CompanyFileOpened() {
  trapped("DepCalc::m_orv_CompanyFileOpened", [&] { takeCompanyFile(m_orv_->CompanyFile()); });
}

void DepCalcCont::CompanyFileClosing() { takeCompanyFile(nullptr); }

void DepCalcCont::Initialize(HostApplication& /*host*/) {}

void DepCalcCont::AboutToTerminate() {
  if (m_orv_ != nullptr) Terminate();
}

void DepCalcCont::Terminate() {
  if (m_orv_ != nullptr) m_orv_->unadvise(*this);
  m_orv_ = nullptr;
  takeCompanyFile(nullptr);
}

}  // namespace depcalc
