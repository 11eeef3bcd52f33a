#include "cli/schedule_jobs.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <utility>

#include "importing/record_blocks.h"

namespace depcalc {
namespace {

constexpr std::size_t most_held = 524'288;

/// A block's bytes, and where its last record is open, all that follows.
class BlockSource final : public ByteSource {
 public:
  BlockSource(std::string_view text, ByteSource* rest) : text_(text), rest_(rest) {}

  std::optional<std::size_t> read(std::span<char> buffer) override {
    if (text_.empty()) return rest_ == nullptr ? 0 : rest_->read(buffer);
    const std::size_t count = text_.copy(buffer.data(), buffer.size());
    text_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view text_;
  ByteSource* rest_;
};

/// Lets the blocks pass on what they have in their order.
class Turns {
 public:
  /// Whether it is now the turn of block `number`; false when nobody is to go on.
  bool await(std::size_t number) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return stopped_ || turn_ == number; });
    return !stopped_;
  }
  void pass() {
    const std::lock_guard lock(mutex_);
    ++turn_;
    changed_.notify_all();
  }
  void stop() {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
  }
  [[nodiscard]] bool stopped() {
    const std::lock_guard lock(mutex_);
    return stopped_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t turn_ = 0;
  bool stopped_ = false;
};

/// Where the rows of a text go. Each answers whether to go on.
class Rows {
 public:
  virtual ~Rows() = default;
  virtual bool write(CalculateDep& asset, const Schedules& schedules) = 0;
  virtual bool refuse(const std::vector<RowProblem>& problems) = 0;
};

/// Reads all rows; what stopped it is `end` too.
AssetReader::Outcome eachRow(AssetReader& reader, Rows& rows) {
  using Outcome = AssetReader::Outcome;
  CalculateDep asset;
  Schedules schedules;
  for (bool goes_on = true; goes_on;) {
    const Outcome outcome = reader.next(asset);
    if (outcome == Outcome::end || outcome == Outcome::unreadable) return outcome;
    if (outcome == Outcome::asset) {
      calculateSchedules(asset, schedules);
      goes_on = rows.write(asset, schedules);
    } else {
      goes_on = rows.refuse(reader.problems());
    }
  }
  return Outcome::unreadable;
}

/// The rows of one thread alone, written as they come.
class PlainRows final : public Rows {
 public:
  PlainRows(const ScheduleRun& run, ScheduleWriter& writer, Output& out, Output& errors)
      : run_(run), writer_(writer), out_(out), errors_(errors) {}

  bool write(CalculateDep& asset, const Schedules& schedules) override {
    writer_.write(asset, schedules);
    return !out_.failed();
  }
  bool refuse(const std::vector<RowProblem>& problems) override {
    all_good = false;
    for (const RowProblem& problem : problems) errors_.write(run_.message(problem));
    return !out_.failed();
  }

  bool all_good = true;

 private:
  const ScheduleRun& run_;
  ScheduleWriter& writer_;
  Output& out_;
  Output& errors_;
};

/// What the threads share.
struct Shared {
  const ScheduleRun& run;
  const AssetColumns& columns;
  ByteSource& source;
  Output& out;
  Output& errors;
  Turns turns{};

  // Whose turn it is has these.
  bool all_good = true;
  bool any_asset = false;

  std::mutex input{};  // has these
  RecordBlocks blocks;
  std::size_t blocks_taken = 0;
  bool unreadable = false;
};

/// The rows of one thread's blocks, one block after the other. They are held until it is the
/// block's turn.
class BlockRows final : public Rows {
 public:
  explicit BlockRows(Shared& shared) : shared_(shared) {}

  void begin(std::size_t number) {
    number_ = number;
    follows_ = false;
    writer_ = shared_.run.writer(document_);
    writer_->begin();
    document_.flush();
    held_.clear();
  }
  bool write(CalculateDep& asset, const Schedules& schedules) override {
    writer_->write(asset, schedules);
    return relieve();
  }
  bool refuse(const std::vector<RowProblem>& problems) override {
    document_.flush();
    for (const RowProblem& problem : problems) {
      messages_.push_back({held_.size(), shared_.run.message(problem)});
      held_in_messages_ += sizeof(Message) + messages_.back().text.size();
    }
    return relieve();
  }
  /// Passes on what is held as soon as it is the block's turn. False when nobody wants it.
  bool passOn() {
    document_.flush();
    if (!shared_.turns.await(number_)) return false;
    if (!held_.empty() && !std::exchange(follows_, true)) {
      if (std::exchange(shared_.any_asset, true)) shared_.out.write(writer_->between());
    }
    if (!messages_.empty()) shared_.all_good = false;
    std::size_t at = 0;
    for (const Message& message : messages_) {
      shared_.out.write(std::string_view(held_).substr(at, message.place - at));
      shared_.errors.write(message.text);
      at = message.place;
    }
    shared_.out.write(std::string_view(held_).substr(at));
    held_.clear();
    messages_.clear();
    held_in_messages_ = 0;
    return !shared_.out.failed();
  }

