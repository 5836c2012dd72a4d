// What counts as a difference between two answers.
#include "difference.h"

#include <algorithm>
#include <map>

#include "answer.h"
#include "leaves.h"
#include "names.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

// The contract says of counters that they are some; of a clock it only says the unit, which a setting has as well.
const std::vector<std::string> clocks = {"*.cur_time",   "*.aging_time",   "*ref_time",    "*timestamp*",
                                         "*nano_second", "*.master_time*", "*.seq_num_val"};

std::string last_name(const std::string &path) {
    const std::size_t dot = path.rfind('.');
    const std::string name = dot == std::string::npos ? path : path.substr(dot + 1);
    return name.substr(0, name.find('['));
}

bool is_ignored(const Method &method, const Leaf &leaf, const DifferenceOptions &options) {
    const auto matches = [&](const std::string &pattern) {
        return glob(pattern, leaf.path) || glob(pattern, last_name(leaf.path)) ||
               glob(pattern, method.name + "." + leaf.path);
    };
    if (std::any_of(options.ignored.begin(), options.ignored.end(), matches)) return true;
    return !options.with_counters && runs_by_itself(*leaf.type, leaf.path);
}

std::string kind_text(const Outcome &outcome) {
    switch (outcome.kind) {
        case Outcome::fault:
            return "fault" + (outcome.code ? " " + std::to_string(outcome.code) : "") + ": " + outcome.text;
        case Outcome::died: return "the worker died";
        case Outcome::hung: return "no answer";
        default: return "an answer";
    }
}

std::string status_text(const Dictionary &dictionary, Types &types, const Method &method, const Json &result) {
    return result.is_number_integer() && method.is_described()
               ? scalar_to_text(dictionary, *types.scalar(method.result), result)
               : json_text(result);
}

}  // namespace

bool runs_by_itself(const Type &type, const std::string &path) {
    return type.meaning.is_counter || std::any_of(clocks.begin(), clocks.end(), [&](const std::string &pattern) {
               return glob(pattern, path) || glob(pattern, last_name(path));
           });
}

std::vector<AnswerDifference> differences(const Dictionary &dictionary, Types &types, const Method &method,
                                          const Outcome &before, const Outcome &after, const IdMap &ids,
                                          const DifferenceOptions &options) {
    if (before.kind != after.kind || before.code != after.code)
        return {{"status",
                 before.kind == Outcome::answered ? status_text(dictionary, types, method, result_of(before.answer))
                                                  : kind_text(before),
                 after.kind == Outcome::answered ? status_text(dictionary, types, method, result_of(after.answer))
                                                 : kind_text(after)}};
    if (before.kind != Outcome::answered) return {};
    const Json &old_result = result_of(before.answer), &new_result = result_of(after.answer);
    if (old_result != new_result)
        return {{"status", status_text(dictionary, types, method, old_result),
                 status_text(dictionary, types, method, new_result)}};
    std::vector<AnswerDifference> found;
    std::map<std::string, Leaf> left;
    for (Leaf &leaf : leaves_of(types, method, after.answer, false)) left.emplace(leaf.path, std::move(leaf));
    const auto text = [&](const Leaf &leaf) { return scalar_to_text(dictionary, *leaf.type, leaf.value); };
    for (const Leaf &leaf : leaves_of(types, method, before.answer, false)) {
        const auto other = left.find(leaf.path);
        const bool is_there = other != left.end();
        const bool is_same =
            is_there && (leaf.value == other->second.value ||
                         (leaf.value.is_number_integer() && other->second.value.is_number_integer() &&
                          ids.is_given_out(*leaf.type) &&
                          ids.is_same(*leaf.type, leaf.value.get<int64_t>(), other->second.value.get<int64_t>())));
        if (!is_same && !is_ignored(method, leaf, options))
            found.push_back({leaf.path, text(leaf), is_there ? text(other->second) : "(none)"});
        if (is_there) left.erase(other);
    }
    for (const auto &[path, leaf] : left)
        if (!is_ignored(method, leaf, options)) found.push_back({path, "(none)", text(leaf)});
    return found;
}

}  // namespace lmqctl
