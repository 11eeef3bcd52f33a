// Colours of controls.
#pragma once

#include <cstdint>
#include <vector>

namespace depcalc {

/// A colour as controls keep it: red in the lowest byte, then green, then blue. The top bit marks
/// a system colour; the palette-relative flag asks for the nearest colour of the host's palette.
class Colour {
 public:
  static constexpr std::uint32_t system_flag = 0x80000000;
  static constexpr std::uint32_t palette_flag = 0x02000000;

  constexpr Colour() = default;  ///< black
  explicit constexpr Colour(std::uint32_t value) : value_(value) {}
  static constexpr Colour rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return Colour(red | static_cast<std::uint32_t>(green) << 8 |
                  static_cast<std::uint32_t>(blue) << 16);
  }

  /// With the palette-relative flag; a system colour stays as it is.
  [[nodiscard]] constexpr Colour paletteRelative() const {
    return isSystem() ? *this : Colour(value_ | palette_flag);
  }

  [[nodiscard]] constexpr std::uint32_t value() const { return value_; }
  [[nodiscard]] constexpr bool isSystem() const { return (value_ & system_flag) != 0; }
  [[nodiscard]] constexpr std::uint8_t red() const { return static_cast<std::uint8_t>(value_); }
  [[nodiscard]] constexpr std::uint8_t green() const {
    return static_cast<std::uint8_t>(value_ >> 8);
  }
  [[nodiscard]] constexpr std::uint8_t blue() const {
    return static_cast<std::uint8_t>(value_ >> 16);
  }

  friend constexpr bool operator==(Colour, Colour) = default;

 private:
  std::uint32_t value_ = 0;
};

/// The system's window background and window text.
inline constexpr Colour window_background{0x80000005};
inline constexpr Colour window_text{0x80000008};

/// A picture of which only the colours matter: those that a host wants its page limited to.
struct Palette {
  std::vector<Colour> colours;

  friend bool operator==(const Palette&, const Palette&) = default;
};

}  // namespace depcalc
