// Steps as a program in C and in Python. Both have the same parts: how a call is judged, the kept values, a block for
// each step.
#include "script_code.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "answer.h"
#include "code.h"
#include "error.h"
#include "scalar_text.h"
#include "symbol.h"

namespace lmqctl {

namespace {

[[noreturn]] void cannot(const Step &step, const std::string &what) {
    throw UsageError("line " + std::to_string(step.line) + ": " + what);
}

// What a driver's function returns when all is well; nothing if it does not say so.
std::optional<int64_t> success_of(const Dictionary &dictionary, const Method &method) {
    if (!method.is_described() || dictionary.base_type(method.result) != "int") return {};
    return 0;
}

std::optional<int64_t> due(const Dictionary &dictionary, const Step &step) {
    return step.expected ? step.expected->number : success_of(dictionary, step.prepared.method);
}

std::string seconds_text(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", seconds);
    return text;
}

bool is_number(const Type &type) { return type.kind == Type::integer || type.kind == Type::enumeration; }

// The value that is waited for, a symbol among them.
Json wanted(const Dictionary &dictionary, const Step &step) {
    const Type &type = step.awaited->place.value_type();
    InputOptions options;
    options.symbols = true;
    const std::string &text = step.awaited->value;
    // All of the value is the name of a kept one, or none of it.
    if (text.starts_with('$') && text.size() > 1 && text[1] != '$') return symbol(text.substr(1));
    return plain(type, Input(dictionary, options).from_text(type, text, step.awaited->place.path));
}

std::string c_string(const std::string &text) {
    std::string result = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') result += '\\';
        // ??x would be a trigraph.
        result += letter == '?' ? "\\?" : std::string(1, letter);
    }
    return result + "\"";
}

// ---- C

constexpr char c_head[] = R"(#include <lmq/lmq.h>
#include <stddef.h>
#include <stdio.h>
#include <time.h>

static int failures;

/* Says how a call went. */
static void say(int line, const char *call, long long result, int is_right) {
    printf("%d: %s  %lld%s\n", line, call, result, is_right ? "" : ", which is not as it should be");
    failures += !is_right;
}
)";

constexpr char c_waiting[] = R"(
static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

static void nap(void) {
    const struct timespec time = {0, 100000000};
    nanosleep(&time, NULL);
}
)";

class CProgram {
  public:
    CProgram(const Dictionary &dictionary, Types &types) : dictionary_(dictionary), types_(types) {}

    std::string text(const std::vector<Step> &steps) {
        std::string blocks, variables, waiting;
        for (const Step &step : steps) used_.insert(step.uses.begin(), step.uses.end());
        for (const Step &step : steps) {
            blocks += block(step);
            if (step.awaited) waiting = c_waiting;
            for (const Kept &kept : step.kept) {
                if (!used_.contains(kept.name)) continue;
                const std::string declared = type_of(step, kept.place),
                                  line = declared + " " + variable_name(kept.name);
                if (variables.find(" " + line + " = ") != std::string::npos) continue;
                if (variables.find(" " + variable_name(kept.name) + " = ") != std::string::npos)
                    cannot(step, kept.name + " is kept with another type already; as NAME gives it a name of its own");
                variables += "    " + line + " = {0};\n";
            }
        }
        const std::string posix = waiting.empty() ? "" : "#define _POSIX_C_SOURCE 199309L /* for the clock */\n";
        return posix + c_head + waiting + "\nint main(void) {\n" + variables + blocks +
               "    return failures != 0;\n}\n";
    }

  private:
    // The argument that a path begins with.
    static const Parameter &parameter_of(const Step &step, const Place &place) {
        const std::string name = place.path.substr(0, place.path.find_first_of(".["));
        for (const Parameter &parameter : step.prepared.method.parameters)
            if (parameter.name == name) return parameter;
        cannot(step, place.path + " is no argument");
    }

    std::string type_of(const Step &step, const Place &place) {
        const Type &type = place.value_type();
        if (place.path == "result") return step.prepared.method.result;
        const Parameter &parameter = parameter_of(step, place);
        if (place.path == parameter.name && (parameter.is_udt || is_number(type)))
            return parameter.pointee() == "int" && !parameter.said.type.empty() ? parameter.said.type
                                                                                : parameter.pointee();
        if (is_number(type) || (type.kind == Type::structure && !type.name.empty())) return type.declared();
        cannot(step, "C cannot keep " + place.path + ", which is " + type.described());
    }

