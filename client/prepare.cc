// Calls in other forms than the words of `lmqctl call`.
#include "prepare.h"

#include "error.h"

namespace lmqctl {

PreparedCall prepare_words(Context &context, const std::vector<std::string> &words) {
    if (words.empty()) throw UsageError("there is no method");
    const Dictionary &dictionary = context.dictionary();
    PreparedCall prepared{dictionary.method_or_throw(words[0]), {}, {}};
    prepared.call.method = dictionary.full_name(prepared.method.name);
    prepared.call.parameters =
        build_arguments(dictionary, context.types(), prepared.method, {words.begin() + 1, words.end()}, {});
    for (const std::string &word : words) prepared.text += (prepared.text.empty() ? "" : " ") + word;
    return prepared;
}

PreparedCall prepare_json(Context &context, const Json &json) {
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
    return prepare_words(context, words);
}

}  // namespace lmqctl
