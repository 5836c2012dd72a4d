// The numbers in the answers of a call, each at a place of its own from answer to answer.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

struct Column {
    std::string name;  ///< "p_stats.rx_pkts"
    Json::json_pointer place;
    bool is_signed;
    unsigned width;  ///< bits

    /// Of an answer; nothing if it has no number there.
    std::optional<int64_t> value(const Json &answer) const;
    std::string shown(int64_t value) const;
    Json json(int64_t value) const;

    /// The growth of a counter between two readings. One that ran over its width begins at 0 again; if that would be
    /// more than half of its range, it was set back instead, and its growth is what has come since.
    double growth(int64_t before, int64_t now) const;
};

/// What a method answers with in its pointer arguments, by their types and by what is sent for them: an answer is in
/// the form of its request.
std::vector<Column> columns_of(Types &types, const Method &method, const Json &sent);

}  // namespace lmqctl
