// Ids that one chip gives out as one number and another as another.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// What stands there for the ids of here. Ids with a range, such as ports, are the same on all chips: only those that
/// calls give out are kept.
class IdMap {
  public:
    IdMap(const Dictionary &dictionary, Types &types) : dictionary_(dictionary), types_(types) {}

    /// The parameters of a call, with the ids of there.
    Json there(const Method &method, Json parameters) const;

    /// Takes the ids in the answers of both to the same call, if both succeeded.
    void learn(const Method &method, const Json &here, const Json &there);

    /// Whether a number there stands for the one here, both of this type.
    bool is_same(const Type &type, int64_t here, int64_t there) const;

    /// Whether numbers of the type are ids that calls give out.
    bool is_given_out(const Type &type) const;

  private:
    const Dictionary &dictionary_;
    Types &types_;
    std::map<std::string, std::map<int64_t, int64_t>> there_;  // by kind
    mutable std::map<std::string, bool> given_out_;            // by kind
};

}  // namespace lmqctl
