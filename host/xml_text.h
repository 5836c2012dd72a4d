// Which bytes may stand in a document.
#pragma once

#include <cstddef>
#include <string_view>

namespace lmq::host {

/// Looks for what no XML document in UTF-8 may hold: control characters but for tabs and line ends, and what is no
/// UTF-8.
/// @return Where it is; npos if there is none.
std::size_t not_xml(std::string_view text);

/// Checks a text of a result, or a document of such texts.
/// @throws std::runtime_error that names the first byte that no document may hold.
void check_xml(std::string_view text);

}  // namespace lmq::host
