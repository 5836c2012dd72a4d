// The walk over all that can be read, in rounds: what answers name is asked for in the next.
#include "survey.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "answer.h"
#include "arguments.h"
#include "error.h"
#include "names.h"
#include "progress.h"
#include "scalar_text.h"

namespace lmqctl {

Json comparable(Context &context, const Type &type, const Json &value) {
    if (const std::string address = address_to_text(type, value); !address.empty()) return address;
    if (!value.is_structured()) return plain(type, value, &context.dictionary());
    Json kept = value.is_array() ? Json::array() : Json::object();
    for (const auto &[key, inside] : value.items()) {
        if (value.is_array()) {
            kept.push_back(comparable(context, type.element ? *type.element : type, inside));
            continue;
        }
        const Member *member = type.member(key);
        if (!member) {
            kept[key] = inside;
        } else if (const Member *chosen =
                       member->type->kind == Type::overlay ? selected(*member->type, value) : nullptr;
                   chosen && inside.contains(chosen->name)) {
            kept[key][chosen->name] = comparable(context, *chosen->type, inside[chosen->name]);
        } else if (member->type->kind != Type::overlay || member->type->selected.empty()) {
            kept[key] = comparable(context, *member->type, inside);
        }
    }
    return kept;
}

namespace {

constexpr int64_t most_in_range = 128;         // that are asked for as a whole
constexpr int64_t most_tried = 64;             // numbers of things that no list names
constexpr std::size_t most_enumerators = 256;  // of an enum that is asked for as a whole
constexpr std::size_t most_things = 256;       // of one kind
constexpr int most_rounds = 5;
constexpr std::size_t few_elements = 2;        // of a list, to begin with: most are short, and their elements are large
constexpr std::size_t heaviest_request = 256;  // elements of arrays, beside the first call

using Numbers = std::vector<int64_t>;

[[noreturn]] void refuse_numbers(const std::string &option, const std::string &part) {
    throw UsageError(option + ": " + part + " is neither a number nor a range like 0-3");
}

Numbers numbers_of(const std::string &option, const std::string &text, int64_t step) {
    Numbers numbers;
    for (const std::string &part : split(text, ',')) {
        const std::vector<std::string> ends = split(part, '-');
        const auto first = number(ends[0]), last = number(ends.back());
        if (ends.size() > 2 || !first || !last || *first < 0 || *last < *first || (*last - *first) / step > 1000)
            refuse_numbers(option, part);
        for (int64_t n = *first; n <= *last; n += step) numbers.push_back(n);
    }
    return numbers;
}

std::string key_of(const Call &call) {
    std::string text = call.method + "(";
    for (const Json &parameter : call.parameters)
        if (!parameter.is_structured()) text += (text.back() == '(' ? "" : ", ") + parameter.dump();
    return text + ")";
}

// What is kept of an answer.
Json entry_of(Context &context, const Call &call, const Json &answer) {
    const Dictionary &dictionary = context.dictionary();
    const std::optional<Method> method = dictionary.method(call.method);
    Json entry{{"method", call.method}, {"parameters", call.parameters}};
    if (is_fault(answer)) {
        entry["fault"] = answer["faultString"];
        return entry;
    }
    if (!method || !method->is_described() || !answer.is_array() || answer.empty()) {
        entry["success"] = true;
        entry["status"] = answer;
        return entry;
    }
    entry["success"] = is_success(dictionary, *method, answer[0]);
    entry["status"] = plain(*context.types().scalar(method->result), answer[0], &dictionary);
    for (std::size_t i = 0; i < method->parameters.size() && i + 1 < answer.size(); ++i)
        if (const Parameter &parameter = method->parameters[i]; parameter.is_pointer())
            entry["arguments"][parameter.name] =
                comparable(context, *context.types().parameter(parameter), filled(*method, i, answer));
    return entry;
}

// A host that refuses one call may refuse all that come with it: then each goes by itself.
std::vector<Json> multicall(Context &context, const std::vector<Call> &calls) {
    try {
        return context.session().multicall(calls);
    } catch (const Fault &fault) {
        if (calls.size() == 1) return {Json{{"faultCode", fault.code}, {"faultString", fault.what()}}};
    }
    std::vector<Json> answers;
    answers.reserve(calls.size());
    for (const Call &call : calls) answers.push_back(multicall(context, {call})[0]);
    return answers;
}

using Take = std::function<void(const Call &, const Json &)>;

// How many structs or numbers a call has room for: the answer grows with it.
std::size_t weight_of(const Call &call) {
    std::size_t weight = 0;
    for (const Json &parameter : call.parameters) weight += parameter.is_array() ? parameter.size() : 0;
    return weight;
}

void make(Context &context, const std::vector<Call> &calls, const Take &take) {
    Progress progress("calls", calls.size());
    for (std::size_t begin = 0; begin < calls.size();) {
        std::vector<Call> part;
        for (std::size_t weight = 0; begin < calls.size() && part.size() < calls_in_a_request; ++begin) {
            weight += weight_of(calls[begin]);
            if (!part.empty() && weight > heaviest_request) break;
            part.push_back(calls[begin]);
        }
        const std::vector<Json> got = multicall(context, part);
        for (std::size_t i = 0; i < got.size(); ++i) take(part[i], got[i]);
        progress.reached(begin);
    }
}

using Keep = std::function<void(const std::string &key, const Reading &reading)>;

class Survey {
  public:
    Survey(Context &context, const SurveyOptions &options, Keep keep)
        : context_(context), dictionary_(context.dictionary()), options_(options), keep_(std::move(keep)) {
        if (!options.ports.empty()) ports_ = numbers_of("--ports", options.ports, 1);
        if (!options.registers.empty()) registers_ = numbers_of("--registers", options.registers, 4);
        for (const std::string &name : dictionary_.names(Dictionary::methods)) {
            const Method method = dictionary_.method_or_throw(name);
            if (!method.is_described() || !method.only_reads(!registers_.empty()) || !has_output(method)) continue;
            for (const Parameter &parameter : method.parameters)
                if (!parameter.said.length.filled.empty()) add_kinds(*context.types().parameter(parameter));
            methods_.push_back(method);
        }
        if (!options.only.empty()) keep_what_is_needed();
    }

