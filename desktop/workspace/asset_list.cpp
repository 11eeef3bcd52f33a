#include "desktop/workspace/asset_list.h"

#include <algorithm>
#include <numeric>

#include "reports/schedule.h"
#include "values/display_format.h"
#include "values/runtime_error.h"

namespace depcalc::desktop {
namespace {

/// Between what no search is to find as one text.
constexpr char separator = '\0';

template <typename Value>
int threeWay(const Value& a, const Value& b) {
  return a < b ? -1 : b < a ? 1 : 0;
}

}  // namespace

void AssetList::setAssets(std::shared_ptr<const RegisterOfAssets> assets) {
  assets_ = std::move(assets);
  entries_.clear();
  year_ = assets_ == nullptr ? 0 : assets_->years.of(assets_->today);
  if (assets_ != nullptr) {
    entries_.reserve(assets_->assets.size());
    for (const ReportAsset& asset : assets_->assets) entries_.push_back(entryOf(asset));
  }
  putInOrder();
}

AssetList::Entry AssetList::entryOf(const ReportAsset& asset) const {
  const SavedAsset& saved = asset.saved();
  Entry entry{.key = {},
              .id = fold_(saved.id),
              .name = fold_(saved.name),
              .department = fold_(saved.department),
              .book_value = {}};
  try {
    entry.book_value = bookValueAfter(asset, year_);
  } catch (const RuntimeError&) {
    entry.too_large = true;
  }
  entry.key.reserve(entry.id.size() + entry.name.size() + entry.department.size() + 24);
  entry.key.append(entry.id).append(1, separator).append(entry.name).append(1, separator);
  entry.key.append(fold_(saved.serial)).append(1, separator).append(entry.department);
  return entry;
}

const ReportAsset& AssetList::at(Position position) const { return assets_->assets[position]; }

bool AssetList::isGone(Position position) const {
  const std::optional<int> left = at(position).disposalYear();
  return left.has_value() && *left <= year_;
}

void AssetList::search(std::string_view text) {
  const std::string folded = fold_(text);
  words_.clear();
  std::size_t from = 0;
  while ((from = folded.find_first_not_of(' ', from)) != std::string::npos) {
    const std::size_t end = std::min(folded.find(' ', from), folded.size());
    words_.push_back(folded.substr(from, end - from));
    from = end;
  }
  filter();
}

void AssetList::hideDisposed(bool hide) {
  hide_disposed_ = hide;
  filter();
}

void AssetList::sort(std::optional<AssetColumn> by, bool descending) {
  by_ = by;
  descending_ = descending;
  putInOrder();
}

int AssetList::compare(Position a, Position b) const {
  switch (*by_) {
    case AssetColumn::id:
      return naturalOrder(entries_[a].id, entries_[b].id);
    case AssetColumn::name:
      return naturalOrder(entries_[a].name, entries_[b].name);
    case AssetColumn::department:
      return naturalOrder(entries_[a].department, entries_[b].department);
    case AssetColumn::in_service:
      return threeWay(at(a).saved().placed_in_service, at(b).saved().placed_in_service);
    case AssetColumn::basis:
      return threeWay(at(a).saved().basis, at(b).saved().basis);
    case AssetColumn::method:
      return threeWay(at(a).method(), at(b).method());
    case AssetColumn::book_value:
      return threeWay(entries_[a].book_value, entries_[b].book_value);
  }
  return 0;
}

void AssetList::putInOrder() {
  order_.resize(entries_.size());
  std::iota(order_.begin(), order_.end(), Position{0});
  if (by_) {
    std::stable_sort(order_.begin(), order_.end(), [this](Position a, Position b) {
      return descending_ ? compare(b, a) < 0 : compare(a, b) < 0;
    });
  }
  filter();
}

void AssetList::filter() {
  shown_.clear();
  for (const Position position : order_) {
    const std::string& key = entries_[position].key;
    const bool found = std::all_of(words_.begin(), words_.end(), [&key](const std::string& word) {
      return key.find(word) != std::string::npos;
    });
    if (found && !(hide_disposed_ && isGone(position))) shown_.push_back(position);
  }
}

const ReportAsset& AssetList::asset(std::size_t row) const { return at(shown_[row]); }

std::optional<Currency> AssetList::bookValue(std::size_t row) const {
  return entries_[shown_[row]].book_value;
}

std::string AssetList::text(std::size_t row, AssetColumn column) const {
  const SavedAsset& saved = asset(row).saved();
  switch (column) {
    case AssetColumn::id:
      return saved.id;
    case AssetColumn::name:
      return saved.name;
    case AssetColumn::department:
      return saved.department;
    case AssetColumn::in_service:
      return saved.placed_in_service.isNone() ? std::string() : saved.placed_in_service.toText();
    case AssetColumn::basis:
      return formatExactMoney(saved.basis);
    case AssetColumn::method:
      return std::string(asset(row).method());
    case AssetColumn::book_value:
      return bookValue(row) ? formatExactMoney(*bookValue(row)) : std::string();
  }
  return {};
}

std::optional<std::size_t> AssetList::rowOf(std::int32_t number) const {
  const auto found = std::find_if(shown_.begin(), shown_.end(), [&](Position position) {
    return at(position).saved().number == number;
  });
  if (found == shown_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - shown_.begin());
}

AssetTotals AssetList::totals() const {
  AssetTotals totals;
  try {
    addUp(totals);
  } catch (const RuntimeError&) {
    totals.cost = totals.book_value = Currency();
    totals.too_large = true;
  }
  return totals;
}

void AssetList::addUp(AssetTotals& totals) const {
  Currency cost;
  Currency book_value;
  for (const Position position : shown_) {
    const Entry& entry = entries_[position];
    const bool gone = isGone(position);
    const bool now = !gone && (entry.book_value.has_value() || entry.too_large);
    ++(gone ? totals.disposed : now ? totals.in_service : totals.not_yet);
  }
  for (const Position position : shown_) {
    if (entries_[position].too_large) throw RuntimeError::overflow();
    if (isGone(position) || !entries_[position].book_value) continue;
    cost += at(position).saved().basis;
    book_value += *entries_[position].book_value;
  }
  totals.cost = cost;
  totals.book_value = book_value;
}

std::string totalsLine(const AssetTotals& totals) {
  constexpr auto between = " · ";
  std::string line = std::to_string(totals.in_service) + " in service";
  if (totals.too_large) {
    line += std::string(between) + "amounts too large to be added up";
  } else {
    line += between + ("cost " + formatExactMoney(totals.cost));
    line += between + ("book value " + formatExactMoney(totals.book_value));
  }
  if (totals.disposed > 0) line += between + std::to_string(totals.disposed) + " disposed of";
  if (totals.not_yet > 0) line += between + std::to_string(totals.not_yet) + " not yet in service";
  return line;
}

}  // namespace depcalc::desktop
