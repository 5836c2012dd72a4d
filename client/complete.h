// What a word may become: the completion that sessions and shells share.
#pragma once

#include <string>
#include <vector>

#include "context.h"

namespace lmqctl {

struct Completion {
    std::string text;         ///< the whole word
    std::string description;  ///< one line, or empty
    bool is_whole = true;     ///< a blank may follow; otherwise the word goes on, as behind "p_cfg."
};

/// What the last of the words behind the program's name may become. Throws nothing, says nothing, and asks the host
/// only if its dictionary is not in the cache.
std::vector<Completion> complete(Context &context, const std::vector<std::string> &words);

}  // namespace lmqctl
