#include "platform/windows/automation.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/windows/text.h"
#include "platform/windows/variant.h"

namespace tolvane::platform::windows {
namespace {

/// A server of this process: remembers the last call as it arrived.
class RecordingServer final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    for (UINT i = 0; i < count; ++i) {
      const auto found = known.find(names[i]);
      if (found == known.end()) return DISP_E_UNKNOWNNAME;
      ids[i] = found->second;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    last_id = id;
    last_kind = kind;
    arguments.clear();
    arguments.resize(parameters->cArgs);
    for (UINT i = 0; i < parameters->cArgs; ++i) {
      VariantCopy(arguments[i].Address(), &parameters->rgvarg[i]);
    }
    named.assign(parameters->rgdispidNamedArgs,
                 parameters->rgdispidNamedArgs + parameters->cNamedArgs);
    if (result != nullptr) VariantCopy(result, answer.Address());
    return outcome;
  }

  std::map<std::wstring, DISPID> known{{L"Version", 1}, {L"cells", 2},     {L"Value", 3},
                                       {L"SaveAs", 4},  {L"FileName", 11}, {L"FileFormat", 12}};
  ULONG references = 1;
  DISPID last_id = 0;
  WORD last_kind = 0;
  std::vector<Variant> arguments;
  std::vector<DISPID> named;
  Variant answer;
  HRESULT outcome = S_OK;
};

class Automation : public testing::Test {
 protected:
  static String Text(Variant& value) {
    if (value->vt != VT_BSTR) return u"(no text)";
    return String(FromWide(value->bstrVal, SysStringLen(value->bstrVal)));
  }

  RecordingServer server_;
  std::unique_ptr<AutomationObject> object_ = WrapObject(&server_);
};

TEST_F(Automation, GetsAPropertyInTheTypeThatComes) {
  server_.answer->vt = VT_BSTR;
  server_.answer->bstrVal = SysAllocString(L"12.0");
  auto result = object_->Get(u"Version", {});
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(std::get<String>(*result), u"12.0");
  EXPECT_EQ(server_.last_id, 1);
  EXPECT_NE(server_.last_kind & DISPATCH_PROPERTYGET, 0);

  VariantClear(server_.answer.Address());
  server_.answer->vt = VT_I2;
  server_.answer->iVal = -3;
  EXPECT_EQ(std::get<std::int32_t>(*object_->Get(u"Version", {})), -3);
  server_.answer->vt = VT_BOOL;
  server_.answer->boolVal = VARIANT_TRUE;
  EXPECT_TRUE(std::get<bool>(*object_->Get(u"Version", {})));
  server_.answer->vt = VT_R8;
  server_.answer->dblVal = 0.5;
  EXPECT_EQ(std::get<double>(*object_->Get(u"Version", {})), 0.5);
}

TEST_F(Automation, PositionalArgumentsArriveFromTheLastToTheFirst) {
  const AutomationArgument cell[] = {std::int32_t{6}, std::int32_t{12}};
  ASSERT_TRUE(object_->Get(u"cells", cell).has_value());
  ASSERT_EQ(server_.arguments.size(), 2U);
  EXPECT_EQ(server_.arguments[0]->lVal, 12);
  EXPECT_EQ(server_.arguments[1]->lVal, 6);
}

TEST_F(Automation, PutCarriesTheValueUnderThePutsOwnName) {
  ASSERT_TRUE(object_->Put(u"Value", String(u"除外ON")));
  EXPECT_EQ(server_.last_kind, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(server_.named, std::vector<DISPID>{DISPID_PROPERTYPUT});
  EXPECT_EQ(Text(server_.arguments[0]), u"除外ON");
}

TEST_F(Automation, NamedArgumentsArriveUnderTheirNumbers) {
  const NamedArgument named[] = {{u"FileName", String(u"C:\\KL.xls")},
                                 {u"FileFormat", std::int32_t{56}}};
  ASSERT_TRUE(object_->Call(u"SaveAs", {}, named));
  EXPECT_EQ(server_.last_id, 4);
  EXPECT_EQ(server_.named, (std::vector<DISPID>{11, 12}));
  EXPECT_EQ(Text(server_.arguments[0]), u"C:\\KL.xls");
  EXPECT_EQ(server_.arguments[1]->lVal, 56);
}

TEST_F(Automation, ATableCrossesAsOneArrayOfTexts) {
  const String cells[] = {u"a", u"b", u"c", u"d", u"e", u"f"};
  ASSERT_TRUE(object_->Put(u"Value", AutomationTable{cells, 3}));
  ASSERT_EQ(server_.arguments[0]->vt, VT_ARRAY | VT_VARIANT);
  SAFEARRAY* array = server_.arguments[0]->parray;
  ASSERT_EQ(SafeArrayGetDim(array), 2U);
  for (LONG row = 0; row < 2; ++row) {
    for (LONG column = 0; column < 3; ++column) {
      LONG place[] = {row, column};
      Variant cell;
      ASSERT_EQ(SafeArrayGetElement(array, place, cell.Address()), S_OK);
      EXPECT_EQ(Text(cell), cells[row * 3 + column]);
    }
  }
  LONG place[] = {2, 0};
  Variant beyond;
  EXPECT_NE(SafeArrayGetElement(array, place, beyond.Address()), S_OK);
}

TEST_F(Automation, ObjectsGoInAndOutWithTheirCounts) {
  RecordingServer other;
  server_.answer->vt = VT_DISPATCH;
  server_.answer->pdispVal = &other;
  other.AddRef();
  {
    auto result = object_->Get(u"cells", {});
    ASSERT_TRUE(result.has_value());
    auto& cell = std::get<std::unique_ptr<AutomationObject>>(*result);
    const AutomationArgument corner[] = {cell.get()};
    ASSERT_TRUE(object_->Get(u"cells", corner).has_value());
    EXPECT_EQ(server_.arguments[0]->pdispVal, &other);
    server_.arguments.clear();
  }
  VariantClear(server_.answer.Address());
  EXPECT_EQ(other.references, 1U);
  object_.reset();
  EXPECT_EQ(server_.references, 0U);
}

TEST_F(Automation, RefusalsAndUnknownNamesAreFailures) {
  EXPECT_FALSE(object_->Get(u"Nothing", {}).has_value());
  EXPECT_FALSE(object_->Put(u"Nothing", true));
  EXPECT_FALSE(object_->Call(u"Nothing", {}, {}));
  server_.outcome = DISP_E_EXCEPTION;
  EXPECT_FALSE(object_->Get(u"Version", {}).has_value());
  EXPECT_FALSE(object_->Put(u"Value", std::int32_t{1}));
  EXPECT_FALSE(object_->Call(u"SaveAs", {}, {}));
}

TEST(AutomationServer, AnUnknownNameMakesNoObject) {
  ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  EXPECT_EQ(WindowsAutomationServers().CreateObject(u"Tolvane.NoSuchServer"), nullptr);
  CoUninitialize();
}

}  // namespace
}  // namespace tolvane::platform::windows
