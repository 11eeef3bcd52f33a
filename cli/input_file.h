// A file, or standard input, as a source of bytes.
#pragma once

#include <string>

#include "importing/byte_source.h"

namespace depcalc {

/// Opened when made; whether that or any read since has failed is in `failure()`.
class InputFile final : public ByteSource {
 public:
  /// "-" is standard input.
  explicit InputFile(const std::string& path);
  ~InputFile() override;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  std::optional<std::size_t> read(std::span<char> buffer) override;

  /// Why the file cannot be read, in the system's words; empty when it can.
  [[nodiscard]] const std::string& failure() const { return failure_; }

 private:
  int descriptor_;
  bool owned_;
  std::string failure_;
};

}  // namespace depcalc
