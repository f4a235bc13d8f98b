#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "simulator/office/value.h"

namespace tolvane::office {

/// The text file of everything that clients did, in UTF-8, one line each, written through at once.
/// Several servers may append to one file.
///
///   line  = "create" name | "get" member | "put" member "=" value | "call" member
///         | "name" member | "busy" | "locale" number | "script" text | "end"
///   member = object "." member-name [ "(" value { ", " value } ")" ]
///   value  = "True" | "False" | number | text in quotes, a quote doubled | object | list
///   list   = "table(" rows "x" columns ")" and its texts, if they are no more than 64
///
/// "busy" stands for a call that the script had turned away, "locale" for one in another language
/// than English. A line of something that failed ends with " ! " and the HRESULT in 8 hex digits.
class Record {
 public:
  /// Keeps nothing without a path.
  explicit Record(const std::filesystem::path& path = {});

  void Line(std::string_view line);

 private:
  std::ofstream file_;
};

std::string ValueText(const Value& value);

/// "get ActiveSheet.Range("A1")" and the like; see the grammar above.
std::string OperationText(const Object& object, Verb verb, StringView member,
                          const Arguments& arguments);

/// " ! 800A03EC", or nothing for kDone.
std::string ResultText(std::uint32_t result);

/// "ActiveSheet.cells(1, 2)".
std::string MemberText(const Object& object, StringView member, const Arguments& arguments);

}  // namespace tolvane::office
