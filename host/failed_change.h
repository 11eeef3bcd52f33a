// A change of a company that could not be written, and what is to become of it.
#pragma once

#include <functional>
#include <string>
#include <variant>

#include "host/file_trouble.h"

namespace depcalc {

struct FailedChange {
  /// What the company file has of it. A write that reports an error may have reached the disk.
  enum class InFile { nothing, all, unknown };

  FileTrouble trouble;
  InFile in_file = InFile::unknown;
  bool on_server = false;  ///< the company is; the trouble then says what is certain
};

/// The tables go back to what the file holds, and the error reaches whoever made the change.
struct GiveUp {};
struct TryAgain {};
/// A new company file of this path takes all there is, the change with it, and takes the place of
/// the one that is open.
struct GoOnWithCopy {
  std::string path;
};

using FailedChangeAnswer = std::variant<GiveUp, TryAgain, GoOnWithCopy>;

/// Decides while the change is held. Asked again as often as what it answered fails.
using FailedChangeHandler = std::function<FailedChangeAnswer(const FailedChange&)>;

}  // namespace depcalc
