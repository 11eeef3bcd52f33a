// The rows of a file once they are judged: which of them are ready to be imported.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "importing/duplicates.h"
#include "importing/row_judge.h"

namespace depcalc {

enum class RowStatus { ready, problem, duplicate, left_out };

/// A row of the file, judged.
struct ImportRow {
  RowEdits edits;
  std::vector<RowFinding> problems;    ///< what the form's rules refuse
  std::vector<RowFinding> duplicates;  ///< what another asset has already
  std::string id;                      ///< as it would be saved
  std::string serial;
  std::size_t line = 0;         ///< of the file, where it begins
  std::size_t differences = 0;  ///< of the file's amounts and ours
  bool distant = false;         ///< placed in service more than 50 years from today
  std::optional<bool> taken;    ///< the user's decision

  [[nodiscard]] bool isLeftOut() const { return taken == false; }
};

struct ImportCounts {
  std::size_t ready = 0;
  std::size_t problems = 0;
  std::size_t duplicates = 0;  ///< that are left out
  std::size_t repeated = 0;    ///< duplicates among those that are ready
  std::size_t left_out = 0;    ///< by the user
  std::size_t differing = 0;   ///< rows with amounts that differ, of those that are ready
  std::size_t distant = 0;     ///< of those that are ready
};

enum class RowFilter { all, problems, duplicates, differences };

/// What is known of each row, and what its user has decided about it. A row is judged by itself;
/// which ones are duplicates depends on all of them.
class ImportRows {
 public:
  /// `duplicates` knows the register.
  explicit ImportRows(Duplicates duplicates) : duplicates_(std::move(duplicates)) {}

  [[nodiscard]] std::size_t size() const { return rows_.size(); }
  [[nodiscard]] bool empty() const { return rows_.empty(); }
  [[nodiscard]] const ImportRow& operator[](std::size_t index) const { return rows_[index]; }
  /// `count` rows of which nothing is known yet, in place of those before.
  void startAnew(std::size_t count) { rows_.assign(count, {}); }

  void edit(std::size_t index, AssetColumn column, std::string text) {
    rows_[index].edits[column] = std::move(text);
  }
  void take(std::size_t index, bool taken) { rows_[index].taken = taken; }
  [[nodiscard]] bool leavesOutDuplicates() const { return leaves_out_duplicates_; }
  void leaveOutDuplicates(bool leave_out) { leaves_out_duplicates_ = leave_out; }

  /// Has `judge` say what the row comes to, which is `as_read` in the file.
  void judge(std::size_t index, const FileRow& as_read, const RowJudge& judge, Date today);
  /// Every row has been judged before, and is looked at again.
  void findDuplicates();

  // --- As of the duplicates found last.
  [[nodiscard]] RowStatus statusOf(std::size_t index) const;
  [[nodiscard]] ImportCounts counts() const;
  /// The rows that `filter` lets through: those with problems first, then duplicates, then those
  /// with differences, each as they stand in the file.
  [[nodiscard]] std::vector<std::uint32_t> inOrder(RowFilter filter) const;

 private:
  /// Whether it is no duplicate, or one that is imported all the same.
  [[nodiscard]] bool passesAsNew(const ImportRow& row) const {
    return row.duplicates.empty() || !leaves_out_duplicates_ || row.taken == true;
  }

  std::vector<ImportRow> rows_;
  Duplicates duplicates_;
  bool leaves_out_duplicates_ = true;
};

}  // namespace depcalc
