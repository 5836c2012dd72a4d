// Which methods are served, by their names: the globs of --allow and --deny, for all and for single users; and what
// --read-only leaves.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "backend.h"
#include "guard.h"
#include "prepass.h"

namespace lmq::host {

/// One --allow or --deny.
struct MethodRule {
    bool allow;
    /// A pattern of fnmatch(3) for the whole name, such as "lmq.vx_*_get".
    std::string glob;
};

/// What may be called.
struct Role {
    std::vector<MethodRule> rules;
    ReadOnly read_only = ReadOnly::off;
};

class MethodFilter {
  public:
    /// @param methods All methods.
    /// @param rules   In the order of the command line; the last one that matches a method decides. A method that
    ///                none matches is served if no rule allows anything, and refused if one does.
    /// @throws std::runtime_error that names a rule which matches no method.
    MethodFilter(const std::vector<Method> &methods, std::vector<MethodRule> rules);

    /// Judges the methods that a call is about. Of a system.multicall only the inner calls count.
    /// @return Why the call is refused, or none.
    std::optional<Fault> judge(const Verdict &call) const;

  private:
    std::optional<Fault> judge(const std::string &method) const;

    std::vector<MethodRule> rules_;
    bool allowed_by_default_;
};

/// What may be called by anybody, and what some users may call of that.
class Filters {
  public:
    /// @param methods All methods. Must outlive the filters.
    /// @param roles   Of the users that have one.
    /// @throws std::runtime_error that names a rule which matches no method, and its user.
    Filters(const std::vector<Method> &methods, const Role &common, const std::map<std::string, Role> &roles);

    /// @param user Who calls; empty for nobody.
    /// @return Why the call is refused, or none.
    std::optional<Fault> judge(const Verdict &call, const std::string &user) const;

    /// How far a user may change something.
    ReadOnly read_only(const std::string &user) const;

  private:
    struct Entry {
        MethodFilter filter;
        ReadOnly read_only;
    };

    Entry common_;
    std::map<std::string, Entry> by_user_;
};

}  // namespace lmq::host
