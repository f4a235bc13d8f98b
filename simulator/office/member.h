#pragma once

#include <cstdint>
#include <span>

#include "platform/string.h"
#include "simulator/office/server.h"
#include "simulator/office/value.h"

namespace tolvane::office {

/// What carries a member out. An object that it gives still lacks its text.
using Operation = Outcome (*)(Program& program, const Object& object, Arguments& arguments);

struct Member {
  ObjectKind owner;
  Verb verb;
  StringView name;
  Operation carry_out;
};

/// All members of all objects.
std::span<const Member> Members();

bool SameName(StringView one, StringView other);

}  // namespace tolvane::office
