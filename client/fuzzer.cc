// A round is about one family, so that calls that belong together meet; then comes a fresh chip and the next family.
#include "fuzzer.h"

#include <algorithm>

#include "answer.h"
#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

constexpr std::size_t calls_of_a_method = 25;  // of the round's family
constexpr std::size_t least_calls = 150, most_calls_of_a_round = 700;
constexpr int ends_enough = 3;               // after which a method is called no more
constexpr std::size_t looks_of_a_round = 6;  // at the memory of methods
constexpr std::size_t least_looked_at = 3;   // calls of a method
constexpr int looks_enough = 4;              // at a method

bool matches(const std::vector<std::string> &patterns, const std::string &name) {
    return std::any_of(patterns.begin(), patterns.end(), [&](const std::string &each) { return glob(each, name); });
}

// What takes away what others have made is called seldom.
bool takes_away(const std::string &name) {
    for (const std::string &word : split(name, '_'))
        for (const char *each : {"del", "delete", "clear", "remove", "flush"})
            if (word == each) return true;
    return false;
}

// Whether a call makes something that it answers the id of: it may keep memory for that.
bool gives_out_ids(Types &types, const Method &method) {
    const std::function<bool(const Type &)> has_id = [&](const Type &type) {
        return !type.meaning.id.empty() || (type.element && has_id(*type.element)) ||
               std::any_of(type.members.begin(), type.members.end(),
                           [&](const Member &member) { return has_id(*member.type); });
    };
    return method.contract->effect == "changes" &&
           std::any_of(method.parameters.begin(), method.parameters.end(), [&](const Parameter &parameter) {
               return parameter.said.direction != Direction::in && has_id(*types.parameter(parameter));
           });
}

}  // namespace

// What belongs to one round.
struct Fuzzer::Round {
    FreshHost host;
    Generator generator;
    std::vector<PlayedCall> played = {};
    std::vector<std::size_t> focus = {};
    struct Heap {
        std::size_t calls = 0, that_grew = 0;
        Call last = {};  // that grew
    };
    std::map<std::string, Heap> heaps = {};  // by method
    std::optional<int64_t> heap = {};
    const std::function<void(const Finding &)> *found = nullptr;
    bool is_over = false;
};

Fuzzer::Fuzzer(FreshHosts &hosts, FuzzOptions options, std::vector<Call> first)
    : hosts_(hosts), options_(std::move(options)), first_(std::move(first)) {
    choose_methods();
    if (methods_.empty()) throw UsageError("no method is left to be called");
}

void Fuzzer::choose_methods() {
    for (const std::string &name : hosts_.dictionary().names(Dictionary::methods)) {
        const Method method = hosts_.dictionary().method_or_throw(name);
        if (!method.is_described() || !method.contract) continue;
        const bool is_meant = options_.patterns.empty() || matches(options_.patterns, method.name);
        const bool is_dangerous = method.contract->effect == "resets" && !matches(options_.also, method.name);
        if (!is_meant) continue;
        if (is_dangerous || matches(options_.skip, method.name)) {
            left_out_.push_back(method.name);
            continue;
        }
        std::vector<std::size_t> &family = families_[method.contract->family];
        if (family.empty()) family_names_.push_back(method.contract->family);
        family.push_back(methods_.size());
        methods_.push_back(method);
    }
}

void Fuzzer::round(const std::function<void(const Finding &)> &found) {
    Random seeds(options_.seed ^ (uint64_t{rounds_} << 32));
    Round round{hosts_.next(), Generator(hosts_.dictionary(), hosts_.types(), seeds.next(), options_.hostile)};
    ++rounds_;
    round.found = &found;
    Random &random = round.generator.random();
    // All families come once, in an order of their own, before one comes again.
    if (turns_.empty()) turns_ = family_names_;
    const std::size_t turn = random.below(turns_.size());
    round.focus = families_[turns_[turn]];
    turns_.erase(turns_.begin() + static_cast<std::ptrdiff_t>(turn));
    const std::size_t calls = std::clamp(round.focus.size() * calls_of_a_method, least_calls, most_calls_of_a_round);
    for (const Call &call : first_)
        if (const auto method = hosts_.dictionary().method(hosts_.dictionary().bare_name(call.method)); method)
            make(round, *method, call.parameters);
    while (!round.is_over && round.played.size() < calls && !is_done()) {
        const Method &method = next_method(round);
        if (given_up_.contains(method.name)) {
            if (given_up_.size() == methods_.size()) throw Error(exit_driver, "all methods end or hang the driver");
            continue;
        }
        make_and_read(round, method);
    }
    if (!round.is_over) probe(round);
}

const Method &Fuzzer::next_method(Round &round) const {
    Random &random = round.generator.random();
    for (;;) {
        const bool is_focused = random.percent(85);
        const Method &method = methods_[is_focused ? random.one_of(round.focus) : random.below(methods_.size())];
        if (!takes_away(method.name) || random.percent(25)) return method;
    }
}

