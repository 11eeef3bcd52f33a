// A company whose changes can be undone.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/history/content.h"
#include "host/history/history.h"
#include "host/history/step_changes.h"
#include "host/history/step_log.h"
#include "host/host.h"
#include "host/unit_of_work.h"

namespace depcalc {

/// The company file as a host gives it to everything that changes it. Each outermost unit of work
/// that changes something is a step, and undoing one is a unit of work of its own: the file has all
/// of it or nothing. The steps are in a file of their own as well, which outlives the process; it
/// is written before the company and never keeps that from being saved.
///
/// What was changed by whatever else has the company file takes no undo: the steps belong to states
/// of the company, which are known by their digests.
class Recorder final : public HostCompanyFile, private HostUnitOfWork {
 public:
  struct Options {
    std::vector<FollowedTable> tables;
    CompanyInfoAccess info;
    std::string path;  ///< of the history file
    std::function<std::int64_t()> now;
    /// What to call a step; `said` is the kind that `called` gave it.
    std::function<StepTitle(const StepChanges& changes, std::optional<StepKind> said)> name;
    /// What the company was when its file was replaced: that is a step.
    std::optional<Content> replaced = {};
  };

  /// `file` has units of work, and none is open. Reads all of it once; errors of the host reach the
  /// caller.
  Recorder(std::shared_ptr<HostCompanyFile> file, Options options);

  /// Steps done in `change` are of this kind.
  void called(StepKind kind, const std::function<void()>& change);
  /// Writes the company's own data as a step.
  void setInfo(const CompanyInfo& info);

  [[nodiscard]] bool canUndo() const { return !lost_ && history_.position() > 0; }
  [[nodiscard]] bool canRedo() const {
    return !lost_ && history_.position() < history_.steps().size();
  }
  /// The company is what it was before the last step, or after the next one; the last unit of work
  /// has ended. Errors of the host reach the caller: the company is then unchanged, unless the disk
  /// had taken it before the error came.
  void undo();
  void redo();

  [[nodiscard]] const History& history() const { return history_; }
  /// What the history file had when the company was opened, while nothing has been done since.
  [[nodiscard]] StepLog::Found found() const { return found_; }
  /// Whether what was done since the company was opened can still be undone after the next start.
  [[nodiscard]] bool isKept() const { return changes_made_ == 0 || log_.isKept(); }
  /// How often something was changed, undone or done again since the company was opened.
  [[nodiscard]] int changesMade() const { return changes_made_; }
  /// The steps since then that are done.
  [[nodiscard]] std::uint64_t stepsDone() const {
    const std::uint64_t now = history_.forgotten() + history_.position();
    return now > opened_at_ ? now - opened_at_ : 0;
  }
  /// The company's file is another one from now on, and so is the history's.
  void keepAt(std::string path) { log_.moveTo(history_, std::move(path)); }

  [[nodiscard]] Content content();
  /// What step `number` changed, with both texts of each record. Takes a while for an old one in a
  /// large register. Error 13 where the steps do not fit the company.
  [[nodiscard]] StepChanges changesOf(std::size_t number);

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  [[nodiscard]] Date FiscalYearStart() const override { return file_->FiscalYearStart(); }
  [[nodiscard]] bool IsMultiUser() const override { return file_->IsMultiUser(); }
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override {
    return file_->PalettePicture();
  }
  [[nodiscard]] HostUnitOfWork* unitOfWork() override { return this; }
  void advise(HostCompanyFileEvents& listener) override { file_->advise(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { file_->unadvise(listener); }

 private:
  class Table;
  class Record;
  struct Unit;

  // HostUnitOfWork
  void begin() noexcept override;
  void end() override;
  void abandon() override;
  [[nodiscard]] std::uint64_t revision() const noexcept override { return inner().revision(); }

  [[nodiscard]] HostUnitOfWork& inner() const { return *file_->unitOfWork(); }
  [[nodiscard]] CompanyInfo info() const { return options_.info.read(); }

  void open();
  void addReplacement();

  [[nodiscard]] std::optional<Step> announced() noexcept;
  [[nodiscard]] StepChanges takeChanges();
  [[nodiscard]] bool anyCounts(const StepChanges& changes) const;
  [[nodiscard]] Step stepOf(const StepChanges& changes) const;
  void accept(Step step);
  void endInner(std::uint64_t after, const std::function<void()>& done);
  void settle(std::uint64_t after, const std::function<void()>& done) noexcept;
  void forgetSteps() noexcept;

  void goTo(std::size_t position, Side side);
  void write(const StepChanges& changes, Side side);
  [[nodiscard]] StepChanges changesFromHere(std::size_t number, Side missing);
  [[nodiscard]] TextAt textsHere() const;

  std::shared_ptr<HostCompanyFile> file_;
  Options options_;
  History history_;
  StepLog log_;
  StepLog::Found found_ = StepLog::Found::nothing;
  std::uint64_t state_ = 0;  ///< the digest of what the company holds
  bool lost_ = false;        ///< and it is not known
  int changes_made_ = 0;
  std::uint64_t opened_at_ = 0;  ///< the number of steps that were done then
  bool ending_ = false;
  std::optional<StepKind> kind_;
  std::shared_ptr<Unit> unit_;
};

}  // namespace depcalc
