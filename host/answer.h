// What can be told from the document of an answer without reading all of it: faults, and the statuses of the driver.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace lmq::host {

/// How an answer that is no fault begins, as the XML-RPC library writes it.
inline constexpr std::string_view begin_of_answer =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<methodResponse>\r\n<params>\r\n<param>";

/// What came of a call.
struct Result {
    /// The fault's code; 0 if it is none.
    int fault = 0;
    /// What the driver's function returned, if the method returns a status.
    std::optional<int> driver_status = {};
};

/// What came of a call.
/// @param answer The document.
Result result_of(std::string_view answer);

/// What came of the calls in a system.multicall, in their order.
/// @param answer The document.
/// @param most   How many there are.
std::vector<Result> inner_results(std::string_view answer, std::size_t most);

}  // namespace lmq::host
