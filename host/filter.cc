// Matching of method names. To count another method as a read, see the words below.
#include "filter.h"

#include <fnmatch.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace lmq::host {
namespace {

constexpr std::string_view introspection[] = {"capabilities", "methodSignature", "listUDTs",  "UDTSignature",
                                              "UDTMalloc",    "listDefines",     "listEnums", "listTypedefs"};
constexpr std::string_view reading[] = {"get", "dump", "print"};
constexpr std::string_view changing[] = {"set",  "add",   "del",    "delete",  "clear", "create",  "write",
                                         "init", "reset", "enable", "disable", "send",  "generate"};

template <class Words>
bool contains(const Words &words, std::string_view word) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

}  // namespace

MethodFilter::MethodFilter(std::vector<MethodRule> rules, bool read_only)
    : rules_(std::move(rules)),
      read_only_(read_only),
      allowed_by_default_(
          std::none_of(rules_.begin(), rules_.end(), [](const MethodRule &rule) { return rule.allow; })) {}

bool MethodFilter::reads(const std::string &method) {
    if (method.starts_with("system.")) return true;
    std::string_view rest = method;
    rest.remove_prefix(std::min(rest.find('.') + 1, rest.size()));
    if (contains(introspection, rest)) return true;
    bool result = false;
    while (!rest.empty()) {
        const std::string_view word = rest.substr(0, rest.find('_'));
        if (contains(changing, word)) return false;
        result = result || contains(reading, word);
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    return result;
}

std::optional<Fault> MethodFilter::judge(const std::string &method) const {
    const auto rule = std::find_if(rules_.rbegin(), rules_.rend(), [&](const MethodRule &candidate) {
        return fnmatch(candidate.glob.c_str(), method.c_str(), 0) == 0;
    });
    if (rule == rules_.rend() ? !allowed_by_default_ : !rule->allow) {
        return Fault{Fault::refused, "The method " + method + " is not served here."};
    }
    if (read_only_ && !reads(method)) {
        return Fault{Fault::refused, "The method " + method + " may change the chip, and this host only reads."};
    }
    return std::nullopt;
}

std::optional<Fault> MethodFilter::judge(const Verdict &call) const {
    if (call.method != multicall) return judge(call.method);
    for (const std::string &method : call.inner) {
        if (auto fault = judge(method)) return fault;
    }
    return std::nullopt;
}

}  // namespace lmq::host
