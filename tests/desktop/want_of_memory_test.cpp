// Memory that runs out while the window reads, saves or deletes assets of a company file: what the
// file held is what it holds, unless all of the change is in it.
#include <QTemporaryDir>
#include <iostream>
#include <random>

#include "DepCalc/register_answers.h"
#include "common/trapped.h"
#include "desktop/host/stored_companies.h"
#include "desktop/window/main_window.h"
#include "register/register_array.h"
#include "tests/desktop/boxes.h"
#include "tests/host/sqlite/company_fixture.h"
#include "tests/support/failing_allocation.h"

// The leak sanitizer asks for this name.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" int __lsan_is_turned_off();
/// Where an allocation fails inside Qt, Qt's own widgets keep what they had taken before. Leaks of
/// ours are looked for where memory fails without a window.
extern "C" int __lsan_is_turned_off() { return 1; }
// NOLINTEND(bugprone-reserved-identifier)

namespace depcalc::testing {
namespace {

using testing_support::FailingAllocation;
using testing_support::TableContent;
using In = FailingAllocation::In;

constexpr int assets = 4;

/// When memory fails: so many allocations in a row, the nth first; 0: never.
struct Want {
  In in = In::program;
  long nth = 0;
  long in_a_row = 1;
};

/// A window with a company file, and the answers that its register gets.
class OpenWindow {
 public:
  explicit OpenWindow(const std::string& path) {
    // Where a change cannot be written: a question would need memory, too.
    companies_.whenChangeFails([](const FailedChange&) { return GiveUp(); });
    window_.show();
    EXPECT_TRUE(window_.openCompany(QString::fromStdString(path)));
    settle();
  }

  /// Reads the register as its screen does.
  void read() { RegisterAnswers(container()).GetCalcDepAll(assets_, first_year_, years_, count_); }
  /// Deletes the first asset as the register's screen does.
  void deleteFirst() {
    if (assets_.front() == nullptr) return;
    const std::int16_t index = takeOut(assets_, 1, count_);
    RegisterAnswers(container()).DeleteButtonClick(assets_, index);
  }
  void renameFirst() {
    if (assets_.front() != nullptr) assets_.front()->AssetName("Another name");
  }
  void saveFirst() {
    if (assets_.front() != nullptr) RegisterAnswers(container()).SaveRecord(assets_.front());
  }

  /// What a user does, and then what has waited for it.
  template <typename Step>
  void act(Step step) {
    window_.calculator()->surface().act([&](User&) { step(); });
    settle();
  }
  /// Memory fails meanwhile. Returns whether it came to that.
  template <typename Step>
  bool actInWant(const Want& want, Step step) {
    bool reached = false;
    act([&] {
      const FailingAllocation failing(want.in, want.nth, want.in_a_row);
      trapped("DepCalcDesktop::act", step);
      reached = failing.reached();
    });
    return reached;
  }

 private:
  DepCalcCont& container() { return window_.calculator()->container(); }
  static void settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }

  Boxes boxes_;
  QTemporaryDir directory_;
  desktop::StoredCompanies companies_{[] { return Date::strict(2024, 6, 1); }};
  desktop::Settings settings_{directory_.filePath("settings.ini")};
  desktop::Backups backups_{directory_.filePath("backups")};
  desktop::MainWindow window_{
      {companies_, settings_, backups_, [] { return Date::strict(2024, 6, 1); }, "/start"}};
  CalculateDepArray assets_{nullptr, nullptr};
  std::int16_t first_year_ = 0;
  double years_ = 0;
  std::int16_t count_ = 0;
};

class WantOfMemory : public testing_support::CompanyFile {
 protected:
  WantOfMemory() {
    save(create(), assets);
    bytes_ = testing_support::bytesOf(path_);
    before_ = reread();
  }

  /// What the file holds when the window has gone.
  template <typename Use>
  TableContent after(Use use) {
    testing_support::writeBytes(path_, bytes_);
    {
      OpenWindow window(path_);
      use(window);
    }
    return reread();
  }

  /// `use` does something in want of memory and says whether it came to that.
  template <typename Use>
  void expectNothingLost(Use use) {
    const TableContent done = after([&](OpenWindow& window) { use(window, Want{}); });
    ASSERT_FALSE(done == before_);
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    int runs = 0;
    int kept = 0;
    for (const In in : {In::program, In::library}) {
      bool reached = true;
      for (long nth = 1; reached; nth += 1 + static_cast<long>(random() % 3)) {
        const Want want{in, nth, 2 + static_cast<long>(random() % 19)};
        const TableContent found = after([&](OpenWindow& window) { reached = use(window, want); });
        EXPECT_TRUE(found == done || found == before_)
            << (in == In::program ? "program" : "SQLite") << ", allocation " << want.nth << ", "
            << want.in_a_row << " in a row: " << testing_support::describe(found);
        ++runs;
        kept += found == before_ ? 1 : 0;
        if (HasFailure()) return;
      }
    }
    std::cout << runs << " runs, " << kept << " stopped\n";
    EXPECT_GT(kept, 0) << "no want of memory stopped anything";
  }

  std::string bytes_;
  TableContent before_;
};

TEST_F(WantOfMemory, ADeletionAfterAReadingCutShortChangesNothing) {
  expectNothingLost([](OpenWindow& window, const Want& want) {
    const bool reached = window.actInWant(want, [&] { window.read(); });
    window.act([&] { window.deleteFirst(); });
    return reached;
  });
}

TEST_F(WantOfMemory, AnAssetReadInPartIsNotSaved) {
  expectNothingLost([](OpenWindow& window, const Want& want) {
    const bool reached = window.actInWant(want, [&] { window.read(); });
    window.renameFirst();
    window.act([&] { window.saveFirst(); });
    return reached;
  });
}

TEST_F(WantOfMemory, ADeletionCutShortChangesNothing) {
  expectNothingLost([](OpenWindow& window, const Want& want) {
    window.act([&] { window.read(); });
    return window.actInWant(want, [&] { window.deleteFirst(); });
  });
}

TEST_F(WantOfMemory, ASavingCutShortChangesNothing) {
  expectNothingLost([](OpenWindow& window, const Want& want) {
    window.act([&] { window.read(); });
    window.renameFirst();
    return window.actInWant(want, [&] { window.saveFirst(); });
  });
}

}  // namespace
}  // namespace depcalc::testing
