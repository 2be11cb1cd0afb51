// How members, their types and values are written for people: as Basic writes them.
#pragma once

#include "framework/persisted_value.h"

namespace obk {

// "Long", or the name of its enumeration.
Text typeText(const Member& member);
// "\"text\"", "True", "0x80000005"; empty for what has no such form, such as a font.
Text valueText(const Value& value);
// In words where only the running system knows the value: "the container's font".
Text defaultText(const DefaultValue& value);
// "KeyLock(KeyAscii As Long, ByRef Text As String = "")"
Text signatureText(const Member& member);

}  // namespace obk
