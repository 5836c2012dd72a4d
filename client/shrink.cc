// lmqctl shrink: the fewest calls of a trace, with the least in them, that still go wrong.
#include <unistd.h>

#include <cstdio>

#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "shrinker.h"
#include "standard_output.h"
#include "trace_calls.h"

namespace lmqctl {

namespace {

struct ShrinkOptions {
    std::string file, until, out, host;
    double hang = 5;
};

// "night.trace" gives "night.shrunk.trace".
std::string shrunk_name(const std::string &file) {
    const bool has_ending = file.ends_with(".trace");
    return file.substr(0, file.size() - (has_ending ? 6 : 0)) + ".shrunk.trace";
}

// What the host describes: what is asked about the interface itself changes no chip.
std::vector<PlayedCall> driver_calls(const Dictionary &dictionary, std::vector<PlayedCall> calls) {
    std::erase_if(calls, [&](const PlayedCall &each) {
        const std::optional<Method> method = dictionary.method(dictionary.bare_name(each.call.method));
        return !method || !method->contract;
    });
    return calls;
}

void shrink(Context &context, const ShrinkOptions &options) {
    const std::vector<PlayedCall> all = read_calls(options.file);
    const CatchInterrupt caught;
    FreshHosts hosts(host_command(options.host), options.hang);
    const Condition condition = condition_of(options.until, hosts.dictionary());
    const std::vector<PlayedCall> calls = driver_calls(hosts.dictionary(), all);
    if (calls.empty()) throw UsageError(options.file + " holds no call that changes or reads the chip");
    const bool is_terminal = isatty(STDERR_FILENO) != 0;
    Shrinker shrinker(hosts, condition, [&](const std::string &text) {
        if (is_terminal) std::fprintf(stderr, "\r%s\033[K", text.c_str());
    });
    const std::optional<std::vector<PlayedCall>> shrunk = shrinker.shrink(calls);
    if (is_terminal) std::fputs("\r\033[K", stderr);
    if (!shrunk)
        throw Error(exit_driver, options.file + ": its " + std::to_string(calls.size()) +
                                     " calls, made again on a fresh chip, do not come to " + condition.text());
    const std::string file = options.out.empty() ? shrunk_name(options.file) : options.out;
    write_calls(file, *shrunk, hosts.dictionary().fingerprint(),
                "shrunk from " + options.file + " until " + condition.text());
    if (context.json) {
        print(json_text(Json{{"condition", condition.text()},
                             {"before", calls.size()},
                             {"calls", shrunk->size()},
                             {"tries", shrinker.tries()},
                             {"file", file}},
                        2) +
              "\n");
        return;
    }
    const auto count = [](std::size_t number, const char *what) {
        return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
    };
    print(count(shrunk->size(), "call") + " of " + std::to_string(calls.size()) + " left, after " +
          std::to_string(shrinker.tries()) + " tries:\n");
    for (const PlayedCall &each : *shrunk) {
        std::string line = "  " + hosts.dictionary().bare_name(each.call.method);
        for (const Json &parameter : each.call.parameters) line += " " + json_text(parameter);
        print((line.size() > 200 ? line.substr(0, 197) + "..." : line) + "\n");
    }
    print(file + "\n");
}

}  // namespace

void set_up_shrink(CLI::App &command, Context &context) {
    const auto options = std::make_shared<ShrinkOptions>();
    command.add_option("FILE", options->file, "A trace")->required();
    command
        .add_option("--until", options->until,
                    "died, hung, METHOD:STATUS or METHOD:MEMBER=VALUE; METHOD:died, METHOD:hung,\nMETHOD:fault, "
                    "METHOD:changed, METHOD:lost, METHOD:grows, as fuzz says them")
        ->required()
        ->type_name("CONDITION");
    command.add_option("--out", options->out, "The trace to write; else FILE with .shrunk before its ending")
        ->type_name("FILE");
    add_host_options(command, options->host, options->hang);
    command.callback([&context, options] { shrink(context, *options); });
}

}  // namespace lmqctl
