// The names that files get, and folders that take none.
#include "desktop/window/file_names.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>

namespace depcalc::desktop {
namespace {

TEST(FileNames, OnlyTheirEndCountsAsASuffix) {
  const struct {
    const char* chosen;
    const char* named;
  } cases[] = {
      {"/a/joinery", "/a/joinery.company"},
      {"/a/joinery.company", "/a/joinery.company"},
      {"/a/joinery.COMPANY", "/a/joinery.COMPANY"},
      {"/a/Smith & Co. 2024", "/a/Smith & Co. 2024.company"},
      {"/a/St. John's", "/a/St. John's.company"},
      {"/a.company/joinery", "/a.company/joinery.company"},
      {"/a/joinery.company.old", "/a/joinery.company.old.company"},
      {"/a/joinery.", "/a/joinery..company"},
  };
  for (const auto& [chosen, named] : cases) {
    EXPECT_EQ(withSuffix(chosen, ".company").toStdString(), named);
  }
}

/// A user who is nobody in particular: to the superuser every folder is open.
class OrdinaryUser {
 public:
  OrdinaryUser() : was_(getuid()) { EXPECT_EQ(was_ == 0 ? setreuid(65534, 0) : 0, 0); }
  ~OrdinaryUser() { EXPECT_EQ(was_ == 0 ? setreuid(0, 0) : 0, 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  uid_t was_;
};

TEST(FileNames, AFolderThatTakesNoFileIsSaidSo) {
  const QTemporaryDir directory;
  const QString folder = directory.filePath("closed");
  ASSERT_TRUE(QDir().mkpath(folder));
  EXPECT_EQ(folderTrouble(folder + "/new.company").toStdString(), "");
  EXPECT_EQ(folderTrouble(folder + "/none/new.company").toStdString(),
            "The folder " + folder.toStdString() +
                "/none does not exist. Choose another folder, or create this one first.");
  ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
  const OrdinaryUser user;
  EXPECT_EQ(folderTrouble(folder + "/new.company").toStdString(),
            "You do not have permission to add files to the folder " + folder.toStdString() +
                ". Choose another folder.");
}

}  // namespace
}  // namespace depcalc::desktop
