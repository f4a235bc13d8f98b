#pragma once

#include <cstdint>
#include <vector>

#include "simulator/office/server.h"
#include "tests/simulator/office/sample_flush.h"

namespace tolvane::office {

/// A client in the server's own process.
class DirectClient : public SampleClient {
 public:
  explicit DirectClient(Server& server);

  Handle Get(Handle object, StringView name, const std::vector<Argument>& arguments) override;
  void Put(Handle object, StringView name, const Argument& value) override;
  void Call(Handle object, StringView name, const std::vector<Argument>& arguments,
            const std::vector<NamedArgument>& named) override;

  /// The text that a property gives, "" for anything else.
  String GetText(Handle object, StringView name);

  /// Results other than kDone, in order.
  std::vector<std::uint32_t> failures;

 private:
  Value ToValue(const Argument& argument) const;
  Outcome Invoke(Handle object, Verb verb, StringView name, const std::vector<Argument>& arguments,
                 const std::vector<NamedArgument>& named);

  Server& server_;
  std::vector<Object> objects_;
};

}  // namespace tolvane::office
