// A call as code to paste.
#include "code.h"

#include <algorithm>

#include "scalar_text.h"
#include "symbol.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

std::string python_value(const Json &value) {
    std::string text;
    if (value.is_object()) {
        for (const auto &[key, inside] : value.items())
            text += (text.empty() ? "" : ", ") + json_text(key) + ": " + python_value(inside);
        return "{" + text + "}";
    }
    if (value.is_array()) {
        // Room for a list need not be spelt out.
        if (value.size() > 8 &&
            std::all_of(value.begin(), value.end(), [&](const Json &item) { return item == value[0]; }))
            return "[" + python_value(value[0]) + "] * " + std::to_string(value.size());
        for (const Json &item : value) text += (text.empty() ? "" : ", ") + python_value(item);
        return "[" + text + "]";
    }
    if (value.is_boolean()) return value.get<bool>() ? "True" : "False";
    if (const auto later = symbol_name(value)) return variable_name(*later);
    return value.is_null() ? "None" : json_text(value);
}

std::string c_value(const Dictionary &dictionary, const Type &type, const Json &value) {
    if (value.is_array() || value.is_object()) {
        std::string text;
        if (is_zero(value)) return "{0}";
        for (const auto &[key, inside] : value.items()) {
            const Member *member = value.is_object() ? type.member(key) : nullptr;
            const Type &kind = member ? *member->type : type.element ? *type.element : type;
            text += (text.empty() ? "" : ", ") + (value.is_object() ? "." + key + " = " : "") +
                    c_value(dictionary, kind, inside);
        }
        return "{" + (text.empty() ? "0" : text) + "}";
    }
    if (const auto later = symbol_name(value)) return variable_name(*later);
    const std::string text = scalar_to_text(dictionary, type, value);
    return text.find(' ') == std::string::npos ? text : value.dump();
}

// A block of its own, so that two calls go into one function.
std::string c_code(const Dictionary &dictionary, Types &types, const Method &method, const Json &arguments) {
    const CallInC call = call_in_c(dictionary, types, method, arguments);
    const std::string result = method.result == "void" || method.result.empty() ? "" : method.result + " result = ";
    return "{\n" + call.declarations + "    " + result + call.expression + ";\n}\n";
}

// The class that takes Python's client to a Unix socket.
constexpr char python_unix[] = R"(
class Transport(xmlrpc.client.Transport):
    def make_connection(self, host):
        class Connection(http.client.HTTPConnection):
            def connect(self):
                self.sock = socket.socket(socket.AF_UNIX)
                self.sock.connect(PATH)
        return Connection("localhost")

)";

std::string python_code(const Connection &connection, const std::string &name, const Json &arguments) {
    return python_host(connection, {}) + "print(host." + name + "(" + python_arguments(arguments) + "))\n";
}

}  // namespace

std::string variable_name(const std::string &symbol) { return "kept_" + symbol; }

CallInC call_in_c(const Dictionary &dictionary, Types &types, const Method &method, const Json &arguments) {
    std::string before, words;
    for (std::size_t i = 0; i < method.parameters.size() && i < arguments.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types.parameter(parameter);
        std::string word = c_value(dictionary, *type, arguments[i]);
        bool is_list = arguments[i].is_array();
        if (parameter.is_pointer() && (parameter.pointee() == "void" || (is_list && arguments[i].empty()))) {
            word = "NULL";
        } else if (parameter.is_pointer()) {
            // The host says int for an enum, and what an array type is of for the type.
            const bool is_known = parameter.pointee() == "int" && !parameter.said.type.empty();
            const std::string declared = is_known ? parameter.said.type : parameter.pointee();
            // A number that is known later is an element all the same.
            if (symbol_name(arguments[i]) && !parameter.is_udt) word = "{" + word + "}", is_list = true;
            before.append("    ").append(declared).append(" ").append(parameter.name);
            if (is_list) before.append("[").append(std::to_string(arguments[i].size())).append("]");
            before.append(" = ").append(word).append(";\n");
            // The host says int where the header has a pointer to an enum, which a pointer to int does not become.
            const bool may_be_enum = declared == "int";
            word = (may_be_enum ? "(void *)" : "") + std::string(is_list ? "" : "&") + parameter.name;
        }
        words += (words.empty() ? "" : ", ") + word;
    }
    return {before, method.name + "(" + words + ")"};
}

std::string python_arguments(const Json &arguments) {
    std::string words;
    for (const Json &argument : arguments) words += (words.empty() ? "" : ", ") + python_value(argument);
    return words;
}

std::string python_host(const Connection &connection, std::set<std::string> imports) {
    const bool is_unix = connection.url.starts_with("unix:"), is_tls = connection.url.starts_with("https://");
    const bool has_files = is_tls && !(connection.cacert + connection.cert).empty();
    std::string before, options = "allow_none=True";
    if (!connection.user.empty()) {
        imports.insert({"base64", "os"});
        before += "credentials = " + python_value(connection.user + ":") + " + os.environ[\"LMQ_PASSWORD\"]\n" +
                  "headers = [(\"Authorization\", \"Basic \" + base64.b64encode(credentials.encode()).decode())]\n";
        if (!is_unix) options += ", headers=headers";
    }
    if (is_unix) imports.insert({"http.client", "socket"});
    imports.insert("xmlrpc.client");
    if (has_files) {
        imports.insert("ssl");
        before += "context = ssl.create_default_context(" +
                  (connection.cacert.empty() ? "" : "cafile=" + python_value(connection.cacert)) + ")\n";
        if (!connection.cert.empty())
            before += "context.load_cert_chain(" + python_value(connection.cert) +
                      (connection.key.empty() ? "" : ", " + python_value(connection.key)) + ")\n";
        options += ", context=context";
    }
    if (is_unix) {
        before = "PATH = " + python_value(connection.url.substr(5)) + "\n\n" + python_unix + before;
        options += connection.user.empty() ? ", transport=Transport()" : ", transport=Transport(headers=headers)";
    }
    std::string head;
    for (const std::string &module : imports) head += "import " + module + "\n";
    return head + "\n" + before + "host = xmlrpc.client.ServerProxy(" +
           python_value(is_unix ? "http://localhost/RPC2" : connection.url) + ", " + options + ")\n";
}

std::string call_as_code(const std::string &language, const Connection &connection, const Dictionary &dictionary,
                         Types &types, const Method &method, const Json &arguments) {
    const std::string full = dictionary.full_name(method.name);
    if (language == "xmlrpc") return request_xml(full, arguments);
    if (language == "c") return c_code(dictionary, types, method, arguments);
    return python_code(connection, full, arguments);
}

}  // namespace lmqctl
