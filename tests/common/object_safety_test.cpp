#include "common/ObjectSafety/object_safety.h"

#include <gtest/gtest.h>

#include <vector>

namespace depcalc {
namespace {

constexpr std::array<std::uint8_t, 8> ole_tail = {0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr Guid dispatch{0x00020400, 0, 0, ole_tail};
constexpr Guid storage{0x0000010A, 0, 0, ole_tail};
constexpr Guid stream{0x00000109, 0, 0, ole_tail};
constexpr Guid property_bag{
    0x37D84F60, 0x42CB, 0x11CE, {0x81, 0x35, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};

struct Known {
  Guid id;
  std::string text;
  std::uint32_t enabled;
};

const std::vector<Known> known_interfaces = {
    {dispatch, "{00020400-0000-0000-C000-000000000046}", 1},
    {storage, "{0000010A-0000-0000-C000-000000000046}", 2},
    {stream, "{00000109-0000-0000-C000-000000000046}", 2},
    {property_bag, "{37D84F60-42CB-11CE-8135-00AA004BB851}", 2},
};

std::vector<Guid> unknownInterfaces() {
  std::vector<Guid> unknown = {Guid{}};
  for (const Known& known : known_interfaces) {
    for (int byte = 0; byte < 16; ++byte) {
      Guid other = known.id;
      if (byte < 8) {
        other.data4[static_cast<std::size_t>(byte)] ^= 0x80;
      } else if (byte < 12) {
        other.data1 ^= 0x80U << 8 * (byte - 8);
      } else {
        std::uint16_t& part = byte < 14 ? other.data2 : other.data3;
        part = static_cast<std::uint16_t>(part ^ (byte % 2 == 0 ? 0x80 : 0x8000));
      }
      unknown.push_back(other);
    }
  }
  return unknown;
}

TEST(ObjectSafety, WritesIdentifiersAsTheRegistryDoes) {
  for (const Known& known : known_interfaces) EXPECT_EQ(known.id.toText(), known.text);
  const Guid mixed{0x89ABCDEF, 0x0123, 0xFEDC, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};
  EXPECT_EQ(mixed.toText(), "{89ABCDEF-0123-FEDC-0123-456789ABCDEF}");
}

TEST(ObjectSafety, SupportsBothOptionsAndEnablesOne) {
  ObjectSafety safety;
  for (const Known& known : known_interfaces) {
    std::uint32_t supported = 77;
    std::uint32_t enabled = 77;
    EXPECT_EQ(safety.GetInterfaceSafetyOptions(known.id, supported, enabled), HResult::ok);
    EXPECT_EQ(supported, 3U) << known.text;
    EXPECT_EQ(enabled, known.enabled) << known.text;
  }
}

TEST(ObjectSafety, DoesNotKnowOtherInterfaces) {
  ObjectSafety safety;
  for (const Guid& unknown : unknownInterfaces()) {
    std::uint32_t supported = 77;
    std::uint32_t enabled = 77;
    EXPECT_EQ(safety.GetInterfaceSafetyOptions(unknown, supported, enabled), HResult::no_interface);
    EXPECT_EQ(supported, 3U);
    EXPECT_EQ(enabled, 77U) << unknown.toText();
    EXPECT_EQ(safety.SetInterfaceSafetyOptions(unknown, 3, 3), HResult::no_interface);
  }
}

TEST(ObjectSafety, AcceptsExactlyWhatIsEnabledWhateverTheMask) {
  ObjectSafety safety;
  for (const Known& known : known_interfaces) {
    for (std::uint32_t mask = 0; mask < 16; ++mask) {
      for (std::uint32_t asked = 0; asked < 16; ++asked) {
        const HResult expected = (mask & asked) == known.enabled ? HResult::ok : HResult::fail;
        EXPECT_EQ(safety.SetInterfaceSafetyOptions(known.id, mask, asked), expected)
            << known.text << " mask " << mask << " asked " << asked;
      }
    }
  }
}

TEST(ObjectSafety, NumbersItsResultsAsThePlatformDoes) {
  EXPECT_EQ(static_cast<std::uint32_t>(HResult::ok), 0U);
  EXPECT_EQ(static_cast<std::uint32_t>(HResult::no_interface), 0x80004002U);
  EXPECT_EQ(static_cast<std::uint32_t>(HResult::fail), 0x80004005U);
}

}  // namespace
}  // namespace depcalc
