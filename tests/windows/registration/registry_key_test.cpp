#include "windows/registration/registry_key.h"

#include <gtest/gtest.h>

#include <system_error>

namespace depcalc {
namespace {

const std::wstring place = L"Software\\DepCalcRegistryKeyTest";

class RegistryKeyTest : public testing::Test {
 protected:
  void SetUp() override { removeRegistryTree(HKEY_CURRENT_USER, place); }
  void TearDown() override { removeRegistryTree(HKEY_CURRENT_USER, place); }
};

TEST_F(RegistryKeyTest, KeepsTexts) {
  EXPECT_FALSE(RegistryKey::open(HKEY_CURRENT_USER, place));
  const auto key = RegistryKey::create(HKEY_CURRENT_USER, place);
  EXPECT_TRUE(key.empty());
  EXPECT_FALSE(key.text(L""));
  key.setText(L"", L"Asset depreciation");
  key.setText(L"Empty", L"");
  EXPECT_FALSE(key.empty());
  const auto read = RegistryKey::open(HKEY_CURRENT_USER, place);
  EXPECT_EQ(read->text(L""), L"Asset depreciation");
  EXPECT_EQ(read->text(L"Empty"), L"");
}

TEST_F(RegistryKeyTest, GoesWithAllBelow) {
  RegistryKey::create(HKEY_CURRENT_USER, place + L"\\one\\two").setNumber(L"n", 3);
  removeRegistryTree(HKEY_CURRENT_USER, place);
  EXPECT_FALSE(RegistryKey::open(HKEY_CURRENT_USER, place));
}

TEST_F(RegistryKeyTest, SaysWhatTheSystemSays) {
  const auto key = RegistryKey::create(HKEY_CURRENT_USER, place);
  key.setNumber(L"number", 1);
  EXPECT_THROW(static_cast<void>(key.text(L"number")), std::system_error);
}

}  // namespace
}  // namespace depcalc
