#pragma once

#include <windows.h>

#include <oleauto.h>

#include <vector>

#include "tests/simulator/office/sample_flush.h"

namespace tolvane::office {

/// A late-bound automation client: creates a server by its name and finds members by theirs.
class ComClient : public SampleClient {
 public:
  /// Texts of a table cross as BSTR or each in a VARIANT of its own.
  explicit ComClient(const wchar_t* name, VARTYPE table_element = VT_BSTR);
  ~ComClient() override { Release(); }
  ComClient(const ComClient&) = delete;
  ComClient& operator=(const ComClient&) = delete;

  [[nodiscard]] HRESULT Created() const { return created_; }
  void Release();

  Handle Get(Handle object, StringView name, const std::vector<Argument>& arguments) override;
  void Put(Handle object, StringView name, const Argument& value) override;
  void Call(Handle object, StringView name, const std::vector<Argument>& arguments,
            const std::vector<NamedArgument>& named) override;
  String GetText(Handle object, StringView name);

  LCID locale = 1033;

  /// Failures in order: the result, or the code inside an exception.
  std::vector<HRESULT> failures;

 private:
  VARIANT ToVariant(const Argument& argument) const;
  VARIANT Invoke(Handle object, WORD flags, StringView name, const std::vector<Argument>& arguments,
                 const std::vector<NamedArgument>& named);

  VARTYPE table_element_;
  HRESULT created_ = E_FAIL;
  std::vector<IDispatch*> objects_;  // one reference each; null after a failed get
};

}  // namespace tolvane::office
