// Places of the contract followed into answers, through each element of the lists on their way.
#include "read_back.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "answer.h"
#include "arguments.h"

namespace lmqctl {

namespace {

constexpr std::size_t longest_walk = 100000;  // calls

// A step of a place: to a member, into each element, or through the bits of a number.
struct PlaceStep {
    enum Kind { member, element, bit } kind = member;
    std::string name;  // the member's, or the counter's
    std::string key;   // the place up to here, without counters
};

struct AnswerPlace {
    std::vector<PlaceStep> steps;
    bool is_number = false;  // not what stands there is meant, but which element or bit it is
};

AnswerPlace place_of(const std::string &text) {
    AnswerPlace place;
    std::size_t i = 0;
    place.is_number = text[i] == '#';
    if (place.is_number) ++i;
    std::string key;
    while (i < text.size()) {
        PlaceStep step;
        if (text[i] == '[') {
            const std::size_t end = std::min(text.find(']', i), text.size());
            step = {PlaceStep::element, text.substr(i + 1, end - i - 1), key += "[]"};
            i = end + 1;
        } else if (text[i] == '{') {
            step = {PlaceStep::bit, "", key += "{}"};
            i += 2;
        } else {
            if (text[i] == '.') ++i;
            const std::size_t end = std::min(text.find_first_of(".[{", i), text.size());
            const std::string name = text.substr(i, end - i);
            step = {PlaceStep::member, name, key += (key.empty() ? "" : ".") + name};
            i = std::max(end, i + 1);
        }
        place.steps.push_back(step);
    }
    return place;
}

class Found {
  public:
    Found(const Method &maker, const Reading &reading) : maker_(maker), reading_(reading) {
        const ReadBack &read_back = *maker.contract->read_back;
        note_places(read_back.arguments);
        if (!read_back.condition.is_null()) note_places(read_back.condition[0]);
        std::stable_sort(ways_.begin(), ways_.end(),
                         [](const auto &one, const auto &other) { return one.size() < other.size(); });
    }

    std::vector<Json> all() {
        bind(0);
        return std::move(found_);
    }

