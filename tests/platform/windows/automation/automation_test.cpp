#include "platform/windows/automation/automation.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "platform/windows/automation/variant.h"
#include "platform/windows/system/text.h"

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
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    locales.insert(locale);
    if (name_refusals > 0) {
      --name_refusals;
      return refusal;
    }
    for (UINT i = 0; i < count; ++i) {
      const auto found = known.find(names[i]);
      if (found == known.end()) return DISP_E_UNKNOWNNAME;
      ids[i] = found->second;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT*) override {
    ++invocations;
    locales.insert(locale);
    if (refusals > 0) {
      --refusals;
      if (!by_exception) return refusal;
      exception->scode = refusal;
      exception->bstrDescription = SysAllocString(L"busy");
      return DISP_E_EXCEPTION;
    }
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

  std::set<LCID> locales;  // of all calls
  HRESULT refusal = S_OK;
  int name_refusals = 0;  // searches for names that are refused first
  int refusals = 0;       // calls that are refused first
  bool by_exception = false;
  int invocations = 0;
};

class Automation : public testing::Test {
 protected:
  static String Text(Variant& value) {
    if (value->vt != VT_BSTR) return u"(no text)";
    return String(FromWide(value->bstrVal, SysStringLen(value->bstrVal)));
  }

  RecordingServer server_;
  std::unique_ptr<AutomationObject> object_ = WrapObject(&server_, std::make_shared<Patience>());
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
  ASSERT_EQ(server_.arguments[0]->vt, VT_ARRAY | VT_BSTR);
  SAFEARRAY* array = server_.arguments[0]->parray;
  ASSERT_EQ(SafeArrayGetDim(array), 2U);
  for (LONG row = 0; row < 2; ++row) {
    for (LONG column = 0; column < 3; ++column) {
      LONG place[] = {row, column};
      Variant cell;
      cell->vt = VT_BSTR;
      ASSERT_EQ(SafeArrayGetElement(array, place, &cell->bstrVal), S_OK);
      EXPECT_EQ(Text(cell), cells[row * 3 + column]);
    }
  }
  LONG place[] = {2, 0};
  BSTR beyond = nullptr;
  EXPECT_NE(SafeArrayGetElement(array, place, &beyond), S_OK);
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

TEST_F(Automation, EveryCallIsInEnglishWhateverTheUsersLanguage) {
  EXPECT_TRUE(object_->Get(u"Version", {}).has_value());
  EXPECT_TRUE(object_->Put(u"Value", true));
  const NamedArgument named[] = {{u"FileFormat", std::int32_t{56}}};
  EXPECT_TRUE(object_->Call(u"SaveAs", {}, named));
  EXPECT_EQ(server_.locales, std::set<LCID>{1033});
}

constexpr auto kSuspended = static_cast<HRESULT>(0x800AC472);

TEST_F(Automation, ACallThatIsTurnedAwayIsMadeAgain) {
  struct Row {
    const char* label;
    HRESULT refusal;
    int of_names;
    bool by_exception;
  };
  for (const Row& row : {Row{"rejected", RPC_E_CALL_REJECTED, 0, false},
                         Row{"rejected name", RPC_E_CALL_REJECTED, 2, false},
                         Row{"later", RPC_E_SERVERCALL_RETRYLATER, 0, false},
                         Row{"later name", RPC_E_SERVERCALL_RETRYLATER, 2, false},
                         Row{"suspended", kSuspended, 0, false},
                         Row{"suspended by exception", kSuspended, 0, true}}) {
    server_.refusal = row.refusal;
    server_.name_refusals = row.of_names;
    server_.by_exception = row.by_exception;
    server_.refusals = 2;
    EXPECT_TRUE(object_->Put(u"Value", String(u"a"))) << row.label;
    EXPECT_EQ(Text(server_.arguments[0]), u"a") << row.label;
    server_.refusals = 2;
    EXPECT_TRUE(object_->Get(u"cells", {}).has_value()) << row.label;
    server_.refusals = 2;
    EXPECT_TRUE(object_->Call(u"SaveAs", {}, {})) << row.label;
  }
}

TEST_F(Automation, AnyOtherFailureIsFinal) {
  for (const HRESULT refusal : {E_FAIL, static_cast<HRESULT>(0x800A03EC), RPC_E_DISCONNECTED}) {
    for (const bool by_exception : {false, true}) {
      server_.refusal = refusal;
      server_.by_exception = by_exception;
      server_.refusals = 1;
      server_.invocations = 0;
      EXPECT_FALSE(object_->Put(u"Value", true));
      EXPECT_EQ(server_.invocations, 1);
    }
  }
}

TEST_F(Automation, AnExceptionWithoutACodeIsAFailure) {
  server_.by_exception = true;
  server_.refusals = 1;
  EXPECT_FALSE(object_->Put(u"Value", true));
}

TEST_F(Automation, TheTimeForABusyServerIsOneForAllItsObjectsAndRenewedByASequence) {
  constexpr ULONGLONG kLimit_ms = 200;
  server_.AddRef();
  const auto patience = std::make_shared<Patience>(kLimit_ms);
  const auto server = WrapObject(&server_, patience);
  RecordingServer part;
  server_.answer->vt = VT_DISPATCH;
  server_.answer->pdispVal = &part;
  part.AddRef();
  auto result = server->Get(u"cells", {});
  const auto cell = std::move(std::get<std::unique_ptr<AutomationObject>>(*result));

  part.refusal = RPC_E_CALL_REJECTED;
  part.refusals = 1'000;
  const ULONGLONG begun = GetTickCount64();
  EXPECT_FALSE(cell->Put(u"Value", true));
  EXPECT_GE(GetTickCount64() - begun, kLimit_ms / 2);
  EXPECT_GT(part.invocations, 1);

  server_.refusal = RPC_E_CALL_REJECTED;
  server_.refusals = 1;
  EXPECT_FALSE(server->Put(u"Value", true)) << "the time is over for the whole server";
  server_.refusals = 1;
  cell->BeginSequence();
  EXPECT_TRUE(server->Put(u"Value", true));
  VariantClear(server_.answer.Address());
}

TEST(Patience, WorkIsNoWaiting) {
  Patience patience(180);
  int rejections = 1;
  const auto call = [&] {
    if (rejections-- > 0) return RPC_E_CALL_REJECTED;
    Sleep(200);
    return S_OK;
  };
  EXPECT_EQ(patience.Insist(call), S_OK);
  rejections = 1;
  EXPECT_EQ(patience.Insist(call), S_OK) << "a long call has used none of it up";
}

TEST(AutomationServer, AnUnknownNameMakesNoObject) {
  ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  EXPECT_EQ(WindowsAutomationServers().CreateObject(u"Tolvane.NoSuchServer"), nullptr);
  CoUninitialize();
}

}  // namespace
}  // namespace tolvane::platform::windows
