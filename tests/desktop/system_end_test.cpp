// The system asks the program to end: what the window then asks, and what it does without an
// answer.
#include "desktop/window/system_end.h"

#include <QMessageBox>
#include <QSessionManager>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SystemEnd : WindowTest {
  SystemEnd() {
    newCompany();
    write(path());
    window.closeCompany();
    EXPECT_TRUE(window.openCompany(path()));
    settle();
  }

  static void write(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("SQLite format 3");
  }
  /// Copies that are set aside or have become backups.
  int copies() {
    int found = 0;
    const QDir root(directory.filePath("backups"));
    for (const QString& folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      found += static_cast<int>(QDir(root.filePath(folder)).entryList(QDir::Files).size());
    }
    return found;
  }
  template <typename It>
  static bool sees(It it) {
    return QTest::qWaitFor(it, 20'000);
  }
  static QMessageBox* question() {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box != nullptr && box->isVisible() ? box : nullptr;
  }
  /// As a signal comes: through the event loop, while dialogs may be open.
  void hear(bool insists = true) {
    QTimer::singleShot(0, [this, insists] { end.hear(insists); });
  }
  /// Runs `then` once the question stands.
  void whenAsked(std::function<void(QMessageBox&)> then) {
    boxes.answering = false;
    QObject::connect(&look, &QTimer::timeout, [this, then] {
      if (question() == nullptr) return;
      look.stop();
      then(*question());
    });
    look.start(5);
  }

  int ended = 0;
  QTimer look;
  desktop::SystemEnd end{window, std::chrono::minutes(10), [this] {
                           ++ended;
                           if (question() != nullptr) question()->reject();
                         }};
};

TEST_F(SystemEnd, ClosesAtOnceWhereNothingIsUnsaved) {
  ASSERT_EQ(copies(), 1);
  hear();
  EXPECT_TRUE(sees([this] { return !window.isVisible(); }));
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(window.company(), nullptr);
  EXPECT_EQ(copies(), 0);
  EXPECT_EQ(ended, 0);
}

TEST_F(SystemEnd, AsksAboutAnUnsavedAssetAndSaysWhy) {
  fill("A-1");
  QString note;
  whenAsked([&](QMessageBox& box) {
    note = box.informativeText();
    QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
  });
  hear();
  EXPECT_TRUE(sees([this] { return !window.isVisible(); }));
  EXPECT_EQ(note,
            "The system has asked this program to close. Without an answer within 600 seconds, "
            "it will close without saving.");
  EXPECT_EQ(ended, 0);
}

TEST_F(SystemEnd, StaysWhereTheUserCancelsAndAsksAnew) {
  fill("A-1");
  for (int i = 0; i < 2; ++i) {
    boxes.answers = {QMessageBox::Cancel};
    hear();
    EXPECT_TRUE(sees([this] { return boxes.answers.empty(); }));
    settle();
    EXPECT_EQ(boxes.take().size(), 1U);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(form().IDText.text(), "A-1");
  }
  EXPECT_EQ(ended, 0);
}

TEST_F(SystemEnd, ASecondSignalEndsWithoutSaving) {
  fill("A-1");
  whenAsked([this](QMessageBox&) {
    hear(false);
    hear();
  });
  hear();
  EXPECT_TRUE(sees([this] { return ended == 1; }));
  EXPECT_EQ(copies(), 0);
  EXPECT_EQ(settings.lastCompany(), path());
}

/// As one that a system sends behind the first.
TEST_F(SystemEnd, ASignalThatDoesNotInsistLeavesTheQuestion) {
  fill("A-1");
  whenAsked([this](QMessageBox& box) {
    end.hear(false);
    QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
  });
  hear();
  settle();
  EXPECT_TRUE(sees([this] { return !look.isActive() && question() == nullptr; }));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(ended, 0);
}

/// Signals that are sent together may arrive in another order.
TEST_F(SystemEnd, ASignalThatInsistsBehindOneThatDoesNotLeavesTheQuestion) {
  fill("A-1");
  int asked_when_second = 0;
  whenAsked([&](QMessageBox&) {
    end.hear(true);
    asked_when_second = question() != nullptr && ended == 0 ? 1 : 0;
    hear();
  });
  hear(false);
  EXPECT_TRUE(sees([this] { return ended == 1; }));
  EXPECT_EQ(asked_when_second, 1);
}

TEST_F(SystemEnd, NoAnswerEndsWithoutSaving) {
  fill("A-1");
  boxes.answering = false;
  int ended_by_itself = 0;
  desktop::SystemEnd impatient(window, std::chrono::milliseconds(60), [&] {
    ++ended_by_itself;
    if (question() != nullptr) question()->reject();
  });
  QTimer::singleShot(0, [&] { impatient.hear(true); });
  EXPECT_TRUE(sees([&] { return ended_by_itself == 1; }));
  EXPECT_EQ(copies(), 0);
}

TEST_F(SystemEnd, CancelsWhatIsOpenFirst) {
  fill("A-1");
  boxes.answers = {QMessageBox::No};
  QTimer::singleShot(50, [this] {
    EXPECT_NE(QApplication::activeModalWidget(), nullptr);
    end.hear(true);
  });
  action("Company Info…").trigger();
  EXPECT_TRUE(sees([this] { return !window.isVisible(); }));
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(ended, 0);
}

TEST_F(SystemEnd, LeavesADialogThatMustBeAnswered) {
  boxes.answering = false;
  QMessageBox box(QMessageBox::NoIcon, "Not saved", "…", QMessageBox::Retry | QMessageBox::Close,
                  &window);
  desktop::keepAtSystemEnd(box);
  QTimer::singleShot(200, &box, [&] {
    EXPECT_TRUE(box.isVisible());
    EXPECT_TRUE(window.isVisible());
    box.button(QMessageBox::Close)->click();
  });
  hear();
  box.exec();
  EXPECT_TRUE(sees([this] { return !window.isVisible(); }));
}

TEST_F(SystemEnd, TheSessionEndsOrStaysAsTheUserSays) {
  EXPECT_TRUE(end.sessionMayEnd());
  fill("A-1");
  boxes.answers = {QMessageBox::Cancel, QMessageBox::No};
  EXPECT_FALSE(end.sessionMayEnd());
  settle();
  EXPECT_TRUE(end.sessionMayEnd());
  EXPECT_EQ(boxes.take().size(), 2U);
  EXPECT_TRUE(window.close()) << "the answer stands";
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(SystemEnd, AnOpenDialogKeepsTheSessionOnlyWhereSomethingIsUnsaved) {
  const auto mayEndBehindADialog = [this] {
    bool may = false;
    onDialog([this] { action("Company Info…").trigger(); },
             [&](QDialog&) { may = end.sessionMayEnd(); });
    return may;
  };
  EXPECT_TRUE(mayEndBehindADialog());
  fill("A-1");
  EXPECT_FALSE(mayEndBehindADialog());
  EXPECT_THAT(boxes.take(), IsEmpty());
}

/// Here no session manager lets the program ask.
TEST_F(SystemEnd, NothingIsAskedWhereTheSessionLeavesNoTimeForIt) {
  fill("A-1");
  auto* const session = qApp->findChild<QSessionManager*>();
  ASSERT_NE(session, nullptr);
  ASSERT_FALSE(session->allowsInteraction());
  emit qApp->commitDataRequest(*session);
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace depcalc::testing
