// Undo and redo against snapshots of what the company file held, through reopening and crashes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <random>

#include "changes/disposing.h"
#include "tests/changes/undoable_company.h"
#include "tests/support/effort.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using namespace testing_support;

std::string bytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void put(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class Model {
 public:
  explicit Model(unsigned seed) : random_(seed) { add(company_.content()); }

  void step() {
    const std::string company_before = bytesOf(company_.path());
    const std::string history_before = bytesOf(company_.historyPath());
    const std::size_t at_before = at_;
    const auto states_before = states_;
    const bool kept = number(10) < 8 ? change() : move();
    if (number(25) == 0 && kept) {
      crash(company_before, history_before, [&] {
        at_ = at_before;
        states_ = states_before;
      });
    } else if (number(40) == 0) {
      company_.close();
      company_.open();
    }
    check();
  }

  int undone = 0;
  int redone = 0;
  int crashes = 0;
  int changes = 0;

 private:
  void add(Content state) { states_.push_back(std::make_shared<const Content>(std::move(state))); }
  int number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  std::string name() { return std::string(1, static_cast<char>('A' + number(26))); }
  int anyAsset() { return 1 + number(company_.count()); }

  /// Returns whether the process could have died in it and leave one of two states.
  bool change() {
    int kind = company_.count() == 0 ? 0 : number(14);
    constexpr int deletion = 6;
    if (company_.count() > 60 && number(2) == 0) kind = deletion;
    bool kept = true;
    if (kind <= 2) {
      company_.saveNew(name(), 1 + number(8), number(3) == 0 ? "UOP" : "SL");
    } else if (kind <= 5) {
      company_.saveEdited(anyAsset(), name(), 1 + number(50'000));
    } else if (kind <= 7) {
      company_.remove(anyAsset());
    } else if (kind == 8) {
      company_.import(2 + number(5), name());
    } else if (kind == 9) {
      disposeOrPutBack(anyAsset());
    } else if (kind == 10) {
      company_.enterUnits(anyAsset(), 2024 + number(4), number(1'000));
    } else if (kind == 11) {
      company_.recalculate();
    } else if (kind == 12) {
      company_.recorder().setInfo({name(), 1 + number(12), number(2) == 0});
    } else {
      kept = false;
      backup();
    }
    note();
    return kept;
  }

  /// What is gone comes back. To dispose of it once more would change nothing but the register's
  /// span, where a deletion has left that too long, and be no step.
  void disposeOrPutBack(int number) {
    company_.dispose(number, savedAsset(company_.assets(), number).disposed != Date());
  }

  /// A copy is taken, or takes the place of the file.
  void backup() {
    if (backup_.empty() || number(2) == 0) {
      backup_ = bytesOf(company_.path());
      return;
    }
    const Content replaced = company_.content();
    company_.close();
    put(company_.path(), backup_);
    company_.open(replaced);
  }

  void note() {
    Content now = company_.content();
    if (same(now, *states_[at_])) return;
    ++changes;
    states_.erase(states_.begin() + static_cast<std::ptrdiff_t>(at_) + 1, states_.end());
    add(std::move(now));
    if (states_.size() > History::most_steps + 1) states_.pop_front();
    at_ = states_.size() - 1;
  }

  bool move() {
    for (int times = 1 + number(4); times > 0; --times) {
      if (number(5) < 3 && at_ > 0) {
        company_.recorder().undo();
        --at_;
        ++undone;
      } else if (at_ + 1 < states_.size()) {
        company_.recorder().redo();
        ++at_;
        ++redone;
      }
      check();
    }
    return false;
  }

  /// The process died between the history file and the company file, or in the middle of the
  /// former; or behind both.
  template <typename Back>
  void crash(const std::string& company_before, const std::string& history_before, Back back) {
    ++crashes;
    company_.close();
    const std::string history = bytesOf(company_.historyPath());
    if (number(3) > 0) {
      put(company_.path(), company_before);
      back();
      const bool longer = history.starts_with(history_before);
      if (longer && number(2) == 0) {
        const auto added = static_cast<int>(history.size() - history_before.size());
        put(company_.historyPath(),
            history.substr(0, history_before.size() + static_cast<std::size_t>(number(added + 1))));
      }
    }
    company_.open();
  }

  void check() {
    ASSERT_TRUE(same(company_.content(), *states_[at_]));
    ASSERT_EQ(company_.recorder().history().position(), at_);
    ASSERT_EQ(company_.recorder().history().steps().size(), states_.size() - 1);
    ASSERT_EQ(company_.recorder().canUndo(), at_ > 0);
    ASSERT_EQ(company_.recorder().canRedo(), at_ + 1 < states_.size());
  }

  std::mt19937 random_;
  TemporaryDirectory directory_;
  UndoableCompany company_{directory_.path()};
  std::string backup_;
  std::deque<std::shared_ptr<const Content>> states_;  ///< that undo and redo lead to
  std::size_t at_ = 0;
};

/// DEPCALC_SEED repeats what a run has printed.
std::optional<unsigned> givenSeed() {
  const char* const given = std::getenv("DEPCALC_SEED");
  return given == nullptr ? std::nullopt
                          : std::optional(static_cast<unsigned>(std::strtoul(given, nullptr, 10)));
}

TEST(UndoModel, LeadsToTheFilesContentOfThen) {
  const int rounds = Effort{.usual = 1, .in_long_run = 20}.times();
  const int steps = fewerIfSanitized(2'000);
  for (int round = 0; round < rounds; ++round) {
    const unsigned seed = givenSeed().value_or(std::random_device()());
    SCOPED_TRACE("seed " + std::to_string(seed));
    Model model(seed);
    for (int i = 0; i < steps; ++i) {
      model.step();
      ASSERT_FALSE(testing::Test::HasFailure()) << "step " << i;
    }
    EXPECT_GT(model.undone, steps / 20);
    EXPECT_GT(model.redone, steps / 40);
    EXPECT_GT(model.crashes, steps / 250);
    EXPECT_GT(model.changes, steps / 4);
    std::printf("seed %u: %d changes, %d undone, %d redone, %d crashes\n", seed, model.changes,
                model.undone, model.redone, model.crashes);
  }
}

}  // namespace
}  // namespace depcalc
