// Which methods are served: the globs of --allow and --deny, and --read-only.
#ifndef LMQ_HOST_FILTER_H
#define LMQ_HOST_FILTER_H

#include <optional>
#include <string>
#include <vector>

#include "prepass.h"

namespace lmq::host {

/** One --allow or --deny. */
struct MethodRule {
    bool allow;
    /** A pattern of fnmatch(3) for the whole name, such as "lmq.vx_*_get". */
    std::string glob;
};

class MethodFilter {
  public:
    /**
     * @param rules     In the order of the command line; the last one that matches a method decides. A method that none
     *                  matches is served if no rule allows anything, and refused if one does.
     * @param read_only Whether to serve only methods whose names promise to read: see reads().
     */
    MethodFilter(std::vector<MethodRule> rules, bool read_only);

    /**
     * Judges the methods that a call is about. Of a system.multicall only the inner calls count.
     * @return Why the call is refused, or none.
     */
    std::optional<Fault> judge(const Verdict &call) const;

    /**
     * Whether a method reads, by its name alone: all of system.*, the introspection of the plug-in, and names that hold
     * the word "get", "dump" or "print" and no word for a change ("set", "add", "clear" and the like). Reads of
     * registers and buses are not among them, for some registers change when they are read.
     */
    static bool reads(const std::string &method);

  private:
    std::optional<Fault> judge(const std::string &method) const;

    std::vector<MethodRule> rules_;
    bool read_only_;
    bool allowed_by_default_;
};

}  // namespace lmq::host

#endif
