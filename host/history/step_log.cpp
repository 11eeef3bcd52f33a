#include "host/history/step_log.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "host/history/bytes.h"
#include "host/stored/digest.h"

namespace depcalc {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view magic = "depcalc undo history 1\n";

/// A file that is larger was not written here.
constexpr std::uint64_t most_file_bytes = 4 * std::uint64_t{History::most_bytes};
/// What is void may take this much, and as much as what is not.
constexpr std::uint64_t most_void_bytes = std::uint64_t{1} << 20;

enum class EntryKind : std::uint8_t { start = 1, step = 2, move = 3 };

/// A length and a digest before each entry tell one that was cut off.
std::string entryOf(EntryKind kind, std::string_view content) {
  const auto seed = static_cast<std::uint64_t>(kind);
  ByteWriter out;
  return out.number(seed).number(digestOf(content, seed)).text(content).take();
}

std::string startEntry(std::uint64_t state) {
  return entryOf(EntryKind::start, ByteWriter().number(state).take());
}

std::string stepEntry(const Step& step) { return entryOf(EntryKind::step, bytesOfStep(step)); }

std::string moveEntry(std::uint64_t from, std::uint64_t to, std::uint64_t position) {
  return entryOf(EntryKind::move, ByteWriter().number(from).number(to).number(position).take());
}

/// The state that the file's entries lead to, as far as they came about.
class Replay {
 public:
  void take(EntryKind kind, std::string_view content) {
    if (kind == EntryKind::step) return take(Announced{.step = stepOfBytes(content)});
    ByteReader in(content);
    if (kind == EntryKind::start) {
      if (std::exchange(started_, true)) throw RuntimeError::typeMismatch();
      state_ = in.number();
      return;
    }
    Announced move;
    move.step.before = in.number();
    move.step.after = in.number();
    move.position = in.number();
    take(std::move(move));
  }

  /// What was announced last came about where `state` says so. False where the file is of no such
  /// state.
  bool settle(std::uint64_t state) {
    if (!started_) throw RuntimeError::typeMismatch();
    if (std::exchange(waiting_, false) && announced_.step.after == state) apply();
    return state_ == state;
  }

  [[nodiscard]] History& history() { return history_; }

 private:
  struct Announced {
    Step step = {};  ///< of a move, its states alone
    std::optional<std::uint64_t> position = {};
  };

  void take(Announced next) {
    if (!settle(next.step.before)) throw RuntimeError::typeMismatch();
    announced_ = std::move(next);
    waiting_ = true;
  }

  void apply() {
    state_ = announced_.step.after;
    if (!announced_.position) return history_.add(std::move(announced_.step));
    const std::uint64_t position = *announced_.position - history_.forgotten();
    if (position > history_.steps().size() || history_.steps().empty() ||
        history_.stateAt(position) != state_) {
      throw RuntimeError::typeMismatch();
    }
    history_.moveTo(position);
  }

  History history_;
  bool started_ = false;
  std::uint64_t state_ = 0;
  Announced announced_;
  bool waiting_ = false;  ///< and nobody has said yet whether it came about
};

/// The last entry may have been cut off: it did not come about, because the company file comes
/// after it. Answers how much of the text was read.
std::size_t replay(std::string_view text, Replay& replay) {
  if (!text.starts_with(magic)) throw RuntimeError::typeMismatch();
  std::size_t read = magic.size();
  while (read < text.size()) {
    ByteReader in(text.substr(read));
    std::uint64_t kind = 0;
    std::uint64_t digest = 0;
    std::string_view content;
    try {
      kind = in.numberBelow(static_cast<std::uint64_t>(EntryKind::move) + 1);
      digest = in.number();
      content = in.text();
    } catch (const RuntimeError&) {
      break;
    }
    if (kind == 0 || digest != digestOf(content, kind)) break;
    replay.take(static_cast<EntryKind>(kind), content);
    read = static_cast<std::size_t>(content.data() + content.size() - text.data());
  }
  return read;
}

std::optional<std::string> textOf(const std::string& path) {
  std::error_code error;
  const std::uint64_t size = fs::file_size(path, error);
  if (error || size > most_file_bytes) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  std::string text(size, '\0');
  in.read(text.data(), static_cast<std::streamsize>(size));
  return in ? std::optional(std::move(text)) : std::nullopt;
}

/// For its user alone, before anything is in it.
bool makePrivate(const std::string& path) {
  std::error_code error;
  fs::create_directories(fs::path(path).parent_path(), error);
  std::ofstream made(path, std::ios::binary | std::ios::trunc);
  if (!made) return false;
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, error);
  return !error;
}

}  // namespace

