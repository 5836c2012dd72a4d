// First the ids are followed through the calls, then each call is written.
#include "trace_script.h"

#include <algorithm>

#include "answer.h"
#include "arguments.h"
#include "call_words.h"
#include "code.h"
#include "error.h"
#include "leaves.h"
#include "time_text.h"

namespace lmqctl {

namespace {

// As an answer has them, so that they can be walked alike.
Json with_result(const Json &arguments) {
    Json values = Json::array({0});
    values.insert(values.end(), arguments.begin(), arguments.end());
    return values;
}

std::size_t parameter_of(const Method &method, const std::string &path) {
    const std::string name = path.substr(0, path.find_first_of(".["));
    const auto found = std::find_if(method.parameters.begin(), method.parameters.end(),
                                    [&](const Parameter &parameter) { return parameter.name == name; });
    return static_cast<std::size_t>(found - method.parameters.begin());
}

// The place of a value in C or, below an argument, in Python; an array of one element has an index there, too.
std::string place_in_c(const std::string &path, const Json &argument) {
    const std::size_t end = path.find_first_of(".[");
    if (!argument.is_array() || (end != std::string::npos && path[end] == '[')) return path;
    return path.substr(0, end) + "[0]" + (end == std::string::npos ? "" : path.substr(end));
}

std::string place_in_python(const std::string &path) {
    std::string place;
    for (std::size_t at = path.find_first_of(".["); at != std::string::npos;) {
        const std::size_t next = path.find_first_of(".[", at + 1);
        const std::string part = path.substr(at, next == std::string::npos ? next : next - at);
        place += part[0] == '[' ? part : "[\"" + part.substr(1) + "\"]";
        at = next;
    }
    return place;
}

constexpr char python_call[] = R"(
def call(name, *arguments):
    try:
        answer = getattr(host, name)(*arguments)
    except (xmlrpc.client.Fault, xmlrpc.client.ProtocolError) as error:
        answer = error
    print(name, answer)
    return answer


)";

}  // namespace

void TraceScript::add(TraceEntry entry) {
    if (!entry.is_call() || !entry.arguments.is_array()) return;
    const auto method = interface_.dictionary.method(interface_.dictionary.bare_name(entry.method));
    // What describes the interface does nothing to the chip.
    if (!method || !method->contract) return;
    steps_.push_back({*method, std::move(entry), {}, {}});
}

void TraceScript::find_ids() {
    for (std::size_t index = 0; index < steps_.size(); ++index) {
        find_taken(steps_[index]);
        find_given(index);
    }
}

// The ids among the inputs of a call that an earlier one gave out.
void TraceScript::find_taken(Step &step) {
    for (const Leaf &leaf : leaves_of(interface_.types, step.method, with_result(step.entry.arguments), true)) {
        const std::size_t parameter = parameter_of(step.method, leaf.path);
        if (parameter >= step.method.parameters.size() || !leaf.value.is_number_integer()) continue;
        if (step.method.parameters[parameter].said.direction == Direction::out) continue;
        const Id id{leaf.type->meaning.id, leaf.value.get<int64_t>()};
        const auto given = given_.find(id);
        if (given == given_.end()) continue;
        std::vector<Kept> &keeps = steps_[given->second.step].keeps;
        auto kept =
            std::find_if(keeps.begin(), keeps.end(), [&](const Kept &each) { return each.path == given->second.path; });
        if (kept == keeps.end()) {
            std::string name = id.first;
            std::replace(name.begin(), name.end(), '-', '_');
            name += std::to_string(++counts_[id.first]);
            kept = keeps.insert(keeps.end(), {given->second.path, name, given->second.parameter});
        }
        step.names[id] = kept->name;
    }
}

// The ids that a call gave out: those in its answer that it did not take itself.
void TraceScript::find_given(std::size_t index) {
    Step &step = steps_[index];
    if (!step.entry.answer.is_array() || !is_success(interface_.dictionary, step.method, result_of(step.entry.answer)))
        return;
    std::vector<Id> taken;
    for (const Leaf &leaf : leaves_of(interface_.types, step.method, with_result(step.entry.arguments), true)) {
        const std::size_t parameter = parameter_of(step.method, leaf.path);
        const bool is_in = parameter < step.method.parameters.size() &&
                           step.method.parameters[parameter].said.direction != Direction::out;
        if (is_in && leaf.value.is_number_integer())
            taken.emplace_back(leaf.type->meaning.id, leaf.value.get<int64_t>());
    }
    for (const Leaf &leaf : leaves_of(interface_.types, step.method, step.entry.answer, false)) {
        if (!ids_.is_given_out(*leaf.type) || !leaf.value.is_number_integer()) continue;
        const Id id{leaf.type->meaning.id, leaf.value.get<int64_t>()};
        const Given given{index, leaf.path, parameter_of(step.method, leaf.path)};
        // What only lists ids may list them in another order next time.
        if (step.method.contract->effect != "changes")
            given_.try_emplace(id, given);
        else if (std::find(taken.begin(), taken.end(), id) == taken.end())
            given_.insert_or_assign(id, given);
    }
}

std::string TraceScript::name_of(const Step &step, const Type &type, int64_t number) const {
    const auto name = step.names.find({type.meaning.id, number});
    return name == step.names.end() ? "" : name->second;
}

