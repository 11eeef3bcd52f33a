// Standard output and standard error, written in large pieces.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace depcalc {

/// Collects what is written and passes it on when its buffer is full, on `flush` and on `finish`.
/// After a failure (disk full, broken pipe) it takes everything and writes nothing more, so that
/// only the end of a command has to ask.
class Output {
 public:
  explicit Output(int descriptor);
  /// Passes nothing on and keeps all that is written, with room for `room` bytes to begin with.
  struct Kept {
    std::size_t room;
  };
  explicit Output(Kept kept);
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void write(std::string_view text);
  void write(char c) { *reserve(1) = c, ++used_; }

  /// Room for `size` bytes, for texts written in place; `advance` says where they ended.
  char* reserve(std::size_t size) {
    if (room_ - used_ < size) makeRoom(size);
    return &buffer_[used_];
  }
  void advance(const char* end) { used_ = static_cast<std::size_t>(end - &buffer_[0]); }

  /// What is collected at present: all of it, where it is kept.
  [[nodiscard]] std::string_view collected() const { return {&buffer_[0], used_}; }
  void clear() { used_ = 0; }

  /// Passes on what was collected. False once anything has failed.
  bool flush();

  /// The same, and closes the descriptor, which tells of a failure that the system kept to itself.
  bool finish();

  /// Whether somebody looks at it.
  [[nodiscard]] bool isTerminal() const;

  [[nodiscard]] bool failed() const { return !failure_.empty(); }
  /// Whether it failed because the reader of a pipe has seen enough.
  [[nodiscard]] bool unwanted() const { return unwanted_; }
  /// The failure in the system's words, for example "No space left on device".
  [[nodiscard]] const std::string& failure() const { return failure_; }

 private:
  static constexpr int nowhere = -1;

  void makeRoom(std::size_t size);
  void grow();
  void passOn(std::string_view text);

  int descriptor_ = nowhere;
  std::size_t room_;
  std::size_t used_ = 0;
  std::unique_ptr<char[]> buffer_;
  std::string failure_;
  bool unwanted_ = false;
};

}  // namespace depcalc