    // Where a value stands once the call is made.
    std::string expression(const Step &step, const Place &place) {
        if (place.path == "result") return "result";
        const Parameter &parameter = parameter_of(step, place);
        const bool is_whole = place.path == parameter.name;
        return place.path + (is_whole && parameter.is_pointer() && !parameter.is_udt ? "[0]" : "");
    }

    std::string block(const Step &step) {
        const Method &method = step.prepared.method;
        const Json &arguments = step.prepared.call.parameters;
        if (!method.is_described()) cannot(step, method.name + " is the host's, and no function of the driver");
        if (step.expected && step.expected->is_fault) cannot(step, "a function of the driver answers with no fault");
        for (std::size_t i = 0; i < method.parameters.size() && i < arguments.size(); ++i)
            for (const Parameter &other : method.parameters)
                if (other.is_pointer() && other.said.length.argument == method.parameters[i].name &&
                    symbol_name(arguments[i].is_array() && !arguments[i].empty() ? arguments[i][0] : arguments[i]))
                    cannot(step,
                           other.name + " has as many elements as a kept value says, which C cannot make room for");
        const CallInC call = call_in_c(dictionary_, types_, method, arguments);
        const bool returns = method.result != "void";
        const std::optional<int64_t> number = due(dictionary_, step);
        const std::string right =
            returns && number ? "result == " + scalar_to_text(dictionary_, *types_.scalar(method.result), *number)
                              : "1";
        const std::string head = "    {\n        /* " + comment(step.text) + " */\n";
        return head + indented(step.awaited ? waiting(step, call, right) : calling(step, call, right, returns)) +
               "    }\n";
    }

    std::string calling(const Step &step, const CallInC &call, const std::string &right, bool returns) {
        std::string text = call.declarations + "    " +
                           (returns ? step.prepared.method.result + " result = " : std::string()) + call.expression +
                           ";\n    say(" + said(step) + ", " + (returns ? "(long long)result" : "0") + ", " + right +
                           ");\n";
        return text + keeping(step);
    }

    std::string waiting(const Step &step, const CallInC &call, const std::string &right) {
        const Place &place = step.awaited->place;
        if (!is_number(place.value_type())) cannot(step, "C cannot wait for " + place.path + ", which is no number");
        const Json value = wanted(dictionary_, step);
        const auto later = symbol_name(value);
        const std::string is_there =
            "(long long)" + expression(step, place) + " == " +
            (later ? "(long long)" + variable_name(*later) : scalar_to_text(dictionary_, place.value_type(), value));
        std::string text =
            "    const double end = now() + " + seconds_text(step.awaited->seconds) + ";\n    for (;;) {\n";
        text += indented(call.declarations + "    " + step.prepared.method.result + " result = " + call.expression +
                         ";\n    int is_there = " + right + " && " + is_there +
                         ";\n    if (!is_there && now() < end) {\n        nap();\n        continue;\n    }\n    say(" +
                         said(step) + ", (long long)result, is_there);\n");
        return text + indented(keeping(step)) + "        break;\n    }\n";
    }

    // A compiler warns of variables that nobody reads.
    std::string keeping(const Step &step) {
        std::string text;
        for (const Kept &kept : step.kept)
            if (used_.contains(kept.name))
                text += "    " + variable_name(kept.name) + " = " + expression(step, kept.place) + ";\n";
        return text;
    }

    static std::string said(const Step &step) {
        return std::to_string(step.line) + ", " + c_string(step.prepared.method.name);
    }

    static std::string comment(std::string text) {
        for (std::size_t at; (at = text.find("*/")) != std::string::npos;) text.insert(at + 1, " ");
        for (std::size_t at; (at = text.find("/*")) != std::string::npos;) text.insert(at + 1, " ");
        return text;
    }

    static std::string indented(const std::string &lines) {
        std::string text;
        for (std::size_t begin = 0; begin < lines.size();) {
            const std::size_t end = lines.find('\n', begin) + 1;
            text += "    " + lines.substr(begin, end - begin);
            begin = end;
        }
        return text;
    }

    const Dictionary &dictionary_;
    Types &types_;
    std::set<std::string> used_;
};

// ---- Python

constexpr char python_head[] = R"(failures = 0


