// Dated copies where the disk fails: whole or not there, and the company file as it was.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <functional>

#include "desktop/host/backups.h"

namespace depcalc::testing {
namespace {

struct BackupFaults : ::testing::Test {
  BackupFaults() {
    write(company, present);
    EXPECT_TRUE(backups.setAside(company));
    EXPECT_TRUE(backups.keep(company, QDateTime(QDate(2024, 6, 1), QTime(9, 0))));
    write(company, changed);
  }

  static void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  static QByteArray read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  /// Whether `holds` in a process whose files may not grow beyond `most` bytes.
  static bool withLimit(rlim_t most, const std::function<bool()>& holds) {
    const pid_t child = ::fork();
    if (child == 0) {
      std::signal(SIGXFSZ, SIG_IGN);
      const struct rlimit limit = {most, most};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      ::_exit(holds() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  /// All files below the directory, by name.
  QStringList files() const {
    QStringList names;
    for (const QString& folder :
         QDir(directory.filePath("backups")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      names += QDir(directory.filePath("backups/") + folder).entryList(QDir::Files | QDir::Hidden);
    }
    return names + QDir(directory.path()).entryList(QDir::Files | QDir::Hidden);
  }

  QTemporaryDir directory;
  QString company = directory.filePath("acme.company");
  QByteArray present = QByteArray("SQLite format 3") + QByteArray(300'000, 'a');
  QByteArray changed = QByteArray("SQLite format 3") + QByteArray(300'000, 'b');
  desktop::Backups backups{directory.filePath("backups")};
};

TEST_F(BackupFaults, NoPartOfACopyIsLeftWhereTheDiskIsFull) {
  const QStringList before = files();
  for (const auto most : std::initializer_list<rlim_t>{0, 1, 4'096, 262'144, 300'014}) {
    EXPECT_TRUE(withLimit(most, [&] { return !backups.setAside(company); })) << most;
    EXPECT_EQ(files(), before) << most;
    EXPECT_EQ(read(company), changed);
  }
}

TEST_F(BackupFaults, RestoringOnAFullDiskSaysSoAndLeavesTheCompanyAsItIs) {
  const desktop::Backup backup = backups.of(company).front();
  const QStringList before = files();
  for (const auto most : std::initializer_list<rlim_t>{0, 4'096, 300'014}) {
    EXPECT_TRUE(withLimit(most, [&] {
      return !backups.restore(backup, company, QDateTime::currentDateTime()).isEmpty();
    })) << most;
    EXPECT_EQ(read(company), changed);
    EXPECT_EQ(read(backup.path), present);
    EXPECT_EQ(files(), before) << most;
  }
  EXPECT_EQ(backups.restore(backup, company, QDateTime::currentDateTime()), QString());
  EXPECT_EQ(read(company), present);
  EXPECT_EQ(read(backups.of(company).front().path), changed) << "what was there is a backup now";
}

TEST_F(BackupFaults, ACopyThatCannotBeKeptIsTold) {
  ASSERT_TRUE(backups.setAside(company));
  const QDateTime now(QDate(2024, 6, 2), QTime(9, 0));
  // Its name is taken.
  const QString folder = QFileInfo(backups.of(company).front().path).path();
  ASSERT_TRUE(QDir(folder).mkdir(now.toString("yyyy-MM-dd HH.mm.ss.zzz") + ".company"));
  EXPECT_FALSE(backups.keep(company, now));
  EXPECT_EQ(read(company), changed);
  EXPECT_TRUE(backups.keep(company, now)) << "nothing is set aside any more";
}

TEST_F(BackupFaults, ARestoredCompanyIsForThoseWhoHadIt) {
  const QByteArray path = QFile::encodeName(company);
  const desktop::Backup backup = backups.of(company).front();
  for (const mode_t mode : {0664U, 0640U, 0600U}) {
    ASSERT_EQ(::chmod(path.constData(), mode), 0);
    // Only root may give a file to a group that it is not in.
    const gid_t group = ::getuid() == 0 ? 12 : ::getgid();
    ASSERT_EQ(::chown(path.constData(), static_cast<uid_t>(-1), group), 0);
    ASSERT_EQ(backups.restore(backup, company, QDateTime::currentDateTime()), "");
    struct stat restored {};
    ASSERT_EQ(::stat(path.constData(), &restored), 0);
    EXPECT_EQ(restored.st_mode & 0777, mode);
    EXPECT_EQ(restored.st_gid, group);
  }
  struct stat kept {};
  ASSERT_EQ(::stat(QFile::encodeName(backups.of(company).front().path).constData(), &kept), 0);
  EXPECT_EQ(kept.st_mode & 0777, mode_t{0600}) << "the copies are for their user alone";
}

TEST_F(BackupFaults, ARestoredCompanyHasNoJournalOfTheOneBefore) {
  write(company + "-journal", "an unfinished change");
  ASSERT_EQ(backups.restore(backups.of(company).front(), company, QDateTime::currentDateTime()),
            "");
  EXPECT_EQ(read(company), present);
  EXPECT_FALSE(QFile::exists(company + "-journal"));
}

}  // namespace
}  // namespace depcalc::testing
