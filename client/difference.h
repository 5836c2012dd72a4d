// Two answers to the same call, compared member by member.
#pragma once

#include <string>
#include <vector>

#include "id_map.h"
#include "player.h"

namespace lmqctl {

struct AnswerDifference {
    std::string member;         ///< "status", "p_cfg.rate"
    std::string before, after;  ///< with enumerators by name
};

struct DifferenceOptions {
    std::vector<std::string> ignored;  ///< patterns of members: "p_cfg.rate", "rate", "METHOD.p_cfg.rate"
    bool with_counters = false;        ///< compare counters and what runs with the time, too
};

/// Whether a number changes without a call that sets it: a counter, or what runs with the time.
bool runs_by_itself(const Type &type, const std::string &path);

/// In what `after` differs. Ids that calls give out are the same if the map says so; it must have learnt of both
/// answers.
std::vector<AnswerDifference> differences(const Dictionary &dictionary, Types &types, const Method &method,
                                          const Outcome &before, const Outcome &after, const IdMap &ids,
                                          const DifferenceOptions &options);

}  // namespace lmqctl
