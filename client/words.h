// A line of a session into words, as a shell takes one apart.
#pragma once

#include <string>
#include <vector>

namespace lmqctl {

struct Words {
    std::vector<std::string> words;
    char open_quote = 0;                      ///< the quote that the line does not close, or 0
    std::size_t comment = std::string::npos;  ///< where one begins
    bool ends_word = true;                    ///< the line ends between words: what is typed next begins one
};

/// Words between blanks; '...', "..." and \ keep blanks in them; # begins a comment where a word could begin.
Words split_words(const std::string &line);

}  // namespace lmqctl
