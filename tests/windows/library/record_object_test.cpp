// The asset as early-bound clients and clients by name have it.
#include <gtest/gtest.h>
#include <oleauto.h>

#include <vector>

#include "tests/windows/library/library_objects.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

class RecordObject : public testing::Test {
 protected:
  Library library;
  ComPtr<ICalculateDep> record = library.make<ICalculateDep>(__uuidof(::CalculateDep));

  [[nodiscard]] DISPID id(const wchar_t* name) const {
    DISPID found = DISPID_UNKNOWN;
    auto* asked = const_cast<wchar_t*>(name);
    EXPECT_EQ(record->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_NEUTRAL, &found), S_OK) << name;
    return found;
  }
};

TEST_F(RecordObject, NumbersItsMembersInTheOrderOfItsFields) {
  const wchar_t* const names[] = {L"RecIndex",
                                  L"RecNew",
                                  L"RecSaved",
                                  L"RecChanged",
                                  L"AssetID",
                                  L"AssetName",
                                  L"ASerial",
                                  L"ADept",
                                  L"AssetEndDate",
                                  L"ASalePrice",
                                  L"AssetBasis",
                                  L"AssetStartDate",
                                  L"AssetSalvage",
                                  L"AssetProdCap",
                                  L"DepRecovery",
                                  L"DepConvention",
                                  L"FYEnd",
                                  L"DepMethod",
                                  L"DepItem",
                                  L"FullyDepreciated",
                                  L"StraightLine",
                                  L"SumofYearsDigits",
                                  L"DoubleDecliningBalance",
                                  L"UnitsofProduction"};
  DISPID expected = 0;
  for (const wchar_t* name : names) EXPECT_EQ(id(name), ++expected);
}

TEST_F(RecordObject, GivesArraysOfMoneyToCompilersAndOfVariantsByName) {
  record->put_DepRecovery(3);
  record->put_AssetBasis(cyFrom(Currency::fromTicks(10'000'000)));
  record->put_AssetStartDate(45108);
  record->put_FYEnd(45291);
  SAFEARRAY* amounts = nullptr;
  ASSERT_EQ(record->StraightLine(&amounts), S_OK);
  VARTYPE type = VT_EMPTY;
  SafeArrayGetVartype(amounts, &type);
  EXPECT_EQ(type, VT_CY);
  const std::vector<std::int64_t> expected{3'333'300, 3'333'300, 3'333'400, 0, 0};
  std::vector<std::int64_t> got;
  for (const CY amount : ArrayView<CY>(*amounts).items()) got.push_back(amount.int64);
  EXPECT_EQ(got, expected);
  SafeArrayDestroy(amounts);

  Variant answer;
  ASSERT_EQ(call(*record.Get(), id(L"StraightLine"), DISPATCH_METHOD, {}, &answer.get()).result,
            S_OK);
  ASSERT_EQ(V_VT(&answer.get()), VT_ARRAY | VT_VARIANT);
  got.clear();
  for (const VARIANT& amount : ArrayView<VARIANT>(*V_ARRAY(&answer.get())).items())
    got.push_back(V_CY(&amount).int64);
  EXPECT_EQ(got, expected);
}

TEST_F(RecordObject, TellsARunTimeErrorByNumberAndDescription) {
  record->put_DepRecovery(-5);
  SAFEARRAY* amounts = nullptr;
  EXPECT_EQ(record->StraightLine(&amounts), static_cast<HRESULT>(0x800A0009));
  EXPECT_EQ(amounts, nullptr);
  ComPtr<IErrorInfo> error;
  ASSERT_EQ(GetErrorInfo(0, &error), S_OK);
  BSTR description = nullptr;
  error->GetDescription(&description);
  EXPECT_STREQ(description, L"Subscript out of range");
  SysFreeString(description);
  ComPtr<ISupportErrorInfo> supports;
  ASSERT_EQ(record.As(&supports), S_OK);
  EXPECT_EQ(supports->InterfaceSupportsErrorInfo(__uuidof(ICalculateDep)), S_OK);
  EXPECT_EQ(supports->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);

  const CallResult called = call(*record.Get(), id(L"StraightLine"), DISPATCH_METHOD, {});
  EXPECT_EQ(called.result, DISP_E_EXCEPTION);
  EXPECT_EQ(called.exception.scode, static_cast<SCODE>(0x800A0009));
}

