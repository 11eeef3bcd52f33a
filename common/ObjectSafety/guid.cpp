#include "common/ObjectSafety/guid.h"

namespace depcalc {
namespace {

void appendHex(std::string& text, std::uint32_t value, int digits) {
  while (digits-- > 0) text += "0123456789ABCDEF"[value >> (4 * digits) & 0xF];
}

}  // namespace

std::string Guid::toText() const {
  std::string text = "{";
  appendHex(text, data1, 8);
  appendHex(text += '-', data2, 4);
  appendHex(text += '-', data3, 4);
  text += '-';
  for (std::size_t i = 0; i < data4.size(); ++i) {
    if (i == 2) text += '-';
    appendHex(text, data4[i], 2);
  }
  return text += '}';
}

}  // namespace depcalc
