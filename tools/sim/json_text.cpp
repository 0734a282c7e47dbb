#include "tools/sim/json_text.h"

#include <cstdio>

namespace trickhaven {

namespace {

bool Continuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

// The length of the valid UTF-8 sequence that starts at pos, or 0. Overlong
// forms, surrogates and code points past U+10FFFF are not valid.
std::size_t SequenceLength(std::string_view text, std::size_t pos) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[pos + i]); };
    const std::size_t left = text.size() - pos;
    const unsigned char lead = at(0);
    if (lead < 0x80U) return 1;
    if (lead >= 0xC2U && lead <= 0xDFU) return left >= 2 && Continuation(at(1)) ? 2 : 0;
    if (lead >= 0xE0U && lead <= 0xEFU) {
        if (left < 3 || !Continuation(at(1)) || !Continuation(at(2))) return 0;
        if (lead == 0xE0U && at(1) < 0xA0U) return 0;
        if (lead == 0xEDU && at(1) > 0x9FU) return 0;
        return 3;
    }
    if (lead >= 0xF0U && lead <= 0xF4U) {
        if (left < 4 || !Continuation(at(1)) || !Continuation(at(2)) || !Continuation(at(3))) {
            return 0;
        }
        if (lead == 0xF0U && at(1) < 0x90U) return 0;
        if (lead == 0xF4U && at(1) > 0x8FU) return 0;
        return 4;
    }
    return 0;
}

void AppendEscaped(std::string& out, unsigned char c) {
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        case '\b':
            out += "\\b";
            return;
        case '\f':
            out += "\\f";
            return;
        default:
            break;
    }
    if (c < 0x20U) {
        char code[8];
        std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
        out += code;
        return;
    }
    out += static_cast<char>(c);
}

}  // namespace

std::string JsonString(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t length = SequenceLength(text, pos);
        if (length == 0) {
            out += "\xEF\xBF\xBD";
            ++pos;
        } else if (length == 1) {
            AppendEscaped(out, static_cast<unsigned char>(text[pos]));
            ++pos;
        } else {
            out.append(text.substr(pos, length));
            pos += length;
        }
    }
    out += '"';
    return out;
}

}  // namespace trickhaven
