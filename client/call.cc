// lmqctl call: the arguments put together, the call, its answer.
#include <unistd.h>

#include "answer.h"
#include "arguments.h"
#include "code.h"
#include "columns.h"
#include "command.h"
#include "error.h"
#include "names.h"
#include "prepare.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

struct CallOptions {
    std::string method;
    std::vector<std::string> words, counts;
    ArgumentOptions arguments;
    bool dry_run = false, full = false, raw = false, hex = false, no_valid = false;
    std::string as, columns;
};

// Another program gets the document as it came.
void print_raw(const std::string &document) {
    if (isatty(STDOUT_FILENO) == 1)
        print(document);
    else
        print_as_is(document);
}

Output output(Context &context, const CallOptions &options) {
    Style style = context.style(options.full);
    style.hex = options.hex;
    return Output(context.dictionary(), context.types(), style);
}

void call(Context &context, CallOptions options) {
    for (const std::string &count : options.counts) take_count(count, options.arguments);
    const Dictionary &dictionary = context.dictionary_for(options.method);
    const Method method = dictionary.method_or_throw(options.method);
    options.arguments.set_flags = !options.no_valid;
    options.arguments.defaults = context.defaults;
    const Json arguments = build_arguments(dictionary, context.types(), method, options.words, options.arguments);
    const std::string full_name = dictionary.full_name(method.name);
    if (options.dry_run || !options.as.empty()) {
        print(options.as.empty()
                  ? full_name + " " + json_text(arguments, 2) + "\n"
                  : call_as_code(options.as, context.connection, dictionary, context.types(), method, arguments));
        return;
    }
    const Json answer = context.session().call(full_name, arguments);
    const std::string printed = options.raw ? "" : context.session().printed();
    if (options.raw)
        print_raw(context.session().last_xml());
    else if (!options.columns.empty() && !is_fault(answer) && is_success(dictionary, method, result_of(answer)))
        show(context,
             table_of(dictionary, context.types(), context.output(), method, answer, split(options.columns, ',')));
    else if (context.json)
        print(json_text(with_printed(json_answer(dictionary, context.types(), method, answer), printed), 2) + "\n");
    else
        print(output(context, options).answer(method, answer) + printed_text(printed));
    context.exit_status = exit_status_of(dictionary, method, answer);
}

}  // namespace

void set_up_call(CLI::App &command, Context &context) {
    const auto options = std::make_shared<CallOptions>();
    command.add_option("METHOD", options->method, "Its name, with or without the namespace")->required();
    add_words(command, "ARG", options->words,
              "Values in order, outputs left out, or NAME=VALUE and NAME.MEMBER[0]=VALUE.\n"
              "A number (10, 0xa, 0b1010), enumerators (A, A|B), an address, JSON,\n@FILE, or - for standard "
              "input. One object of all arguments by name,\nas template prints it, may stand for them all");
    add_count(command, options->counts);
    command.add_flag("--no-valid", options->no_valid, "Leave the flags of valid masks as they are given");
    command.add_flag("--force", options->arguments.force,
                     "Send arrays of another length than is due, and numbers out of range");
    command.add_flag("--full", options->full, "Show all alternatives and all zeros");
    command.add_option("--columns", options->columns, "Show a table with these members, with commas between")
        ->type_name("MEMBER,...");
    command.add_flag("--hex", options->hex, "Show numbers in hexadecimal");
    command.add_flag("--raw", options->raw, "Show the answer's XML");
    command.add_flag("--dry-run", options->dry_run, "Show the request, and send nothing");
    command.add_option("--as", options->as, "Show the call as code, and send nothing")
        ->check(CLI::IsMember({"c", "python", "xmlrpc"}));
    command.callback([&context, options] { call(context, *options); });
}

}  // namespace lmqctl
