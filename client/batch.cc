// lmqctl batch: many calls from a file, all checked before the first is sent, many in one request.
#include <algorithm>

#include "answer.h"
#include "command.h"
#include "error.h"
#include "file.h"
#include "prepare.h"
#include "progress.h"
#include "standard_output.h"
#include "words.h"

namespace lmqctl {

namespace {

struct BatchOptions {
    std::string file;
    bool stop = false, answers = false, full = false;
};

struct Entry {
    std::size_t line;  // in the file; or the number in a JSON array
    PreparedCall prepared;
};

// Says where in the file an error is.
template <class Make>
Entry entry(const std::string &file, const char *unit, std::size_t line, Make make) {
    try {
        return {line, make()};
    } catch (const UsageError &error) {
        throw UsageError(file + ", " + unit + " " + std::to_string(line) + ": " + error.what() + "\nNothing was sent.");
    }
}

std::vector<Entry> entries(Context &context, const std::string &file) {
    const std::string text = read_text(file);
    std::vector<Entry> found;
    std::size_t number = 0;
    if (const auto first = text.find_first_not_of(" \t\r\n"); first != std::string::npos && text[first] == '[') {
        for (const Json &call : json_of_user(text, file))
            found.push_back(entry(file, "call", ++number, [&] { return prepare_json(context, call); }));
        return found;
    }
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        ++number;
        const Words split = split_words(line);
        if (split.words.empty()) continue;
        found.push_back(entry(file, "line", number, [&] {
            if (split.open_quote) throw UsageError(std::string("the quote ") + split.open_quote + " is not closed");
            return prepare_words(context, split.words);
        }));
    }
    return found;
}

std::string fault_text(const Json &fault) {
    return "fault " + fault["faultCode"].dump() + ": " + fault["faultString"].get<std::string>();
}

std::string shown(Context &context, const BatchOptions &options, const Entry &entry, const Json &answer) {
    const Output output = context.output(options.full);
    const std::string head = std::to_string(entry.line) + ": " + entry.prepared.text;
    const Method &method = entry.prepared.method;
    if (is_fault(answer)) return head + "\n" + output.paint("31", fault_text(answer)) + "\n";
    if (options.answers || options.full) return output.paint("1", head) + "\n" + output.answer(method, answer);
    return head + "  " + (method.is_described() ? output.status(method, result_of(answer)) : "done") + "\n";
}

void batch(Context &context, const BatchOptions &options) {
    const std::vector<Entry> all = entries(context, options.file);
    std::size_t counts[3] = {};
    Json answers = Json::array();
    std::size_t done = 0;
    {
        Progress progress("calls", all.size());
        while (done < all.size() && (!options.stop || context.exit_status == exit_ok)) {
            const std::size_t end = std::min(all.size(), done + (options.stop ? 1 : calls_in_a_request));
            std::vector<Call> calls;
            for (std::size_t i = done; i < end; ++i) calls.push_back(all[i].prepared.call);
            std::string text;
            for (const Json &answer : context.session().multicall(calls)) {
                const Entry &entry = all[done++];
                const int status = exit_status_of(context.dictionary(), entry.prepared.method, answer);
                ++counts[status];
                context.exit_status = std::max(context.exit_status, status);
                if (context.json) {
                    Json json{{"line", entry.line}};
                    json.update(json_answer(context.dictionary(), context.types(), entry.prepared.method, answer));
                    answers.push_back(json);
                } else {
                    text += shown(context, options, entry, answer);
                }
            }
            // The calls of a request print into one text.
            const std::string printed = context.session().printed();
            if (context.json && !answers.empty()) answers.back() = with_printed(answers.back(), printed);
            print(text + (context.json ? "" : printed_text(printed)));
            progress.reached(done);
        }
    }
    if (context.json) return print(json_text(answers, 2) + "\n");
    const auto counted = [](std::size_t count, const char *one, const char *more) {
        return std::to_string(count) + " " + (count == 1 ? one : more);
    };
    print(counted(done, "call", "calls") + ": " + std::to_string(counts[exit_ok]) + " succeeded, " +
          counted(counts[exit_driver], "driver failure", "driver failures") + ", " +
          counted(counts[exit_fault], "fault", "faults") +
          (done < all.size() ? "; " + std::to_string(all.size() - done) + " not made" : "") + "\n");
}

}  // namespace

void set_up_batch(CLI::App &command, Context &context) {
    const auto options = std::make_shared<BatchOptions>();
    command
        .add_option("FILE", options->file,
                    "Lines METHOD ARG..., as behind `lmqctl call` (# begins a comment), or a JSON array\n"
                    "of {\"method\": NAME, \"arguments\": [...]} or [NAME, ARG...]; - for standard input")
        ->required();
    command.add_flag("--stop", options->stop, "End with the first call that fails; sends one call at a time");
    command.add_flag("--answers", options->answers, "Show the whole answers, not the statuses alone");
    command.add_flag("--full", options->full, "The same with all alternatives and all zeros");
    command.callback([&context, options] { batch(context, *options); });
}

}  // namespace lmqctl
