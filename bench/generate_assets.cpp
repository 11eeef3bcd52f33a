// generate_assets COUNT: writes an asset file of so many rows, always the same ones.
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

/// A small generator of well mixed numbers (Steele, Lea, Flood: SplitMix64).
class Numbers {
 public:
  std::uint64_t next() {
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }
  std::uint64_t between(std::uint64_t least, std::uint64_t most) {
    return least + next() % (most - least + 1);
  }

 private:
  std::uint64_t state_ = 1;
};

std::string padded(std::uint64_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

std::string money(std::uint64_t cents) {
  return std::to_string(cents / 100) + '.' + padded(cents % 100, 2);
}

std::string row(std::uint64_t number, Numbers& numbers) {
  constexpr std::array<std::string_view, 8> names{
      "Delivery truck", "Lathe",     "Workstation",         "Panel saw",
      "CNC router",     "Fork-lift", "\"Extractor, twin\"", "Showroom fittings"};
  constexpr std::array<std::string_view, 4> departments{"Warehouse", "Shop", "Office", "Showroom"};
  constexpr std::array<std::string_view, 5> conventions{"Full Year", "Half Year", "Full Month",
                                                        "Half Month", "Actual Days"};
  const std::uint64_t basis = numbers.between(50'000, 20'000'000);
  const std::uint64_t capacity = numbers.between(0, 3) == 0 ? numbers.between(1, 500'000) : 0;
  std::string text = "A" + padded(number, 8) + ',';
  text.append(names[numbers.next() % names.size()]).append(",SN-");
  text.append(padded(numbers.between(0, 999'999), 6)).append(",");
  text.append(departments[numbers.next() % departments.size()]).append(",");
  text.append(std::to_string(numbers.between(1995, 2024))).append("-");
  text.append(padded(numbers.between(1, 12), 2)).append("-");
  text.append(padded(numbers.between(1, 28), 2)).append(",");
  text.append(numbers.next() % 2 == 0 ? "12-31" : "03-31").append(",");
  text.append(std::to_string(numbers.between(3, 10))).append(",");
  text.append(conventions[numbers.next() % conventions.size()]).append(",");
  text.append(money(basis)).append(",").append(money(basis / numbers.between(4, 40))).append(",");
  return text + std::to_string(capacity) + '\n';
}

}  // namespace

int main(int argc, char** argv) {
  std::uint64_t count = 0;
  const std::string_view text = argc == 2 ? argv[1] : "";
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    std::fputs("usage: generate_assets COUNT\n", stderr);
    return 2;
  }
  std::fputs(
      "id,name,serial,department,placed_in_service,fiscal_year_end,life,convention,basis,salvage,"
      "capacity\n",
      stdout);
  Numbers numbers;
  for (std::uint64_t i = 1; i <= count; ++i) {
    const std::string line = row(i, numbers);
    std::fwrite(line.data(), 1, line.size(), stdout);
  }
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? 0 : 1;
}
