#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "platform/string.h"
#include "simulator/office/sheet.h"

namespace tolvane::office {

/// A client of the server, in process or across processes. Objects are handles from 0, which is
/// the program.
class SampleClient {
 public:
  struct Handle {
    std::size_t index;
  };
  using Argument = std::variant<bool, std::int32_t, String, Table, Handle>;
  struct NamedArgument {
    StringView name;
    Argument value;
  };

  virtual ~SampleClient() = default;
  virtual Handle Get(Handle object, StringView name, const std::vector<Argument>& arguments) = 0;
  virtual void Put(Handle object, StringView name, const Argument& value) = 0;
  virtual void Call(Handle object, StringView name, const std::vector<Argument>& arguments,
                    const std::vector<NamedArgument>& named) = 0;
};

inline constexpr SampleClient::Handle kProgram{0};

/// The text of a sample record: row from 0 to 20,000, column from 0 to 11. Rows from `filled` on
/// are empty.
String SampleText(std::size_t row, std::size_t column);

/// Builds the workbook of one log flush, with `filled` of its 20,001 rows, and saves it. Format 0
/// saves by the path alone.
void WriteSampleBook(SampleClient& client, const String& path, std::int32_t format,
                     std::size_t filled);

}  // namespace tolvane::office