TEST_F(RecordObject, RefusesWrongArguments) {
  const DISPID depreciated = id(L"FullyDepreciated");
  const DISPID basis = id(L"AssetBasis");
  IDispatch& object = *record.Get();
  VARIANT array;
  V_VT(&array) = VT_ARRAY | VT_I4;
  V_ARRAY(&array) = nullptr;
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  VARIANT null;
  V_VT(&null) = VT_NULL;
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {number(1)}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {number(1), number(2), number(3)}).result,
            DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {number(1), missing}).result,
            DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {number(1), null}).result,
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(call(object, depreciated, DISPATCH_METHOD, {number(1), array}).result,
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(call(object, basis, DISPATCH_PROPERTYPUT, {number(1e300)}).result, DISP_E_OVERFLOW);
  EXPECT_EQ(call(object, basis, DISPATCH_PROPERTYPUTREF, {number(1)}).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(call(object, 999, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(
      object.Invoke(basis, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);
  DISPPARAMS broken{nullptr, nullptr, 1, 0};
  EXPECT_EQ(
      object.Invoke(basis, IID_NULL, 0, DISPATCH_PROPERTYPUT, &broken, nullptr, nullptr, nullptr),
      E_POINTER);
  DISPPARAMS none{};
  EXPECT_EQ(object.Invoke(basis, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr,
                          nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(object.GetTypeInfo(1, 0, nullptr), E_POINTER);
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(object.GetTypeInfo(1, 0, &info), DISP_E_BADINDEX);
  EXPECT_EQ(object.GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(object.GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(object.QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(RecordObject, RefusesNullPointers) {
  EXPECT_EQ(record->get_RecIndex(nullptr), E_POINTER);
  EXPECT_EQ(record->get_RecNew(nullptr), E_POINTER);
  EXPECT_EQ(record->get_RecSaved(nullptr), E_POINTER);
  EXPECT_EQ(record->get_RecChanged(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetID(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetName(nullptr), E_POINTER);
  EXPECT_EQ(record->get_ASerial(nullptr), E_POINTER);
  EXPECT_EQ(record->get_ADept(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetEndDate(nullptr), E_POINTER);
  EXPECT_EQ(record->get_ASalePrice(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetBasis(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetStartDate(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetSalvage(nullptr), E_POINTER);
  EXPECT_EQ(record->get_AssetProdCap(nullptr), E_POINTER);
  EXPECT_EQ(record->get_DepRecovery(nullptr), E_POINTER);
  EXPECT_EQ(record->get_DepConvention(nullptr), E_POINTER);
  EXPECT_EQ(record->get_FYEnd(nullptr), E_POINTER);
  EXPECT_EQ(record->get_DepMethod(nullptr), E_POINTER);
  EXPECT_EQ(record->get_DepItem(0, nullptr), E_POINTER);
  EXPECT_EQ(record->FullyDepreciated(1, 2, nullptr), E_POINTER);
  EXPECT_EQ(record->StraightLine(nullptr), E_POINTER);
  EXPECT_EQ(record->SumofYearsDigits(nullptr), E_POINTER);
  EXPECT_EQ(record->DoubleDecliningBalance(nullptr), E_POINTER);
  EXPECT_EQ(record->UnitsofProduction(nullptr), E_POINTER);
  // The null text is the empty one.
  EXPECT_EQ(record->put_AssetID(nullptr), S_OK);
  EXPECT_EQ(record->put_AssetStartDate(1e300), static_cast<HRESULT>(0x800A0005));
}

TEST_F(RecordObject, KeepsAMegabyteOfText) {
  const std::wstring text(1 << 20, L'\u20AC');
  BSTR given = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  ASSERT_EQ(record->put_AssetName(given), S_OK);
  BSTR taken = nullptr;
  ASSERT_EQ(record->get_AssetName(&taken), S_OK);
  EXPECT_EQ(std::wstring(taken, SysStringLen(taken)), text);
  SysFreeString(given);
  SysFreeString(taken);
}

TEST_F(RecordObject, IsDescribedByItsClass) {
  ComPtr<IProvideClassInfo> provider;
  ASSERT_EQ(record.As(&provider), S_OK);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(&info), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_TRUE(attributes->guid == __uuidof(::CalculateDep));
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
}

}  // namespace
}  // namespace depcalc::windows
