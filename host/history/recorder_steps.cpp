// How a company is moved from one step to another.
#include <utility>

#include "host/history/recorded_unit.h"
#include "host/stored/record_text.h"

namespace depcalc {
namespace {

using Place = std::optional<std::int16_t>;

/// Where a change's record is while the company is on the other side than `side`.
const Place& placeNow(const RecordChange& change, Side side) {
  return side == Side::before ? change.to : change.from;
}

const Place& placeThen(const RecordChange& change, Side side) {
  return side == Side::before ? change.from : change.to;
}

const std::string& textThen(const RecordChange& change, Side side) {
  return side == Side::before ? change.before : change.after;
}

void remove(HostTable& table, std::int16_t index) {
  const auto record = table.Item(index);
  record->BeginEdit();
  record->Delete();
}

/// A summary may have gone since.
void clear(HostTable& table, const FollowedTable& followed, const Place& place) {
  if (place && (followed.counts(*place) || table.Exists(*place))) remove(table, *place);
}

void add(HostTable& table, std::int16_t index, std::string_view text) {
  const auto record = table.Add(index);
  record->BeginEdit();
  const RecordValues values = recordOfText(text);
  for (const RecordValues::Entry& entry : values.entries()) {
    record->Fields().SetValue(entry.name, entry.value);
  }
  record->Modified(true);
  record->Commit();
}

/// The same, where nothing but texts is at hand.
void moveContent(Content& content, const StepChanges& changes, Side side) {
  if (changes.info) {
    content.info = side == Side::before ? changes.info->before : changes.info->after;
  }
  for (const RecordChange& change : changes.records) {
    if (const Place& now = placeNow(change, side)) content.tables.at(change.table).erase(*now);
  }
  for (const RecordChange& change : changes.records) {
    if (const Place& then = placeThen(change, side)) {
      content.tables.at(change.table)[*then] = textThen(change, side);
    }
  }
}

TextAt textsOf(const Content& content) {
  return [&content](std::size_t table, std::int16_t index) {
    return content.tables.at(table).at(index);
  };
}

RuntimeError doesNotFit() {
  return {57, "The changes that were kept do not fit the company any more."};
}

}  // namespace

void Recorder::undo() {
  if (canUndo()) goTo(history_.position() - 1, Side::before);
}

void Recorder::redo() {
  if (canRedo()) goTo(history_.position() + 1, Side::after);
}

/// One step, to its `side`.
void Recorder::goTo(std::size_t position, Side side) {
  if (unit_->unrecorded) settle(state_, [] {});
  if (side == Side::before ? !canUndo() : !canRedo()) throw doesNotFit();
  const StepChanges changes = changesFromHere(std::min(position, history_.position()), side);
  const std::uint64_t state = history_.stateAt(position);
  inner().begin();
  try {
    write(changes, side);
    log_.announceMove(history_, position);
  } catch (...) {
    abandon();
    throw;
  }
  endInner(state, [&] {
    state_ = state;
    history_.moveTo(position);
    ++changes_made_;
  });
}

/// All records leave their places before any comes back.
void Recorder::write(const StepChanges& changes, Side side) {
  std::vector<std::shared_ptr<HostTable>> tables;
  for (const FollowedTable& table : options_.tables) tables.push_back(file_->OpenTable(table.name));
  for (const RecordChange& change : changes.records) {
    clear(*tables[change.table], options_.tables[change.table], placeNow(change, side));
    // A summary may have come since.
    const Place& then = placeThen(change, side);
    if (then && !options_.tables[change.table].counts(*then)) {
      clear(*tables[change.table], options_.tables[change.table], then);
    }
  }
  for (const RecordChange& change : changes.records) {
    const Place& place = placeThen(change, side);
    if (place) add(*tables[change.table], *place, textThen(change, side));
  }
  if (changes.info) {
    options_.info.write(side == Side::before ? changes.info->before : changes.info->after);
  }
}

TextAt Recorder::textsHere() const {
  return [this](std::size_t table, std::int16_t index) {
    return recordTextIn(*file_->OpenTable(options_.tables.at(table).name), index);
  };
}

/// Nothing is done that would not lead where it should.
StepChanges Recorder::changesFromHere(std::size_t number, Side missing) {
  const Step& step = history_.steps()[number];
  StepChanges changes;
  bool fits = true;
  try {
    changes = changesOfBytes(step.changes, missing, textsHere());
    fits = digestAfter(step.before, changes, options_.tables) == step.after;
  } catch (const RuntimeError& error) {
    if (error.number() != RuntimeError::typeMismatch().number()) throw;
    fits = false;
  }
  if (fits) return changes;
  forgetSteps();
  throw doesNotFit();
}

Content Recorder::content() { return contentOf(*file_, info(), options_.tables); }

StepChanges Recorder::changesOf(std::size_t number) {
  const std::size_t position = history_.position();
  if (number == position) return changesFromHere(number, Side::after);
  if (number + 1 == position) return changesFromHere(number, Side::before);
  Content content = this->content();
  const Side side = number < position ? Side::before : Side::after;
  for (std::size_t at = number < position ? position - 1 : position;;
       at += side == Side::before ? std::size_t(-1) : 1) {
    StepChanges changes = changesOfBytes(history_.steps().at(at).changes, side, textsOf(content));
    if (at == number) return changes;
    moveContent(content, changes, side);
  }
}

}  // namespace depcalc
