#include "host/sqlite/digest.h"

#include <array>
#include <bit>
#include <cstring>

namespace depcalc {
namespace {

constexpr std::uint64_t prime1 = 0x9E3779B185EBCA87;
constexpr std::uint64_t prime2 = 0xC2B2AE3D27D4EB4F;
constexpr std::uint64_t prime3 = 0x165667B19E3779F9;
constexpr std::uint64_t prime4 = 0x85EBCA77C2B2AE63;
constexpr std::uint64_t prime5 = 0x27D4EB2F165667C5;

/// The first bytes of `bytes` as a number, lowest byte first whatever the machine.
template <typename Number>
Number take(std::string_view& bytes) {
  Number number = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&number, bytes.data(), sizeof number);
  } else {
    for (std::size_t i = sizeof number; i-- > 0;) {
      number = static_cast<Number>(number << 8U) | static_cast<unsigned char>(bytes[i]);
    }
  }
  bytes.remove_prefix(sizeof number);
  return number;
}

std::uint64_t round(std::uint64_t lane, std::uint64_t input) {
  return std::rotl(lane + input * prime2, 31) * prime1;
}

std::uint64_t merged(std::uint64_t hash, std::uint64_t lane) {
  return (hash ^ round(0, lane)) * prime1 + prime4;
}

/// The stripes of 32 bytes, in four lanes.
std::uint64_t stripes(std::string_view& bytes, std::uint64_t seed) {
  std::array<std::uint64_t, 4> lanes{seed + prime1 + prime2, seed + prime2, seed, seed - prime1};
  while (bytes.size() >= 32) {
    for (std::uint64_t& lane : lanes) lane = round(lane, take<std::uint64_t>(bytes));
  }
  std::uint64_t hash = std::rotl(lanes[0], 1) + std::rotl(lanes[1], 7) + std::rotl(lanes[2], 12) +
                       std::rotl(lanes[3], 18);
  for (const std::uint64_t lane : lanes) hash = merged(hash, lane);
  return hash;
}

std::uint64_t avalanche(std::uint64_t hash) {
  hash = (hash ^ (hash >> 33U)) * prime2;
  hash = (hash ^ (hash >> 29U)) * prime3;
  return hash ^ (hash >> 32U);
}

}  // namespace

std::uint64_t digestOf(std::string_view bytes, std::uint64_t seed) {
  const std::uint64_t length = bytes.size();
  std::uint64_t hash = bytes.size() >= 32 ? stripes(bytes, seed) : seed + prime5;
  hash += length;
  while (bytes.size() >= 8) {
    hash = std::rotl(hash ^ round(0, take<std::uint64_t>(bytes)), 27) * prime1 + prime4;
  }
  if (bytes.size() >= 4) {
    hash = std::rotl(hash ^ (take<std::uint32_t>(bytes) * prime1), 23) * prime2 + prime3;
  }
  while (!bytes.empty()) {
    hash = std::rotl(hash ^ (take<std::uint8_t>(bytes) * prime5), 11) * prime1;
  }
  return avalanche(hash);
}

}  // namespace depcalc
