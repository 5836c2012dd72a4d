// lmqctl snapshot: what all methods that only read say, in one file. Which these are, the dictionary tells: their names
// end in _get, and they take the numbers of a device and a port and nothing else.
#include "snapshot.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <system_error>

#include "arguments.h"
#include "command.h"
#include "error.h"
#include "names.h"
#include "progress.h"
#include "request.h"

namespace lmqctl {

namespace {

struct SnapshotOptions {
    std::string file, pattern = "*";
    std::vector<int64_t> devices{0};
    std::string ports = "0-7";
};

enum class Input { device, port, other };

// By the declared type: vx_dev_id_t, vx_port_id_t.
Input input_of(const Parameter &parameter) {
    const std::string type = lower(parameter.type);
    if (parameter.is_pointer()) return Input::other;
    if (type.find("dev_id") != std::string::npos) return Input::device;
    return type.find("port_id") != std::string::npos ? Input::port : Input::other;
}

std::vector<int64_t> numbers_of(const std::string &text) {
    std::vector<int64_t> numbers;
    for (const std::string &part : split(text, ',')) {
        const std::vector<std::string> ends = split(part, '-');
        const auto first = number(ends[0]), last = number(ends.back());
        if (ends.size() > 2 || !first || !last || *first < 0 || *last < *first || *last - *first > 1000)
            throw UsageError("--ports: " + part + " is neither a number nor a range like 0-3");
        for (int64_t n = *first; n <= *last; ++n) numbers.push_back(n);
    }
    return numbers;
}

std::vector<Call> calls_of(Context &context, const SnapshotOptions &options) {
    const Dictionary &dictionary = context.dictionary();
    const std::vector<int64_t> ports = numbers_of(options.ports);
    std::vector<Call> calls;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        if (!name.ends_with("_get") || !glob(options.pattern, name)) continue;
        const Method method = dictionary.method_or_throw(name);
        if (!method.is_described()) continue;
        bool needs_more = false, takes_port = false, takes_device = false;
        for (const Parameter &parameter : method.parameters) {
            const Input input = input_of(parameter);
            takes_device = takes_device || input == Input::device;
            takes_port = takes_port || input == Input::port;
            needs_more = needs_more || (input == Input::other && !is_output(method, parameter));
        }
        if (needs_more) continue;
        for (const int64_t device : takes_device ? options.devices : std::vector<int64_t>{0})
            for (const int64_t port : takes_port ? ports : std::vector<int64_t>{0}) {
                Call call{dictionary.full_name(name)};
                for (const Parameter &parameter : method.parameters) {
                    const Input input = input_of(parameter);
                    if (input == Input::other)
                        call.parameters.push_back(left_out(*context.types().parameter(parameter), parameter, 0));
                    else
                        call.parameters.push_back(input == Input::device ? device : port);
                }
                calls.push_back(call);
            }
    }
    return calls;
}

std::string key_of(const Call &call) {
    std::string text = call.method + "(";
    for (const Json &parameter : call.parameters)
        if (!parameter.is_structured()) text += (text.back() == '(' ? "" : ", ") + parameter.dump();
    return text + ")";
}

// The whole file or nothing: an old snapshot is not lost over a full disk.
void write_whole(const std::string &file, const std::string &text) {
    const std::string fresh = file + ".new";
    errno = 0;
    std::ofstream stream(fresh, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (!stream || std::rename(fresh.c_str(), file.c_str()) != 0) {
        const std::string why = std::generic_category().message(errno);
        unlink(fresh.c_str());
        throw UsageError("cannot write " + file + ": " + why);
    }
}

void snapshot(Context &context, const SnapshotOptions &options) {
    const std::vector<Call> calls = calls_of(context, options);
    if (calls.empty())
        throw UsageError("no method that only reads and needs no more than device and port matches " + options.pattern);
    // Before the calls, as they take their time.
    if (const std::size_t slash = options.file.rfind('/');
        access(slash == std::string::npos ? "." : options.file.substr(0, slash + 1).c_str(), W_OK) != 0)
        throw UsageError("cannot write " + options.file + ": " + std::generic_category().message(errno));
    char time[32];
    const std::time_t now = std::time(nullptr);
    tm parts{};
    std::strftime(time, sizeof time, "%Y-%m-%dT%H:%M:%SZ", gmtime_r(&now, &parts));
    const Json answers = take_snapshot(context, calls);
    const auto failed = std::count_if(answers.begin(), answers.end(), [](const Json &answer) {
        return answer.contains("fault") || !answer.value("success", false);
    });
    write_whole(options.file,
                Json{{"snapshot", 1}, {"host", context.session().url()}, {"time", time}, {"answers", answers}}.dump(
                    1, ' ', false, Json::error_handler_t::replace) +
                    "\n");
    print(options.file + ": " + std::to_string(calls.size()) + (calls.size() == 1 ? " call, " : " calls, ") +
          std::to_string(calls.size() - static_cast<std::size_t>(failed)) + " answered with success\n");
}

}  // namespace

Json take_snapshot(Context &context, const std::vector<Call> &calls) {
    const Dictionary &dictionary = context.dictionary();
    Json answers = Json::object();
    Progress progress("calls", calls.size());
    for (std::size_t begin = 0; begin < calls.size(); begin += calls_in_a_packet) {
        const auto end = std::min(calls.size(), begin + calls_in_a_packet);
        const std::vector<Call> part(calls.begin() + static_cast<std::ptrdiff_t>(begin),
                                     calls.begin() + static_cast<std::ptrdiff_t>(end));
        const std::vector<Json> got = context.session().multicall(part);
        for (std::size_t i = 0; i < got.size(); ++i) {
            const std::optional<Method> method = dictionary.method(part[i].method);
            Json entry{{"method", part[i].method}, {"parameters", part[i].parameters}};
            if (is_fault(got[i])) {
                entry["fault"] = got[i]["faultString"];
            } else if (method && method->is_described() && got[i].is_array() && !got[i].empty()) {
                entry["success"] = is_success(dictionary, *method, got[i][0]);
                entry["status"] = Output::plain(*context.types().scalar(method->result), got[i][0], &dictionary);
                for (std::size_t p = 0; p < method->parameters.size() && p + 1 < got[i].size(); ++p)
                    if (method->parameters[p].is_pointer())
                        entry["arguments"][method->parameters[p].name] = Output::plain(
                            *context.types().parameter(method->parameters[p]), got[i][p + 1], &dictionary);
            } else {
                entry["success"] = true;
                entry["status"] = got[i];
            }
            answers[key_of(part[i])] = entry;
        }
        progress.reached(end);
    }
    return answers;
}

void set_up_snapshot(CLI::App &command, Context &context) {
    const auto options = std::make_shared<SnapshotOptions>();
    command.add_option("FILE", options->file, "Where to write the answers, as JSON")->required();
    command.add_option("GLOB", options->pattern, "Methods to call, of those whose names end in _get");
    command.add_option("--devices", options->devices, "Numbers of devices")->delimiter(',')->capture_default_str();
    command.add_option("--ports", options->ports, "Numbers of ports, like 0-3 or 0,2")->capture_default_str();
    command.callback([&context, options] { snapshot(context, *options); });
}

}  // namespace lmqctl