    void ask() {
        for (int round = 0; round < most_rounds; ++round) {
            std::vector<Call> calls;
            for (const Method &method : methods_) add_calls(method, calls);
            if (calls.empty()) break;
            const Take take_it = [&](const Call &call, const Json &answer) { take(call, answer); };
            make(context_, calls, take_it);
            make(context_, std::exchange(longer_, {}), take_it);
        }
    }

  private:
    bool is_wanted(const Method &method) const {
        const std::vector<std::string> &only = options_.only;
        return only.empty() ? glob(options_.pattern, method.name)
                            : std::find(only.begin(), only.end(), method.name) != only.end();
    }

    static bool is_list(const Method &method) {
        return std::any_of(method.parameters.begin(), method.parameters.end(),
                           [](const Parameter &parameter) { return !parameter.said.length.filled.empty(); });
    }

    // Of the others the lists, if ids that they name are among the inputs.
    void keep_what_is_needed() {
        const auto takes_listed = [&](const Method &method) {
            return is_wanted(method) &&
                   std::any_of(method.parameters.begin(), method.parameters.end(), [&](const Parameter &parameter) {
                       const Meaning &meaning = parameter.said.meaning;
                       return parameter.said.direction == Direction::in && !meaning.id.empty() && !range_of(meaning);
                   });
        };
        const bool with_lists = std::any_of(methods_.begin(), methods_.end(), takes_listed);
        methods_.erase(std::remove_if(methods_.begin(), methods_.end(),
                                      [&](const Method &method) {
                                          return !is_wanted(method) && !(with_lists && is_list(method));
                                      }),
                       methods_.end());
    }

    // The values that an input is asked for. Nothing if they are not known; `is_tried` if they may not exist.
    struct Values {
        std::optional<Numbers> numbers;
        bool is_tried = false;
    };

    bool has_output(const Method &method) const {
        return std::any_of(method.parameters.begin(), method.parameters.end(), [&](const Parameter &parameter) {
            return parameter.said.direction == Direction::inout || is_output(method, parameter);
        });
    }

    // The kinds of things that a list names.
    void add_kinds(const Type &type) {
        if (!type.meaning.id.empty()) listed_.insert(type.meaning.id);
        if (type.element) add_kinds(*type.element);
        for (const Member &member : type.members) add_kinds(*member.type);
    }

