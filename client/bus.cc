// Methods by pattern: all that the client knows of names.
#include "bus.h"

#include <cstdio>

#include "answer.h"
#include "error.h"
#include "names.h"
#include "output.h"

namespace lmqctl {

Method bus_method(Context &context, const char *pattern, std::size_t arguments) {
    std::string name;
    for (const std::string &each : context.dictionary().names(Dictionary::methods))
        if (glob(pattern, each) && (name.empty() || each.size() < name.size())) name = each;
    std::optional<Method> method;
    if (!name.empty()) method = context.dictionary().method(name);
    if (!method || method->parameters.size() != arguments)
        throw Error(exit_fault, context.connection.url + ": this host has no method " + pattern + " of a known form");
    return *method;
}

void check_answer(Context &context, const Method &method, const Json &answer) {
    if (is_fault(answer)) throw Fault(answer["faultCode"], answer["faultString"]);
    const Json &result = result_of(answer);
    if (is_success(context.dictionary(), method, result)) return;
    const std::string status = Output(context.dictionary(), context.types(), {}).status(method, result);
    throw Error(exit_driver, method.name + " answered " + status);
}

std::string hexadecimal(uint64_t value, unsigned bits, bool with_prefix) {
    char text[32];
    std::snprintf(text, sizeof text, "%s%0*llx", with_prefix ? "0x" : "", static_cast<int>((bits + 3) / 4),
                  static_cast<unsigned long long>(value));
    return text;
}

}  // namespace lmqctl