def call(line, text, due, method, *arguments, tells=True):
    """Makes a call and says how it went. Returns the answer, and whether it is as it should be: `due` is the status, or
    None for any; a fault's is ("fault", CODE), with None for any code."""
    global failures
    try:
        answer = getattr(host, method)(*arguments)
        status = answer[0] if isinstance(answer, list) and answer else answer
        is_right = due is None or status == due
    except xmlrpc.client.Fault as fault:
        answer, status = None, f"fault {fault.faultCode}: {fault.faultString}"
        is_right = isinstance(due, tuple) and due[1] in (None, fault.faultCode)
    if tells:
        print(f"{line}: {text}  {status}" + ("" if is_right else ", which is not as it should be"))
        failures += not is_right
    return answer, is_right


def at(answer, *place):
    """What stands at a place of an answer; of a list of one, its element."""
    try:
        for step in place:
            answer = answer[step]
    except (KeyError, IndexError, TypeError):
        return None
    return answer[0] if isinstance(answer, list) and len(answer) == 1 else answer
)";

constexpr char python_waiting[] = R"(

def wait(line, text, due, place, wanted, bits, seconds, method, *arguments):
    """Makes a call again and again until a member has a value, or the time is over. Returns the last answer."""
    global failures
    end = time.monotonic() + seconds
    while True:
        answer, is_right = call(line, text, due, method, *arguments, tells=False)
        value = at(answer, *place)
        is_there = is_right and (value == wanted or bits and isinstance(value, int) and (value - wanted) % (1 << bits) == 0)
        if is_there or time.monotonic() >= end:
            print(f"{line}: {text}  {value}" + ("" if is_there else ", which is not as it should be"))
            failures += not is_there
            return answer
        time.sleep(0.1)
)";

std::string python_place(const Place &place) {
    std::string text;
    const std::string pointer = place.at.to_string();
    for (std::size_t begin = 1; begin < pointer.size();) {
        const std::size_t end = std::min(pointer.find('/', begin), pointer.size());
        const std::string step = pointer.substr(begin, end - begin);
        const bool is_index = step.find_first_not_of("0123456789") == std::string::npos;
        text += (text.empty() ? "" : ", ") + (is_index ? step : json_text(step));
        begin = end + 1;
    }
    return text;
}

std::string python_due(const Dictionary &dictionary, const Step &step) {
    const std::optional<int64_t> number = due(dictionary, step);
    const std::string code = number ? std::to_string(*number) : "None";
    return step.expected && step.expected->is_fault ? "(\"fault\", " + code + ")" : code;
}

std::string python_step(const Dictionary &dictionary, const Step &step) {
    const Call &call = step.prepared.call;
    const std::string arguments = python_arguments(call.parameters);
    const std::string said =
        std::to_string(step.line) + ", " + json_text(Json(step.text)) + ", " + python_due(dictionary, step) + ", ";
    const std::string rest = json_text(Json(call.method)) + (arguments.empty() ? "" : ", " + arguments) + ")\n";
    std::string text;
    if (step.awaited) {
        const Type &type = step.awaited->place.value_type();
        text = "answer = wait(" + said + "(" + python_place(step.awaited->place) + ",), " +
               python_arguments(Json::array({wanted(dictionary, step)})) + ", " +
               std::to_string(is_number(type) ? type.width : 0) + ", " + seconds_text(step.awaited->seconds) + ", " +
               rest;
    } else {
        text = (step.kept.empty() ? "call(" : "answer, _ = call(") + said + rest;
    }
    for (const Kept &kept : step.kept)
        text += variable_name(kept.name) + " = at(answer, " + python_place(kept.place) + ")\n";
    return text;
}

std::string python_program(const Connection &connection, const Dictionary &dictionary, const std::vector<Step> &steps) {
    std::string lines;
    bool waits = false;
    for (const Step &step : steps) {
        lines += python_step(dictionary, step);
        waits = waits || step.awaited;
    }
    std::set<std::string> imports{"sys"};
    if (waits) imports.insert("time");
    return python_host(connection, imports) + python_head + (waits ? python_waiting : "") + "\n\n" + lines +
           "sys.exit(1 if failures else 0)\n";
}

}  // namespace

std::string script_as_code(const std::string &language, const std::string &file, const Connection &connection,
                           const Dictionary &dictionary, Types &types, const std::vector<Step> &steps) {
    const bool is_c = language == "c";
    std::string name = file == "-" ? "standard input" : file;
    for (std::size_t at; (at = name.find("*/")) != std::string::npos;) name.erase(at, 2);
    const std::string head = "The calls of " + name + ".";
    return is_c ? "/* " + head + " */\n" + CProgram(dictionary, types).text(steps)
                : "# " + head + "\n" + python_program(connection, dictionary, steps);
}

}  // namespace lmqctl
