// lmqctl call: the arguments put together, the call, its answer.
#include "arguments.h"
#include "code.h"
#include "command.h"
#include "error.h"
#include "request.h"

namespace lmqctl {

namespace {

struct CallOptions {
    std::string method;
    std::vector<std::string> words;
    ArgumentOptions arguments;
    bool dry_run = false, full = false, raw = false, no_valid = false;
    std::string as;
};

void call(Context &context, CallOptions options) {
    const Dictionary &dictionary = context.dictionary_for(options.method);
    const Method method = dictionary.method_or_throw(options.method);
    options.arguments.set_flags = !options.no_valid;
    const Json arguments = build_arguments(dictionary, context.types(), method, options.words, options.arguments);
    const std::string full_name = dictionary.full_name(method.name);
    if (options.dry_run || !options.as.empty()) {
        print(options.as.empty()
                  ? full_name + " " + arguments.dump(2) + "\n"
                  : call_as_code(options.as, context.connection.url, dictionary, context.types(), method, arguments));
        return;
    }
    const Json answer = context.session().call(full_name, arguments);
    const Json &result = answer.is_array() && !answer.empty() ? answer[0] : answer;
    if (options.raw)
        print(context.session().last_xml());
    else if (context.json)
        print(json_answer(context, method, answer).dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
    else
        print(context.output(options.full).answer(method, answer));
    if (!is_success(dictionary, method, result)) context.exit_status = exit_driver;
}

}  // namespace

void set_up_call(CLI::App &command, Context &context) {
    const auto options = std::make_shared<CallOptions>();
    command.add_option("METHOD", options->method, "Its name, with or without the namespace")->required();
    command.add_option("ARG", options->words,
                       "Values in order, outputs left out, or NAME=VALUE and NAME.MEMBER[0]=VALUE.\n"
                       "A number (10, 0xa, 0b1010), enumerators (A, A|B), an address, JSON,\n@FILE, or - for standard "
                       "input. One object of all arguments by name,\nas template prints it, may stand for them all");
    command.add_option("--count", options->arguments.count, "Elements of an output that is an array")->type_name("N");
    command.add_flag("--no-valid", options->no_valid, "Leave the flags of valid masks as they are given");
    command.add_flag("--force", options->arguments.force,
                     "Send arrays longer than their bound, and numbers out of range");
    command.add_flag("--full", options->full, "Show all alternatives and all zeros");
    command.add_flag("--raw", options->raw, "Show the answer's XML");
    command.add_flag("--dry-run", options->dry_run, "Show the request, and send nothing");
    command.add_option("--as", options->as, "Show the call as code, and send nothing")
        ->check(CLI::IsMember({"c", "python", "xmlrpc"}));
    command.callback([&context, options] { call(context, *options); });
}

}  // namespace lmqctl
