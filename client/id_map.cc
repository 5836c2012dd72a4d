// Translation of ids.
#include "id_map.h"

#include "answer.h"
#include "leaves.h"

namespace lmqctl {

bool IdMap::is_given_out(const Type &type) const {
    const std::string &kind = type.meaning.id;
    if (kind.empty()) return false;
    const auto known = given_out_.find(kind);
    if (known != given_out_.end()) return known->second;
    const Json said = dictionary_.said(Dictionary::ids, kind);
    return given_out_[kind] = said.is_object() && !said.contains("range");
}

Json IdMap::there(const Method &method, Json parameters) const {
    for (std::size_t i = 0; i < method.parameters.size() && i < parameters.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        if (parameter.said.direction == Direction::out) continue;
        change_numbers(*types_.parameter(parameter), parameters[i], [&](const Type &type, int64_t here) {
            const auto kind = there_.find(type.meaning.id);
            if (kind == there_.end()) return here;
            const auto found = kind->second.find(here);
            return found == kind->second.end() ? here : found->second;
        });
    }
    return parameters;
}

void IdMap::learn(const Method &method, const Json &here, const Json &there) {
    if (!is_success(dictionary_, method, result_of(here)) || !is_success(dictionary_, method, result_of(there))) return;
    const std::vector<Leaf> ours = leaves_of(types_, method, here, false),
                            theirs = leaves_of(types_, method, there, false);
    std::map<std::string, const Leaf *> by_path;
    for (const Leaf &leaf : theirs) by_path[leaf.path] = &leaf;
    for (const Leaf &leaf : ours) {
        const auto found = by_path.find(leaf.path);
        if (!is_given_out(*leaf.type) || found == by_path.end() || !leaf.value.is_number_integer() ||
            !found->second->value.is_number_integer())
            continue;
        std::map<int64_t, int64_t> &kind = there_[leaf.type->meaning.id];
        const int64_t id = leaf.value.get<int64_t>(), id_there = found->second->value.get<int64_t>();
        // A number may be given out anew. What only lists ids may list them in another order: the first meeting counts.
        if (method.contract && method.contract->effect == "changes")
            kind.insert_or_assign(id, id_there);
        else
            kind.try_emplace(id, id_there);
    }
}

bool IdMap::is_same(const Type &type, int64_t here, int64_t there) const {
    const auto kind = is_given_out(type) ? there_.find(type.meaning.id) : there_.end();
    if (kind == there_.end()) return here == there;
    const auto found = kind->second.find(here);
    return (found == kind->second.end() ? here : found->second) == there;
}

}  // namespace lmqctl
