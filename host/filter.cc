// Matching of method names.
#include "filter.h"

#include <fnmatch.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace lmq::host {
namespace {

bool matches(const MethodRule &rule, const std::string &method) {
    return fnmatch(rule.glob.c_str(), method.c_str(), 0) == 0;
}

}  // namespace

MethodFilter::MethodFilter(const std::vector<Method> &methods, std::vector<MethodRule> rules)
    : rules_(std::move(rules)),
      allowed_by_default_(
          std::none_of(rules_.begin(), rules_.end(), [](const MethodRule &rule) { return rule.allow; })) {
    for (const MethodRule &rule : rules_) {
        if (std::none_of(methods.begin(), methods.end(), [&](const Method &one) { return matches(rule, one.name); })) {
            throw std::runtime_error(std::string(rule.allow ? "--allow" : "--deny") + " '" + rule.glob +
                                     "' matches no method");
        }
    }
}

std::optional<Fault> MethodFilter::judge(const std::string &method) const {
    const auto rule = std::find_if(rules_.rbegin(), rules_.rend(),
                                   [&](const MethodRule &candidate) { return matches(candidate, method); });
    if (rule == rules_.rend() ? !allowed_by_default_ : !rule->allow) {
        return Fault{Fault::refused, "The method " + method + " is not served here."};
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

Filters::Filters(const std::vector<Method> &methods, const Role &common, const std::map<std::string, Role> &roles)
    : common_{{methods, common.rules}, common.read_only} {
    for (const auto &[user, role] : roles) {
        try {
            by_user_.emplace(user, Entry{{methods, role.rules}, role.read_only});
        } catch (const std::runtime_error &error) {
            throw std::runtime_error("the role of the user '" + user + "': " + error.what());
        }
    }
}

std::optional<Fault> Filters::judge(const Verdict &call, const std::string &user) const {
    if (auto fault = common_.filter.judge(call)) return fault;
    const auto own = by_user_.find(user);
    return own == by_user_.end() ? std::nullopt : own->second.filter.judge(call);
}

ReadOnly Filters::read_only(const std::string &user) const {
    const auto own = by_user_.find(user);
    return own == by_user_.end() ? common_.read_only : std::max(common_.read_only, own->second.read_only);
}

}  // namespace lmq::host
