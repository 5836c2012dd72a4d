// Looking for a few tags. Nothing that a client or the driver sent can look like one: the library has escaped it.
#include "answer.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <system_error>

#include "fault.h"

namespace lmq::host {
namespace {

/// Takes tags off the beginning of a text, with the blanks before them.
bool skip(std::string_view &text, std::initializer_list<std::string_view> tags) {
    for (const std::string_view tag : tags) {
        const auto is_blank = [](char c) { return c == '\r' || c == '\n' || c == ' ' || c == '\t'; };
        while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
        if (!text.starts_with(tag)) return false;
        text.remove_prefix(tag.size());
    }
    return true;
}

std::optional<int> number_at(std::string_view text) {
    int number = 0;
    const bool good = std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
    return good ? std::optional(number) : std::nullopt;
}

/// The first value of an array, if it is an int.
std::optional<int> first_int(std::string_view text) {
    return skip(text, {"<value>", "<array>", "<data>", "<value>", "<i4>"}) ? number_at(text) : std::nullopt;
}

/// What stands for a call in the answer of a system.multicall: an array of its result, or the struct of a fault.
Result inner_result(std::string_view text) {
    constexpr std::string_view code = "<name>faultCode</name>";
    std::string_view array = text;
    if (skip(array, {"<value>", "<array>", "<data>"})) return {0, first_int(array)};
    const std::size_t at = text.find(code);
    std::string_view number = text.substr(at == std::string_view::npos ? text.size() : at + code.size());
    const bool found = skip(number, {"<value>"}) && (skip(number, {"<i4>"}) || skip(number, {"<int>"}));
    return {found ? number_at(number).value_or(Fault::internal) : Fault::internal};
}

}  // namespace

Result result_of(std::string_view answer) {
    if (answer.starts_with(begin_of_answer)) return {0, first_int(answer.substr(begin_of_answer.size()))};
    if (const int fault = fault_code(answer); fault != 0) return {fault};
    std::string_view rest = answer.substr(std::min(answer.find("<params>"), answer.size()));
    return {0, skip(rest, {"<params>", "<param>"}) ? first_int(rest) : std::nullopt};
}

std::vector<Result> inner_results(std::string_view answer, std::size_t most) {
    constexpr std::string_view opening = "<value>", closing = "</value>";
    std::vector<Result> results;
    // The value of the answer is at depth 1, those of the calls at depth 2.
    int depth = 0;
    for (std::size_t at = answer.find('<'); at != std::string_view::npos && results.size() < most;
         at = answer.find('<', at + 1)) {
        const std::string_view tag = answer.substr(at, closing.size());
        if (tag.starts_with(opening) && ++depth == 2) results.push_back(inner_result(answer.substr(at, 512)));
        if (tag == closing) --depth;
    }
    return results;
}

}  // namespace lmq::host
