#include "cli/schedule_jobs.h"

#include <algorithm>
#include <array>
#include <exception>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <utility>

#include "cli/in_order.h"
#include "engine/method_batch.h"
#include "importing/record_blocks.h"

namespace depcalc {
namespace {

/// So much of a block's output is held at most; an asset's own comes on top.
constexpr std::size_t most_held = 393'216;
constexpr std::size_t room_of_asset = 65'536;

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

/// Where the rows of a text go. Each answers whether to go on.
class Rows {
 public:
  virtual ~Rows() = default;
  virtual bool write(CalculateDep& asset, const Schedules& schedules) = 0;
  virtual bool refuse(const std::vector<RowProblem>& problems) = 0;
};

/// The assets of some rows, which are calculated together.
class AssetsOfRows {
 public:
  explicit AssetsOfRows(Rows& rows) : rows_(rows) {
    for (CalculateDep& asset : assets_) places_.push_back(&asset);
  }

  /// Where the next one is to be read into.
  CalculateDep& next() { return assets_[count_]; }
  /// It was read. Answers whether to go on.
  bool add() { return ++count_ < assets_.size() || write(); }
  /// Writes those that were read. Answers whether to go on.
  bool write() {
    batch_.calculate(std::span(places_).first(count_));
    bool goes_on = true;
    for (std::size_t i = 0; i < count_ && goes_on; ++i) {
      calculateSchedules(batch_, i, assets_[i], schedules_);
      goes_on = rows_.write(assets_[i], schedules_);
    }
    count_ = 0;
    return goes_on;
  }

 private:
  Rows& rows_;
  std::array<CalculateDep, MethodBatch::most> assets_;
  std::vector<CalculateDep*> places_;
  std::size_t count_ = 0;
  MethodBatch batch_;
  Schedules schedules_;
};

/// Reads all rows; what stopped it is `end` too.
AssetReader::Outcome eachRow(AssetReader& reader, Rows& rows) {
  using Outcome = AssetReader::Outcome;
  AssetsOfRows assets(rows);
  for (bool goes_on = true; goes_on;) {
    const Outcome outcome = reader.next(assets.next());
    if (outcome == Outcome::asset) {
      goes_on = assets.add();
    } else if (outcome == Outcome::problems) {
      goes_on = assets.write() && rows.refuse(reader.problems());
    } else {
      return assets.write() ? outcome : Outcome::unreadable;
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

/// What became of a block's rows and is not passed on yet.
struct Part {
  struct Message {
    std::size_t place;  // in the document
    std::string text;
  };

  Output document{Output::Kept{most_held + room_of_asset}};
  std::vector<Message> messages;
  std::size_t held_in_messages = 0;
  std::string_view between;  // where assets stand before these; empty too once any is passed on
};

/// Where the parts of all threads end up, one at a time.
class Document {
 public:
  Document(Output& out, Output& errors) : out_(out), errors_(errors) {}

  /// False when nobody wants more.
  bool pass(Part& part) {
    const std::string_view text = part.document.collected();
    if (!text.empty()) {
      const std::string_view between = std::exchange(part.between, {});
      if (std::exchange(any_asset, true)) out_.write(between);
    }
    if (!part.messages.empty()) all_good = false;
    std::size_t at = 0;
    for (const Part::Message& message : part.messages) {
      out_.write(text.substr(at, message.place - at));
      errors_.write(message.text);
      at = message.place;
    }
    out_.write(text.substr(at));
    part.document.clear();
    part.messages.clear();
    part.held_in_messages = 0;
    return !out_.failed();
  }

  bool all_good = true;
  bool any_asset = false;

 private:
  Output& out_;
  Output& errors_;
};

/// What the threads share.
struct Shared {
  const ScheduleRun& run;
  const AssetColumns& columns;
  ByteSource& source;
  InOrder<Part> parts;

  std::mutex input{};  // has these
  RecordBlocks blocks;
  std::size_t blocks_taken = 0;
  bool unreadable = false;
};

/// The rows of one block.
class BlockRows final : public Rows {
 public:
  BlockRows(Shared& shared, std::size_t number, Part& part)
      : shared_(shared), number_(number), part_(part), writer_(shared.run.writer(part.document)) {
    part_.between = writer_->between();
    writer_->begin();
    part_.document.clear();
  }

  bool write(CalculateDep& asset, const Schedules& schedules) override {
    writer_->write(asset, schedules);
    return relieve();
  }
  bool refuse(const std::vector<RowProblem>& problems) override {
    for (const RowProblem& problem : problems) {
      part_.messages.push_back({part_.document.collected().size(), shared_.run.message(problem)});
      part_.held_in_messages += sizeof(Part::Message) + part_.messages.back().text.size();
    }
    return relieve();
  }

 private:
  /// With much that is held, waiting is better than going on.
  bool relieve() {
    return part_.document.collected().size() + part_.held_in_messages < most_held ||
           shared_.parts.passSoFar(number_, part_);
  }

  Shared& shared_;
  std::size_t number_;
  Part& part_;
  std::unique_ptr<ScheduleWriter> writer_;
};

/// Takes the next block and hands in what its rows give. False when there is nothing more to do.
bool writeBlock(Shared& shared, RecordBlocks::Block& block) {
  auto part = shared.parts.spare();
  if (part == nullptr) return false;
  std::unique_lock input(shared.input);
  if (!shared.blocks.next(block)) return false;
  const std::size_t number = shared.blocks_taken++;
  if (!block.is_open) input.unlock();  // else the rest of the source is this thread's
  BlockSource source(block.text, block.is_open ? &shared.source : nullptr);
  AssetReader reader(source, shared.columns, shared.run.rules, shared.run.form, block.line);
  BlockRows rows(shared, number, *part);
  const bool read = eachRow(reader, rows) == AssetReader::Outcome::end;
  if (block.is_open) shared.unreadable = !read;
  if (read || block.is_open) return shared.parts.handIn(number, std::move(part));
  shared.parts.stop();
  return false;
}

/// What went wrong in a thread is the caller's to hear.
void writeBlocks(Shared& shared, std::exception_ptr& failure) {
  try {
    RecordBlocks::Block block;
    while (writeBlock(shared, block)) {
    }
  } catch (...) {
    failure = std::current_exception();
    shared.parts.stop();
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

/// One in each thread's hands, and some that wait for the blocks before them.
std::size_t partsFor(int jobs) {
  constexpr std::size_t most_waiting = 16;
  const auto threads = static_cast<std::size_t>(jobs);
  return threads + std::min(2 * threads, most_waiting);
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
  Document document(out, errors);
  Shared shared{.run = run,
                .columns = reader.columns(),
                .source = source,
                .parts = {partsFor(jobs), [&document](Part& part) { return document.pass(part); }},
                .blocks = RecordBlocks(source, run.form.separator, rest.text, rest.line, false)};
  runOn(jobs, shared);
  const bool to_the_end = shared.blocks.ended() && !shared.unreadable && !out.failed();
  if (document.any_asset) writer->resume();
  if (to_the_end) writer->end();
  return {.all_good = document.all_good, .to_the_end = to_the_end};
}

}  // namespace depcalc
