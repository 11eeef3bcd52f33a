// The assets beside the page: searched, sorted, added up. No toolkit is in it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/register.h"

namespace depcalc::desktop {

enum class AssetColumn : std::uint8_t {
  id,
  name,
  department,
  in_service,
  basis,
  method,
  book_value
};
inline constexpr int asset_column_count = 7;

/// What all shown assets come to. What is on the books at the end of the fiscal year counts; its
/// book value is then the depreciation schedule's.
struct AssetTotals {
  std::size_t in_service = 0;
  std::size_t disposed = 0;
  std::size_t not_yet = 0;  ///< placed in service in a later fiscal year
  Currency cost;            ///< of those in service
  Currency book_value;      ///< of those in service
  bool too_large = false;   ///< to be added up; both amounts are then 0
};

/// Rows of the register, of which those are shown that are searched for, in the order asked for.
class AssetList {
 public:
  /// Makes texts alike that a search or an order is not to tell apart, capitals and small letters.
  using Fold = std::function<std::string(std::string_view)>;

  explicit AssetList(Fold fold) : fold_(std::move(fold)) {}

  /// The register as it is saved now, null for none. Search and order stay.
  void setAssets(std::shared_ptr<const RegisterOfAssets> assets);
  /// Every word, parted by blanks, must stand in the ID, the name, the serial number or the
  /// department.
  void search(std::string_view text);
  void hideDisposed(bool hide);
  /// Nothing: the register's order, in which equals stay otherwise. Numbers within texts count as
  /// such: A9 stands before A10.
  void sort(std::optional<AssetColumn> by, bool descending);

  // Rows as they are shown, from 0.
  [[nodiscard]] std::size_t count() const { return shown_.size(); }
  [[nodiscard]] const ReportAsset& asset(std::size_t row) const;
  [[nodiscard]] bool isDisposed(std::size_t row) const { return isGone(shown_[row]); }
  /// At the end of the fiscal year; nothing where it is not on the books then.
  [[nodiscard]] std::optional<Currency> bookValue(std::size_t row) const;
  /// As people read it, "" for what there is none of.
  [[nodiscard]] std::string text(std::size_t row, AssetColumn column) const;
  /// Where asset `number` is shown.
  [[nodiscard]] std::optional<std::size_t> rowOf(std::int32_t number) const;

  [[nodiscard]] bool isEmpty() const { return assets_ == nullptr || assets_->assets.empty(); }
  /// The one that today is in, by the company's fiscal years.
  [[nodiscard]] int fiscalYear() const { return year_; }
  [[nodiscard]] AssetTotals totals() const;

 private:
  /// What is worked out of an asset beforehand, beside it in the register.
  struct Entry {
    std::string key;  ///< what is searched
    std::string id;   ///< folded, for the order, as what follows
    std::string name;
    std::string department;
    std::optional<Currency> book_value;
    bool too_large = false;  ///< to say what is left of it
  };
  using Position = std::uint32_t;  ///< in the register

  [[nodiscard]] Entry entryOf(const ReportAsset& asset) const;
  [[nodiscard]] const ReportAsset& at(Position position) const;
  [[nodiscard]] bool isGone(Position position) const;
  [[nodiscard]] int compare(Position a, Position b) const;
  void putInOrder();
  void filter();
  void addUp(AssetTotals& totals) const;

  Fold fold_;
  std::shared_ptr<const RegisterOfAssets> assets_;
  int year_ = 0;
  std::vector<Entry> entries_;
  std::vector<std::string> words_;
  bool hide_disposed_ = false;
  std::optional<AssetColumn> by_;
  bool descending_ = false;
  std::vector<Position> order_;  ///< all of them
  std::vector<Position> shown_;
};

/// "8 in service · cost 173,770.75 · book value 50,705.33 · 1 disposed".
[[nodiscard]] std::string totalsLine(const AssetTotals& totals);

/// -1, 0 or 1 as `a` stands before `b`, with it, or behind it; digits are read as numbers.
[[nodiscard]] int naturalOrder(std::string_view a, std::string_view b);

}  // namespace depcalc::desktop