    Values values_of(const Method &method, const Parameter &parameter) const {
        const Meaning &meaning = parameter.said.meaning;
        const std::string type = lower(parameter.type);
        if (parameter.is_pointer()) return {};
        if (const auto found = options_.fixed.find(method.name); found != options_.fixed.end())
            if (const auto value = found->second.find(parameter.name); value != found->second.end())
                return {Numbers{value->second}};
        if (!method.contract) {
            if (type.find("dev_id") != std::string::npos) return {options_.devices};
            if (type.find("port_id") == std::string::npos) return {};
            return {ports_.empty() ? numbers_of("--ports", "0-7", 1) : ports_};
        }
        if (parameter.name == method.contract->clears_if) return {Numbers{0}};
        if (meaning.id == "device") return {options_.devices};
        if (takes_register(method, parameter)) return {registers_};
        if (const auto range = range_of(meaning)) return {in_range(meaning, *range)};
        if (!meaning.id.empty()) return things(meaning.id);
        const Enum *values = meaning.is_bits ? nullptr : dictionary_.enumeration(meaning.enumeration);
        if (!values || values->values.size() > most_enumerators) return {};
        std::set<int64_t> numbers;
        for (const Enumerator &value : values->values) numbers.insert(value.number);
        return {Numbers(numbers.begin(), numbers.end())};
    }

    // The address: a word of which nothing more is said.
    static bool takes_register(const Method &method, const Parameter &parameter) {
        return method.contract && method.contract->effect == "reads registers" && !parameter.is_pointer() &&
               parameter.said.meaning.id.empty() && !parameter.said.meaning.range && parameter.base == "unsigned int";
    }

    // A range that is small enough, of the argument or of its kind.
    std::optional<std::pair<int64_t, int64_t>> range_of(const Meaning &meaning) const {
        std::optional<std::pair<int64_t, int64_t>> range = meaning.range;
        const Json kind = meaning.id.empty() ? Json() : dictionary_.said(Dictionary::ids, meaning.id);
        if (!range && kind.is_object() && kind.contains("range")) range = {kind["range"][0], kind["range"][1]};
        // A hostile range may be as wide as all numbers.
        if (!range || range->first < 0 || range->second - range->first >= most_in_range) return {};
        return range;
    }

    Numbers in_range(const Meaning &meaning, std::pair<int64_t, int64_t> range) const {
        const bool is_port = meaning.id == "port" || meaning.id.ends_with("-port");
        Numbers numbers;
        for (int64_t value = range.first; value <= range.second; ++value)
            if (!is_port || ports_.empty() || std::find(ports_.begin(), ports_.end(), value) != ports_.end())
                numbers.push_back(value);
        return numbers;
    }

    Values things(const std::string &kind) const {
        const auto found = found_.find(kind);
        std::set<int64_t> numbers = found == found_.end() ? std::set<int64_t>() : found->second;
        const bool is_tried = !listed_.contains(kind);
        for (int64_t value = 0; is_tried && value < most_tried; ++value) numbers.insert(value);
        return {Numbers(numbers.begin(), numbers.end()), is_tried};
    }

    // The calls of a method that have not been made yet.
    void add_calls(const Method &method, std::vector<Call> &to) {
        std::vector<std::vector<std::string>> all{{}};
        bool is_tried = false, is_register = false;
        const Parameter *last = nullptr;
        for (const Parameter &parameter : method.parameters)
            if (!is_output(method, parameter) && !list_of_capacity(method, parameter)) last = &parameter;
        for (const Parameter &parameter : method.parameters) {
            if (is_output(method, parameter) || list_of_capacity(method, parameter)) continue;
            const Values values = values_of(method, parameter);
            is_tried = is_tried || values.is_tried;
            is_register = is_register || takes_register(method, parameter);
            const bool is_much = values.numbers && values.numbers->size() * all.size() > options_.most_calls;
            if (is_much && &parameter == last && all.size() > 1 && !is_register)
                return add_by_first(method, all, parameter.name, *values.numbers, to);
            if (!values.numbers || is_much)
                return context_.note(method.name + " is not asked: too much to ask for in " + parameter.name);
            std::vector<std::vector<std::string>> longer;
            for (const std::vector<std::string> &words : all)
                for (const int64_t value : *values.numbers) longer.push_back(with(words, parameter.name, value));
            all = std::move(longer);
        }
        if (method.contract && method.contract->effect == "reads registers" && !is_register) return;
        for (const std::vector<std::string> &words : all) add_call(method, words, is_tried, to);
    }

    static std::vector<std::string> with(std::vector<std::string> words, const std::string &name, int64_t value) {
        words.push_back(name + "=" + std::to_string(value));
        return words;
    }

    // Of what would be too much, the first of each range: where there is one, the others follow in the next round.
    void add_by_first(const Method &method, const std::vector<std::vector<std::string>> &all, const std::string &last,
                      const Numbers &numbers, std::vector<Call> &to) {
        std::size_t room = options_.most_calls;
        for (const std::vector<std::string> &words : all) {
            const std::string first = add_call(method, with(words, last, numbers[0]), true, to);
            if (!succeeded_.contains(first) || room < numbers.size()) continue;
            room -= numbers.size();
            for (const int64_t value : numbers) add_call(method, with(words, last, value), true, to);
        }
    }