std::string TraceScript::batch_step(const Step &step) {
    const Dictionary &dictionary = interface_.dictionary;
    ArgumentOptions exact;
    exact.force = true;
    exact.set_flags = false;
    const auto means_the_same = [&](const std::vector<std::string> &words, const ArgumentOptions &options) {
        try {
            return build_arguments(dictionary, interface_.types, step.method, {words.begin() + 1, words.end()},
                                   options) == step.entry.arguments;
        } catch (const Error &) {
            return false;
        }
    };
    const NameOf name = [&](const Type &type, int64_t number) {
        const std::string found = name_of(step, type, number);
        return found.empty() ? found : "$" + found;
    };
    std::string line;
    for (const auto words_in : {call_words, full_call_words}) {
        const auto numbers = words_in(dictionary, interface_.types, step.method, step.entry.arguments, {});
        auto words = words_in(dictionary, interface_.types, step.method, step.entry.arguments, name);
        const bool fits = means_the_same(numbers, {});
        if (!fits && !means_the_same(numbers, exact)) continue;
        if (!fits) words.insert(words.end(), {"--force", "--no-valid"});
        line = line_of(words);
        break;
    }
    if (line.empty()) return "# " + step.method.name + ": these arguments cannot be written in a line\n";
    for (const Kept &kept : step.keeps) line += " -> " + kept.path + " as " + kept.name;
    return line + "\n";
}

std::string TraceScript::python_step(const Step &step) const {
    const NameOf name = [&](const Type &type, int64_t number) { return name_of(step, type, number); };
    std::string text = std::string(step.keeps.empty() ? "" : "answer = ") + "call(\"" + step.entry.method + "\"";
    for (std::size_t i = 0; i < step.entry.arguments.size(); ++i) {
        const Json &argument = step.entry.arguments[i];
        const bool is_known = i < step.method.parameters.size();
        text += ", " + (is_known ? value_text(*interface_.types.parameter(step.method.parameters[i]), argument,
                                              is_output(step.method, step.method.parameters[i]) ? NameOf() : name)
                                 : json_text(argument));
    }
    text += ")\n";
    for (const Kept &kept : step.keeps) {
        const Json &argument = step.entry.answer[kept.parameter + 1];
        text += kept.name + " = answer[" + std::to_string(kept.parameter + 1) + "]" +
                place_in_python(place_in_c(kept.path, argument)) + "\n";
    }
    return text;
}

std::string TraceScript::c_step(const Step &step) {
    const std::string block =
        call_as_code("c", connection_, interface_.dictionary, interface_.types, step.method, step.entry.arguments);
    // The call stands in the last line but one; what is before declares its arguments.
    const std::size_t close = block.rfind("}\n"), call = block.rfind("\n", close - 2) + 1;
    std::string declarations = block.substr(2, call - 2), line = block.substr(call, close - call), assigned;
    std::vector<std::string> words;
    const std::size_t open = line.find(step.method.name + "(") + step.method.name.size() + 1;
    std::string rest = line.substr(open, line.rfind(')') - open);
    for (std::size_t comma = 0; !rest.empty() && comma != std::string::npos; rest.erase(0, comma + 2)) {
        comma = rest.find(", ");
        words.push_back(rest.substr(0, comma));
        if (comma == std::string::npos) break;
    }
    for (const Leaf &leaf : leaves_of(interface_.types, step.method, with_result(step.entry.arguments), true)) {
        const std::string name =
            leaf.value.is_number_integer() ? name_of(step, *leaf.type, leaf.value.get<int64_t>()) : "";
        const std::size_t parameter = parameter_of(step.method, leaf.path);
        if (name.empty() || parameter >= words.size() || is_output(step.method, step.method.parameters[parameter]))
            continue;
        if (step.method.parameters[parameter].is_pointer())
            assigned += "    " + place_in_c(leaf.path, step.entry.arguments[parameter]) + " = " + name + ";\n";
        else
            words[parameter] = name;
    }
    std::string text = "{\n" + declarations + assigned + line.substr(0, open);
    for (const std::string &word : words) text += (&word == words.data() ? "" : ", ") + word;
    text += ");\n";
    if (line.find(" result = ") != std::string::npos)
        text += "    printf(\"" + step.method.name + ": %lld\\n\", (long long)result);\n";
    for (const Kept &kept : step.keeps)
        text += "    " + kept.name + " = " + place_in_c(kept.path, step.entry.arguments[kept.parameter]) + ";\n";
    return text + "}\n";
}

std::string TraceScript::text(const std::string &language, const std::string &file) {
    find_ids();
    const std::string from = "The calls in " + file +
                             (steps_.empty() ? ""
                                             : " from " + time_text(steps_.front().entry.time) + " to " +
                                                   time_text(steps_.back().entry.time));
    std::string text;
    if (language == "batch") {
        for (const Step &step : steps_) text += batch_step(step);
        return "# " + from + "\n" + text;
    }
    if (language == "python") {
        for (const Step &step : steps_) text += python_step(step);
        const std::string one = call_as_code("python", connection_, interface_.dictionary, interface_.types,
                                             steps_.empty() ? Method() : steps_[0].method, Json::array());
        return "# " + from + "\n" + one.substr(0, one.rfind("print(host.")) + "\n" + python_call + text;
    }
    std::string variables;
    for (const Step &step : steps_) {
        for (const Kept &kept : step.keeps) variables += "    long long " + kept.name + " = 0;\n";
        std::string block = c_step(step);
        for (std::size_t at = 0; at < block.size(); at = block.find('\n', at) + 1) block.insert(at, "    "), at += 4;
        text += block;
    }
    return "/* " + from + " */\n#include <lmq/lmq.h>\n#include <stdio.h>\n\nint main(void) {\n" + variables + text +
           "    return 0;\n}\n";
}

}  // namespace lmqctl
