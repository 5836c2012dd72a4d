// A call as code to paste.
#include "code.h"

#include "scalar_text.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

std::string python_value(const Json &value) {
    std::string text;
    if (value.is_object()) {
        for (const auto &[key, inside] : value.items())
            text += (text.empty() ? "" : ", ") + Json(key).dump() + ": " + python_value(inside);
        return "{" + text + "}";
    }
    if (value.is_array()) {
        for (const Json &item : value) text += (text.empty() ? "" : ", ") + python_value(item);
        return "[" + text + "]";
    }
    if (value.is_boolean()) return value.get<bool>() ? "True" : "False";
    return value.is_null() ? "None" : value.dump();
}

std::string c_value(const Dictionary &dictionary, const Type &type, const Json &value) {
    if (value.is_array() || value.is_object()) {
        std::string text;
        for (const auto &[key, inside] : value.items()) {
            const Member *member = value.is_object() ? type.member(key) : nullptr;
            const Type &kind = member ? *member->type : type.element ? *type.element : type;
            text += (text.empty() ? "" : ", ") + (value.is_object() ? "." + key + " = " : "") +
                    c_value(dictionary, kind, inside);
        }
        return "{" + (text.empty() ? "0" : text) + "}";
    }
    const std::string text = scalar_to_text(dictionary, type, value);
    return text.find(' ') == std::string::npos ? text : value.dump();
}

std::string c_code(const Dictionary &dictionary, Types &types, const Method &method, const Json &arguments) {
    std::string before, words;
    for (std::size_t i = 0; i < method.parameters.size() && i < arguments.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types.parameter(parameter);
        std::string word = c_value(dictionary, *type, arguments[i]);
        if (parameter.is_pointer() && parameter.pointee() != "void") {
            const bool is_list = arguments[i].is_array();
            before += parameter.pointee() + " " + parameter.name +
                      (is_list ? "[" + std::to_string(arguments[i].size()) + "]" : "") + " = " + word + ";\n";
            word = (is_list ? "" : "&") + parameter.name;
        } else if (parameter.is_pointer()) {
            word = "NULL";
        }
        words += (words.empty() ? "" : ", ") + word;
    }
    const std::string result = method.result == "void" || method.result.empty() ? "" : method.result + " result = ";
    return before + result + method.name + "(" + words + ");\n";
}

}  // namespace

std::string call_as_code(const std::string &language, const std::string &url, const Dictionary &dictionary,
                         Types &types, const Method &method, const Json &arguments) {
    const std::string full = dictionary.full_name(method.name);
    if (language == "xmlrpc") return request_xml(full, arguments);
    if (language == "c") return c_code(dictionary, types, method, arguments);
    std::string words;
    for (const Json &argument : arguments) words += (words.empty() ? "" : ", ") + python_value(argument);
    return "import xmlrpc.client\n\nhost = xmlrpc.client.ServerProxy(" + Json(url).dump() + ", allow_none=True)\n" +
           "print(host." + full + "(" + words + "))\n";
}

}  // namespace lmqctl
