#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvane::office {

/// An OLE compound file whose one stream is `content` under `name` (ASCII, at most 31 characters),
/// filled up with zeros to whole sectors and at least 4,096 bytes. Empty above about 7 MB, where
/// the list of allocation sectors would no longer fit the header.
std::optional<std::string> WriteCompoundFile(std::string_view name, std::string_view content);

}  // namespace tolvane::office
