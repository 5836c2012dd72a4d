// Scalars and addresses as texts, in both directions.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// A MAC address of six bytes with : or - between them. Nothing for another text.
std::optional<Json> mac_from_text(const std::string &text);
/// The bytes of 0x and an even number of hexadecimal digits, at least four. Nothing for another text.
std::optional<Json> bytes_from_hex(const std::string &text);
/// The struct or array of an address for its text; nothing if the text is none of that kind.
std::optional<Json> ip_from_text(const Type &type, const std::string &text);

/// Addresses for people. An empty text if the value has another form.
std::string address_to_text(const Type &type, const Json &value);

/// The characters of an array up to the zeros behind them, in quotes. Nothing if they are not all ones that are
/// printed.
std::optional<std::string> characters_to_text(const Json &value);

/// A number as its type has it: the wire's ints are signed, and an unsigned one of the same bits is meant.
int64_t as_declared(const Type &type, int64_t wire);
/// "VX_WD_REBOOT", "7", "1000 (unknown in vx_wd_action_e)".
std::string scalar_to_text(const Dictionary &dictionary, const Type &type, const Json &value);
/// The flags that are set, with | between them; "none".
std::string flags_to_text(const Json &value);

}  // namespace lmqctl
