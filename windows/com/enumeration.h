// COM's enumerators.
#pragma once

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/com/com_call.h"
#include "windows/com/com_object.h"

namespace depcalc::windows {

/// Goes through items that were collected before. `Policy::copy(item)` is what a client is given
/// (an `Item`, which it then owns); `Policy::Kept` is what the enumerator keeps.
template <typename Interface, typename Item, typename Policy>
class Enumeration final : public ComObject<Interface> {
 public:
  using Kept = typename Policy::Kept;

  explicit Enumeration(std::vector<Kept> items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* items, ULONG* fetched) override {
    return place_.answer([&] {
      required(items);
      if (count != 1) required(fetched);
      ULONG given = 0;
      for (; given < count && next_ < items_.size(); ++given)
        items[given] = Policy::copy(items_[next_++]);
      if (fetched != nullptr) *fetched = given;
      return given == count ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    return place_.answer([&] {
      const std::size_t left = items_.size() - next_;
      next_ += std::min<std::size_t>(left, count);
      return count <= left ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    return place_.answer([&] { next_ = 0; });
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override {
    return place_.answer([&] { required(clone) = new Enumeration(items_, next_); });
  }

 private:
  CallPlace place_{L"DepCalc10", __uuidof(Interface)};
  std::vector<Kept> items_;
  std::size_t next_;
};

}  // namespace depcalc::windows