  private:
    // The steps up to each list that is gone through, each list once.
    void note_places(const Json &source) {
        if (source.is_object())
            for (const Json &inside : source) note_places(inside);
        if (!source.is_string()) return;
        const AnswerPlace place = place_of(source);
        for (std::size_t i = 0; i < place.steps.size(); ++i)
            if (place.steps[i].kind != PlaceStep::member && noted_.insert(place.steps[i].key).second)
                ways_.emplace_back(place.steps.begin(), place.steps.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    }

    const Json *root(const std::string &name, bool is_list) {
        const Method &method = reading_.method;
        for (std::size_t i = 0; i < method.parameters.size() && i + 1 < reading_.answer.size(); ++i) {
            const Parameter &parameter = method.parameters[i];
            if (parameter.name != name) continue;
            const auto [known, is_new] = roots_.try_emplace(name);
            if (is_new) known->second = filled(method, i, reading_.answer);
            const Json &value = known->second;
            const bool is_one = !is_list && parameter.said.length.count == 1 && parameter.said.length.filled.empty();
            return is_one && value.is_array() && value.size() == 1 ? &value[0] : &value;
        }
        return nullptr;
    }

    // What `count` steps lead to, and what is around it; nullptr if they lead nowhere.
    const Json *follow(const std::vector<PlaceStep> &steps, std::size_t count, const Json **around = nullptr) {
        if (steps.empty() || count == 0) return nullptr;
        const Json *value = root(steps[0].name, steps.size() > 1 && steps[1].kind == PlaceStep::element);
        for (std::size_t i = 1; value && i < count; ++i) {
            if (steps[i].kind == PlaceStep::member) {
                if (around) *around = value;
                value = value->is_object() && value->contains(steps[i].name) ? &(*value)[steps[i].name] : nullptr;
            } else {
                const std::size_t number = bound_.at(steps[i].key);
                value = value->is_array() && number < value->size() ? &(*value)[number] : nullptr;
            }
        }
        return value;
    }

    void bind(std::size_t depth) {
        if (depth == ways_.size()) return take();
        const std::vector<PlaceStep> &way = ways_[depth];
        const PlaceStep &last = way.back();
        const Json *around = nullptr, *list = follow(way, way.size() - 1, &around);
        if (!list) return;
        if (last.kind == PlaceStep::bit) {
            const uint64_t bits = list->is_number_integer() ? static_cast<uint64_t>(list->get<int64_t>()) : 0;
            for (std::size_t bit = 0; bit < 32; ++bit)
                if (bits >> bit & 1) bind_to(last.key, bit, depth);
            return;
        }
        std::size_t size = list->is_array() ? list->size() : 0;
        if (around && !last.name.empty() && around->is_object() && around->contains(last.name) &&
            (*around)[last.name].is_number_integer())
            size = std::min(size, static_cast<std::size_t>(std::max<int64_t>(0, (*around)[last.name].get<int64_t>())));
        for (std::size_t i = 0; i < size; ++i) bind_to(last.key, i, depth);
    }

    void bind_to(const std::string &key, std::size_t number, std::size_t depth) {
        bound_[key] = number;
        bind(depth + 1);
    }

    std::optional<Json> value_of(const Json &source) {
        if (source.is_object()) {
            Json value = Json::object();
            for (const auto &[name, inside] : source.items()) {
                std::optional<Json> one = value_of(inside);
                if (!one) return {};
                value[name] = std::move(*one);
            }
            return value;
        }
        if (!source.is_string()) return source;
        const AnswerPlace place = place_of(source);
        if (place.is_number) return Json(bound_.at(place.steps.back().key));
        const Json *value = follow(place.steps, place.steps.size());
        return value ? std::optional<Json>(*value) : std::nullopt;
    }

    bool holds(const Json &condition) {
        if (condition.is_null()) return true;
        const std::optional<Json> value = value_of(condition[0]);
        if (!value || !value->is_number_integer()) return false;
        // The wire's numbers are signed, whatever they stand for.
        const bool is_same =
            static_cast<uint32_t>(value->get<int64_t>()) == static_cast<uint32_t>(condition[2].get<int64_t>());
        return is_same == (condition[1] == "=");
    }

    void take() {
        const ReadBack &read_back = *maker_.contract->read_back;
        if (!holds(read_back.condition)) return;
        Json arguments = Json::object();
        for (const Parameter &parameter : maker_.parameters) {
            if (!read_back.arguments.contains(parameter.name)) continue;
            std::optional<Json> value = value_of(read_back.arguments[parameter.name]);
            if (!value) return;
            // A list of the maker takes one thing at a time.
            const bool is_list = !parameter.said.length.argument.empty();
            arguments[parameter.name] = is_list ? Json::array({std::move(*value)}) : std::move(*value);
        }
        found_.push_back(std::move(arguments));
    }

    const Method &maker_;
    const Reading &reading_;
    std::set<std::string> noted_;
    std::vector<std::vector<PlaceStep>> ways_;
    std::map<std::string, Json> roots_;
    std::map<std::string, std::size_t> bound_;
    std::vector<Json> found_;
};

}  // namespace

std::vector<Json> made_in(const Method &maker, const Reading &reading) { return Found(maker, reading).all(); }

std::vector<Reading> walk(Context &context, const ReadBack &read_back) {
    const Dictionary &dictionary = context.dictionary();
    const Method method = dictionary.method_or_throw(read_back.by);
    std::map<std::string, int64_t> at;
    for (const auto &[argument, output] : read_back.walk) at[argument] = 0;
    std::vector<Reading> readings;
    while (readings.size() < longest_walk) {
        std::vector<std::string> words;
        for (const Parameter &parameter : method.parameters) {
            if (is_output(method, parameter)) continue;
            const auto fixed = read_back.with.find(parameter.name);
            const auto place = at.find(parameter.name);
            const int64_t value = fixed != read_back.with.end() ? fixed->second : place != at.end() ? place->second : 0;
            words.push_back(parameter.name + "=" + std::to_string(value));
        }
        ArgumentOptions options;
        options.force = true;
        const Call call{dictionary.full_name(method.name),
                        build_arguments(dictionary, context.types(), method, words, options)};
        const Json answer = context.session().multicall({call})[0];
        if (is_fault(answer) || !is_success(dictionary, method, result_of(answer))) break;
        bool goes_on = false;
        for (const auto &[argument, output] : read_back.walk)
            for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
                if (method.parameters[i].name != output) continue;
                const Json &value =
                    answer[i + 1].is_array() && !answer[i + 1].empty() ? answer[i + 1][0] : answer[i + 1];
                if (!value.is_number_integer() || value == at[argument]) continue;
                at[argument] = value.get<int64_t>();
                goes_on = true;
            }
        readings.push_back({method, call, answer});
        if (!goes_on) break;
    }
    return readings;
}

}  // namespace lmqctl
