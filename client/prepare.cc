// Calls in other forms than the words of `lmqctl call`.
#include "prepare.h"

#include <algorithm>

#include "error.h"
#include "names.h"

namespace lmqctl {

void take_count(const std::string &text, ArgumentOptions &to) {
    const std::size_t equals = text.find('=');
    const std::optional<int64_t> count = number(text.substr(equals == std::string::npos ? 0 : equals + 1));
    if (!count || *count < 0 || *count > 65536 || equals == 0)
        throw UsageError("--count: expected N or NAME=N, with a number from 0 to 65536, not " + text);
    if (equals == std::string::npos)
        to.count = static_cast<std::size_t>(*count);
    else
        to.counts[text.substr(0, equals)] = static_cast<std::size_t>(*count);
}

namespace {

// Takes the options from among the words.
std::vector<std::string> without_options(const std::vector<std::string> &words, ArgumentOptions &to) {
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string &word = words[i];
        if (word == "--force") {
            to.force = true;
        } else if (word == "--no-valid") {
            to.set_flags = false;
        } else if (word == "--count") {
            if (++i == words.size()) throw UsageError("--count: expected N or NAME=N behind it");
            take_count(words[i], to);
        } else if (word.starts_with("--count=")) {
            take_count(word.substr(8), to);
        } else if (word.starts_with("--")) {
            throw UsageError("a call has no option " + word + did_you_mean(word, {"--count", "--force", "--no-valid"}));
        } else {
            kept.push_back(word);
        }
    }
    return kept;
}

}  // namespace

PreparedCall prepare_words(Context &context, const std::vector<std::string> &words, const ArgumentOptions &options) {
    ArgumentOptions own;
    std::vector<std::string> arguments = without_options(words, own);
    if (arguments.empty()) throw UsageError("there is no method");
    const Dictionary &dictionary = context.dictionary();
    PreparedCall prepared{dictionary.method_or_throw(arguments[0]), {}, {}};
    prepared.call.method = dictionary.full_name(prepared.method.name);
    own.symbols = options.symbols;
    own.defaults = context.defaults;
    if (!own.count) own.count = options.count;
    for (const Parameter &parameter : prepared.method.parameters)
        if (const auto count = options.counts.find(parameter.name); count != options.counts.end())
            own.counts.insert(*count);
    arguments.erase(arguments.begin());
    prepared.call.parameters = build_arguments(dictionary, context.types(), prepared.method, arguments, own);
    for (const std::string &word : words) prepared.text += (prepared.text.empty() ? "" : " ") + word;
    return prepared;
}

void refuse_unused_counts(const ArgumentOptions &options, const std::vector<PreparedCall> &calls) {
    for (const auto &[name, count] : options.counts) {
        std::vector<std::string> names;
        for (const PreparedCall &call : calls)
            for (const Parameter &parameter : call.method.parameters) names.push_back(parameter.name);
        if (std::find(names.begin(), names.end(), name) == names.end())
            throw UsageError("--count: no call has an argument " + name + did_you_mean(name, names));
    }
}

std::vector<std::string> words_of_json(const Json &json) {
    const bool is_object = json.is_object() && json.contains("method") && json["method"].is_string();
    const bool is_array = json.is_array() && !json.empty() && json[0].is_string();
    if (!is_object && !is_array)
        throw UsageError(R"(a call is {"method": NAME, "arguments": [...]} or [NAME, ARGUMENT...], but this is )" +
                         json_text(json).substr(0, 60));
    std::vector<std::string> words{(is_object ? json["method"] : json[0]).get<std::string>()};
    if (is_array) {
        for (std::size_t i = 1; i < json.size(); ++i) words.push_back(json[i].dump());
    } else if (json.contains("arguments")) {
        const Json &arguments = json["arguments"];
        if (!arguments.is_structured())
            throw UsageError("the arguments of " + words[0] + " are neither an array nor an object");
        for (const auto &[name, value] : arguments.items())
            words.push_back((arguments.is_object() ? name + "=" : "") + value.dump());
    }
    return words;
}

}  // namespace lmqctl