    // Answers the key of the call; an empty one if there is no such call.
    std::string add_call(const Method &method, const std::vector<std::string> &words, bool is_tried,
                         std::vector<Call> &to) {
        ArgumentOptions options;
        options.force = true;
        try {
            const Call call{dictionary_.full_name(method.name),
                            build_arguments(dictionary_, context_.types(), method, words, options)};
            const std::string key = key_of(call);
            if (!made_.insert(key).second) return key;
            if (is_tried) tried_.insert(key);
            to.push_back(with_few_elements(method, words, call, options));
            return key;
        } catch (const UsageError &error) {
            context_.note(method.name + " is not asked: " + error.what());
            return "";
        }
    }

    // The call with little room in its list. What is known of it later goes by the whole one.
    Call with_few_elements(const Method &method, const std::vector<std::string> &words, const Call &whole,
                           ArgumentOptions options) {
        if (!is_list(method)) return whole;
        options.count = few_elements;
        const Call few{whole.method, build_arguments(dictionary_, context_.types(), method, words, options)};
        whole_[key_of(few)] = whole;
        return few;
    }

    bool is_full(const Method &method, const Json &answer) const {
        for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
            if (!method.parameters[i].said.length.filled.empty() && filled(method, i, answer).size() >= few_elements)
                return true;
        return false;
    }

    void take(const Call &made, const Json &answer) {
        const Method method = *dictionary_.method(made.method);
        const auto few = whole_.find(key_of(made));
        const Call call = few == whole_.end() ? made : few->second;
        if (few != whole_.end()) {
            whole_.erase(few);
            if (!is_fault(answer) && answer.is_array() && is_full(method, answer)) return longer_.push_back(call);
        }
        const std::string key = key_of(call);
        const bool success = !is_fault(answer) && is_success(dictionary_, method, result_of(answer));
        if (success) succeeded_.insert(key);
        if (success && answer.is_array())
            for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
                if (method.parameters[i].is_pointer())
                    find_things(*context_.types().parameter(method.parameters[i]), filled(method, i, answer));
        if (is_wanted(method) && (success || !tried_.contains(key))) keep_(key, {method, call, answer});
    }

    // The ids in an answer; of alternatives, in the one that is selected.
    void find_things(const Type &type, const Json &value) {
        if (value.is_array()) {
            for (const Json &item : value) find_things(type.element ? *type.element : type, item);
        } else if (value.is_number_integer() && !type.meaning.id.empty()) {
            std::set<int64_t> &found = found_[type.meaning.id];
            const int64_t id = as_declared(type, value.get<int64_t>());
            const auto &none = type.meaning.also;
            if (std::find(none.begin(), none.end(), id) == none.end() && found.size() < most_things) found.insert(id);
        }
        if (!value.is_object()) return;
        for (const Member &member : type.members) {
            if (!value.contains(member.name)) continue;
            const Json &inside = value[member.name];
            const Type &held = *member.type;
            if (held.kind == Type::overlay && value.contains(held.selector) && inside.is_object()) {
                const auto chosen = held.selected.find(value[held.selector].get<int64_t>());
                if (chosen != held.selected.end() && inside.contains(chosen->second))
                    find_things(*held.member(chosen->second)->type, inside[chosen->second]);
            } else {
                find_things(held, inside);
            }
        }
    }

    Context &context_;
    const Dictionary &dictionary_;
    const SurveyOptions &options_;
    Numbers ports_, registers_;
    std::vector<Method> methods_;
    std::set<std::string> listed_, made_, tried_, succeeded_;
    std::map<std::string, std::set<int64_t>> found_;
    std::map<std::string, Call> whole_;  // by what was asked with few elements
    std::vector<Call> longer_;           // lists that need more
    const Keep keep_;
};

}  // namespace

Json survey(Context &context, const SurveyOptions &options) {
    Json answers = Json::object();
    Survey(context, options, [&](const std::string &key, const Reading &reading) {
        answers[key] = entry_of(context, reading.call, reading.answer);
    }).ask();
    return answers;
}

std::vector<Reading> read_all(Context &context, const SurveyOptions &options) {
    std::vector<Reading> readings;
    Survey(context, options, [&](const std::string &, const Reading &reading) { readings.push_back(reading); }).ask();
    return readings;
}

Json take_answers(Context &context, const std::vector<Call> &calls) {
    Json answers = Json::object();
    make(context, calls,
         [&](const Call &call, const Json &answer) { answers[key_of(call)] = entry_of(context, call, answer); });
    return answers;
}

}  // namespace lmqctl
