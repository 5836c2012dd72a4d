// Tables out of answers: the members that the user names, a row for each thing that the answer lists.
#pragma once

#include <string>
#include <vector>

#include "dictionary.h"
#include "output.h"
#include "table.h"
#include "type.h"

namespace lmqctl {

/// The table of an answer, [result, argument...]: with columns of arguments and of members, named by the ends of their
/// paths ("onu_state", "brg_cfg.vlan_id"). Members of a list make a row for each of its elements that the driver
/// filled. Throws a UsageError for a name that the method has not, or names in two lists.
Table table_of(const Dictionary &dictionary, Types &types, const Output &output, const Method &method,
               const Json &answer, const std::vector<std::string> &names);

}  // namespace lmqctl