 private:
  struct Message {
    std::size_t place;  // in what is held
    std::string text;
  };

  /// With much that is held, waiting is better than going on.
  bool relieve() { return held_.size() + held_in_messages_ < most_held || passOn(); }

  Shared& shared_;
  std::size_t number_ = 0;
  bool follows_ = false;  // something of this block was passed on
  std::string held_;
  std::vector<Message> messages_;
  std::size_t held_in_messages_ = 0;
  Output document_{[this](std::string_view text) { held_ += text; }};
  std::unique_ptr<ScheduleWriter> writer_;
};

/// Takes the next block and passes its rows on. False when there is nothing more to do.
bool writeBlock(Shared& shared, BlockRows& rows, RecordBlocks::Block& block) {
  std::unique_lock input(shared.input);
  if (shared.turns.stopped() || !shared.blocks.next(block)) return false;
  const std::size_t number = shared.blocks_taken++;
  if (!block.is_open) input.unlock();  // else the rest of the source is this thread's
  BlockSource source(block.text, block.is_open ? &shared.source : nullptr);
  AssetReader reader(source, shared.columns, shared.run.rules, shared.run.form, block.line);
  rows.begin(number);
  const bool read = eachRow(reader, rows) == AssetReader::Outcome::end;
  if (block.is_open) shared.unreadable = !read;
  if (!rows.passOn() || !(read || block.is_open)) {
    shared.turns.stop();
    return false;
  }
  shared.turns.pass();
  return true;
}

/// What went wrong in a thread is the caller's to hear.
void writeBlocks(Shared& shared, std::exception_ptr& failure) {
  try {
    BlockRows rows(shared);
    RecordBlocks::Block block;
    while (writeBlock(shared, rows, block)) {
    }
  } catch (...) {
    failure = std::current_exception();
    shared.turns.stop();
  }
}

RowsWritten writeOnOne(const ScheduleRun& run, AssetReader& reader, Output& out, Output& errors) {
  const auto writer = run.writer(out);
  writer->begin();
  PlainRows rows(run, *writer, out, errors);
  const bool to_the_end = eachRow(reader, rows) == AssetReader::Outcome::end;
  if (to_the_end) writer->end();
  return {.all_good = rows.all_good, .to_the_end = to_the_end};
}

void runOn(int jobs, Shared& shared) {
  std::vector<std::exception_ptr> failures(static_cast<std::size_t>(jobs));
  {
    std::vector<std::jthread> threads;
    for (std::size_t i = 1; i < failures.size(); ++i) {
      threads.emplace_back([&, i] { writeBlocks(shared, failures[i]); });
    }
    writeBlocks(shared, failures[0]);
  }
  for (const std::exception_ptr& failure : failures) {
    if (failure != nullptr) std::rethrow_exception(failure);
  }
}

}  // namespace

RowsWritten writeRows(const ScheduleRun& run, ByteSource& source, AssetReader& reader, int jobs,
                      Output& out, Output& errors) {
  const CsvReader::Rest rest = reader.rest();
  if (jobs == 1 || rest.exhausted) return writeOnOne(run, reader, out, errors);
  const auto writer = run.writer(out);
  writer->begin();
  Shared shared{.run = run,
                .columns = reader.columns(),
                .source = source,
                .out = out,
                .errors = errors,
                .blocks = RecordBlocks(source, run.form.separator, rest.text, rest.line, false)};
  runOn(jobs, shared);
  const bool to_the_end = shared.blocks.ended() && !shared.unreadable && !out.failed();
  if (shared.any_asset) writer->resume();
  if (to_the_end) writer->end();
  return {.all_good = shared.all_good, .to_the_end = to_the_end};
}

}  // namespace depcalc