StepLog::Found StepLog::read(std::uint64_t state, History& history) {
  stale_ = true;
  std::error_code error;
  if (!fs::exists(path_, error)) return Found::nothing;
  const auto text = textOf(path_);
  if (!text) return Found::damaged;
  try {
    Replay replayed;
    const std::size_t read = replay(*text, replayed);
    if (!replayed.settle(state)) return read < text->size() ? Found::damaged : Found::other;
    history = std::move(replayed.history());
    bytes_ = text->size();
    forgotten_ = 0;
    stale_ = read < bytes_;
  } catch (const RuntimeError&) {
    return Found::damaged;
  }
  return Found::steps;
}

void StepLog::announce(const History& history, const Step& step) {
  put(history, history.steps().empty() ? step.before : history.stateAt(0), stepEntry(step));
}

void StepLog::announceMove(const History& history, std::size_t position) {
  const std::uint64_t from = history.stateAt(history.position());
  const std::uint64_t to = history.stateAt(position);
  // Numbers begin anew with a file that is written anew.
  if (mustBeWrittenAnew(history)) rewrite(history, history.stateAt(0), {});
  put(history, history.stateAt(0),
      moveEntry(from, to, history.forgotten() - forgotten_ + position));
}

void StepLog::moveTo(const History& history, std::string path) {
  path_ = std::move(path);
  stale_ = true;
  if (!history.steps().empty()) rewrite(history, history.stateAt(0), {});
}

bool StepLog::mustBeWrittenAnew(const History& history) const {
  std::error_code error;
  const bool bloated = bytes_ > 2 * history.bytes() + most_void_bytes;
  // Whoever changed the file meanwhile, it is not added to.
  return stale_ || bloated || fs::file_size(path_, error) != bytes_ || error;
}

void StepLog::put(const History& history, std::uint64_t start, std::string_view entry) {
  if (mustBeWrittenAnew(history)) return rewrite(history, start, entry);
  std::ofstream out(path_, std::ios::binary | std::ios::app);
  out << entry << std::flush;
  stale_ = !out;
  bytes_ += entry.size();
}

void StepLog::rewrite(const History& history, std::uint64_t start, std::string_view entry) {
  stale_ = !writeAnew(history, start, entry);
}

bool StepLog::writeAnew(const History& history, std::uint64_t start, std::string_view entry) {
  const std::string fresh = path_ + ".new";
  if (!makePrivate(fresh)) return false;
  std::ofstream out(fresh, std::ios::binary);
  out << magic << startEntry(start);
  for (const Step& step : history.steps()) out << stepEntry(step);
  if (history.position() < history.steps().size()) {
    // The numbers begin anew.
    out << moveEntry(history.steps().back().after, history.stateAt(history.position()),
                     history.position());
  }
  out << entry;
  const auto written = static_cast<std::uint64_t>(out.tellp());
  out.close();
  std::error_code error;
  if (out) fs::rename(fresh, path_, error);
  if (!out || error) {
    fs::remove(fresh, error);
    return false;
  }
  bytes_ = written;
  forgotten_ = history.forgotten();
  return true;
}

}  // namespace depcalc