// A call, and often, behind one that sets, the one that reads.
void Fuzzer::make_and_read(Round &round, const Method &method) {
    ++made_up_;
    if (!make(round, method, round.generator.arguments(method))) return;
    ++succeeded_;
    reached_.insert(method.name);
    const PlayedCall set = round.played.back();
    Method getter;
    const std::optional<Json> reading = hosts_.checks().reading_of(method, set.call.parameters, getter);
    const bool is_read = options_.check || round.generator.random().percent(30);
    if (!reading || !is_read || round.is_over || given_up_.contains(getter.name)) return;
    if (!make(round, getter, *reading) || !options_.check) return;
    const auto lost =
        hosts_.checks().lost_setting(method, set.call.parameters, getter, round.played.back().outcome.answer);
    if (lost)
        report(round, {Condition::lost, method.name},
               getter.name + " does not give what " + method.name + " set: " + *lost);
}

// Makes a call. Whether it succeeded.
bool Fuzzer::make(Round &round, const Method &method, Json parameters) {
    ++made_;
    PlayedCall call{{hosts_.dictionary().full_name(method.name), std::move(parameters)}, {}};
    call.outcome = round.host.play(call.call);
    round.played.push_back(std::move(call));
    const Outcome &outcome = round.played.back().outcome;
    if (outcome.kind == Outcome::died || outcome.kind == Outcome::hung) {
        round.is_over = true;
        const bool has_died = outcome.kind == Outcome::died;
        const std::string words = has_died ? round.host.host->last_words() : "";
        report(round, {has_died ? Condition::died : Condition::hung, method.name},
               has_died ? "the worker ended over " + method.name + (words.empty() ? "" : ": it " + words)
                        : method.name + " hangs");
        if (++ends_[method.name] >= ends_enough || !has_died) give_up(method.name);
        return false;
    }
    note_memory(round, method);
    if (outcome.kind != Outcome::answered) return false;
    look(round, method);
    const bool success = is_success(hosts_.dictionary(), method, result_of(outcome.answer));
    if (success) round.generator.accept(method, round.played.back().call.parameters, outcome.answer);
    return success;
}

void Fuzzer::give_up(const std::string &method) { given_up_.insert(method); }

void Fuzzer::look(Round &round, const Method &method) {
    const PlayedCall &call = round.played.back();
    const Json &answer = call.outcome.answer;
    if (hosts_.checks().is_no_status(method, answer))
        report(round, {Condition::status, method.name, result_of(answer).get<int64_t>()},
               method.name + " answers " + result_of(answer).dump() + ", which is none of " + method.result);
    if (const auto changed = hosts_.checks().changed_input(method, call.call.parameters, answer))
        report(round, {Condition::changed, method.name}, method.name + " writes where it should not: " + *changed);
}

void Fuzzer::note_memory(Round &round, const Method &method) {
    const std::optional<int64_t> before = round.heap;
    round.heap = round.host.host->heap();
    if (!before || !round.heap || round.played.back().outcome.kind != Outcome::answered) return;
    Round::Heap &heap = round.heaps[method.name];
    ++heap.calls;
    if (!is_growth(*round.heap - *before)) return;
    ++heap.that_grew;
    heap.last = round.played.back().call;
}

// Looks at the memory of the methods over which it has grown most often, at the end of a round: what is done to the
// chip then is of no consequence, so that the seed alone decides over the calls.
void Fuzzer::probe(Round &round) {
    std::vector<std::pair<double, std::string>> suspects;
    for (const auto &[name, heap] : round.heaps) {
        const double share = static_cast<double>(heap.that_grew) / static_cast<double>(heap.calls);
        if (heap.calls >= least_looked_at && share >= 0.25 && probed_[name] < looks_enough &&
            !gives_out_ids(hosts_.types(), hosts_.dictionary().method_or_throw(name)))
            suspects.push_back({share, name});
    }
    std::sort(suspects.rbegin(), suspects.rend());
    if (suspects.size() > looks_of_a_round) suspects.resize(looks_of_a_round);
    for (const auto &[share, name] : suspects) {
        ++probed_[name];
        const Growth grown = growth(round.host, round.heaps[name].last);
        probes_ += grown.calls;
        if (!grown.bytes) continue;
        round.played.push_back({round.heaps[name].last, {}});
        report(round, {Condition::grows, name},
               "the worker grows by some " + std::to_string(grown.bytes) + " bytes with each " + name);
        round.played.pop_back();
    }
}

void Fuzzer::report(Round &round, Condition condition, const std::string &text) {
    if (told_.insert(condition.text()).second)
        (*round.found)({std::move(condition), text, round.played, made_ + probes_});
}

}  // namespace lmqctl
