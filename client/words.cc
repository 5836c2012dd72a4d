// Blanks, quotes, comments.
#include "words.h"

namespace lmqctl {

Words split_words(const std::string &line) {
    Words result;
    char &quote = result.open_quote;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char letter = line[i];
        const bool is_blank = letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n';
        if (!quote && is_blank) {
            result.ends_word = true;
            continue;
        }
        if (result.ends_word) {
            if (letter == '#') {
                result.comment = i;
                break;
            }
            result.words.emplace_back();
            result.ends_word = false;
        }
        std::string &word = result.words.back();
        if (quote && letter == quote) {
            quote = 0;
        } else if (!quote && (letter == '\'' || letter == '"')) {
            quote = letter;
        } else if (letter == '\\' && quote != '\'' && i + 1 < line.size() &&
                   (!quote || line[i + 1] == '"' || line[i + 1] == '\\')) {
            word += line[++i];
        } else {
            word += letter;
        }
    }
    return result;
}

}  // namespace lmqctl
