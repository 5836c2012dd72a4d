// Calls in other forms than the words of `lmqctl call`.
#include "request.h"

#include <cerrno>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "error.h"

namespace lmqctl {

Request request_of_words(Context &context, const std::vector<std::string> &words) {
    if (words.empty()) throw UsageError("there is no method");
    const Dictionary &dictionary = context.dictionary();
    Request request{dictionary.method_or_throw(words[0]), {}, {}};
    ArgumentOptions options;
    options.set_flags = true;
    request.call.method = dictionary.full_name(request.method.name);
    request.call.parameters =
        build_arguments(dictionary, context.types(), request.method, {words.begin() + 1, words.end()}, options);
    for (const std::string &word : words) request.text += (request.text.empty() ? "" : " ") + word;
    return request;
}

Request request_of_json(Context &context, const Json &json) {
    const bool is_object = json.is_object() && json.contains("method") && json["method"].is_string();
    const bool is_array = json.is_array() && !json.empty() && json[0].is_string();
    if (!is_object && !is_array)
        throw UsageError(R"(a call is {"method": NAME, "arguments": [...]} or [NAME, ARGUMENT...], but this is )" +
                         json.dump().substr(0, 60));
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
    return request_of_words(context, words);
}

Json json_answer(Context &context, const Method &method, const Json &answer) {
    Json json{{"method", context.dictionary().full_name(method.name)}};
    if (is_fault(answer)) {
        json["fault"] = {{"code", answer["faultCode"]}, {"text", answer["faultString"]}};
        return json;
    }
    if (!method.is_described() || !answer.is_array() || answer.empty()) {
        json["result"] = answer;
        return json;
    }
    json["result"] = Output::plain(*context.types().scalar(method.result), answer[0]);
    const Enum *values = context.dictionary().enumeration(method.result);
    const Enumerator *named =
        values && answer[0].is_number_integer() ? values->numbered(answer[0].get<int64_t>()) : nullptr;
    if (values) json["status"] = named ? Json(named->name) : Json();
    json["arguments"] = Json::object();
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
        json["arguments"][method.parameters[i].name] =
            Output::plain(*context.types().parameter(method.parameters[i]), answer[i + 1]);
    return json;
}

int exit_status_of(Context &context, const Method &method, const Json &answer) {
    if (is_fault(answer)) return exit_fault;
    const Json &result = answer.is_array() && !answer.empty() ? answer[0] : answer;
    return is_success(context.dictionary(), method, result) ? exit_ok : exit_driver;
}

std::string read_text(const std::string &file) {
    if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad())
        throw UsageError("cannot read " + file + ": " + std::generic_category().message(errno));
    return text;
}

}  // namespace lmqctl
