// What a user does in the window itself: keys, clicks, dialogs, other programs.
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct Entering : RealWindow {};

TEST_F(Entering, AnAssetIsTypedComparedAndSaved) {
  newCompany();
  ASSERT_EQ(shown(), "DepCalcCtl1");
  enterAsset({"TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "9/15/2023", "", "5", "",
              "38450", "4000", "150000"});
  EXPECT_EQ(text(&DepCalcCtl::BasisText), "38,450.00");
  user.key("alt+c");
  ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  click(comparison().SaveButton.normal);
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_THAT(idsIn(path()), ElementsAre("TRK-014"));
}

TEST_F(Entering, ADialogIsOpenedAndLeftAsItWas) {
  newCompany();
  user.key("ctrl+o");
  const SeenDialog dialog = user.dialog();
  EXPECT_EQ(dialog.kind, "QFileDialog");
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(shown(), "DepCalcCtl1");
}

}  // namespace
}  // namespace depcalc::testing
