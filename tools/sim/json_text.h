// JSON text for the transcript: strings quoted and escaped, always valid
// UTF-8 whatever bytes a player's name holds.
#pragma once

#include <string>
#include <string_view>

namespace trickhaven {

// The text as a JSON string literal, quotes included. Quotes, backslashes
// and control characters are escaped; a byte that starts no valid UTF-8
// sequence becomes U+FFFD.
std::string JsonString(std::string_view text);

}  // namespace trickhaven
