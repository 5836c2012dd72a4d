// Delta debugging: first over the calls, then over what is in them. Each try is made on a fresh chip.
#include "shrinker.h"

#include <algorithm>

#include "id_map.h"

namespace lmqctl {

// Makes the calls up to the one that fulfils the condition. Ids that this chip gives out otherwise are translated.
std::optional<Shrinker::Calls> Shrinker::attempt(const Calls &calls) {
    ++tries_;
    const FreshHost host = hosts_.next();
    IdMap ids(hosts_.dictionary(), hosts_.types());
    Calls played;
    std::size_t last_of_method = 0;
    for (std::size_t i = 0; i < calls.size(); ++i)
        if (hosts_.dictionary().bare_name(calls[i].call.method) == condition_.method) last_of_method = i;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const PlayedCall &each = calls[i];
        const std::string name = hosts_.dictionary().bare_name(each.call.method);
        const Method method = hosts_.dictionary().method_or_throw(name);
        PlayedCall now{{each.call.method, ids.there(method, each.call.parameters)}, {}};
        now.outcome = host.play(now.call);
        if (now.outcome.kind == Outcome::answered && each.outcome.kind == Outcome::answered)
            ids.learn(method, each.outcome.answer, now.outcome.answer);
        played.push_back(std::move(now));
        if (is_fulfilled(host, played, i == last_of_method)) return played;
        const Outcome::Kind kind = played.back().outcome.kind;
        if (kind == Outcome::died || kind == Outcome::hung) return {};
    }
    return {};
}

bool Shrinker::is_fulfilled(const FreshHost &host, const Calls &played, bool is_last_of_method) const {
    if (condition_.kind != Condition::grows) return condition_.holds(hosts_, played);
    return is_last_of_method && hosts_.dictionary().bare_name(played.back().call.method) == condition_.method &&
           growth(host, played.back().call).bytes > 0;
}

std::optional<std::vector<PlayedCall>> Shrinker::shrink(const std::vector<PlayedCall> &calls) {
    std::optional<Calls> first = attempt(calls);
    if (!first) return {};
    best_ = std::move(*first);
    keep_family();
    drop_calls();
    simplify_calls();
    // What has become simpler may have made a call superfluous.
    drop_calls();
    return best_;
}

bool Shrinker::drop_chunk(std::size_t begin, std::size_t count) {
    Calls left(best_.begin(), best_.begin() + static_cast<std::ptrdiff_t>(begin));
    left.insert(left.end(), best_.begin() + static_cast<std::ptrdiff_t>(std::min(best_.size(), begin + count)),
                best_.end());
    if (left.empty()) return false;
    std::optional<Calls> played = attempt(left);
    if (!played) return false;
    best_ = std::move(*played);
    say_(std::to_string(best_.size()) + (best_.size() == 1 ? " call" : " calls") + " left");
    return true;
}

// The first call, which brings the chip up, and those of the family in which it goes wrong: most of what is left out so
// is left out for good.
void Shrinker::keep_family() {
    const auto family = [&](const PlayedCall &each) {
        const auto method = hosts_.dictionary().method(hosts_.dictionary().bare_name(each.call.method));
        return method && method->contract ? method->contract->family : "";
    };
    const std::string wanted = family(best_.back());
    Calls left;
    for (const PlayedCall &each : best_)
        if (left.empty() || family(each) == wanted) left.push_back(each);
    if (left.size() == best_.size()) return;
    if (std::optional<Calls> played = attempt(left)) best_ = std::move(*played);
}

// Chunks of half of all, of a quarter and so on. Those near the end are kept longest: they are the likeliest to matter.
void Shrinker::drop_calls() {
    for (std::size_t size = std::max<std::size_t>(best_.size() / 2, 1);;) {
        bool any = false;
        for (std::size_t begin = 0; begin < best_.size() && best_.size() > 1;) {
            if (drop_chunk(begin, size))
                any = true;
            else
                begin += size;
        }
        if (size == 1 && !any) return;
        if (!any || size > 1) size = std::max<std::size_t>(std::min(size / 2, best_.size() / 2), 1);
    }
}

void Shrinker::simplify_calls() {
    for (std::size_t call = 0; call < best_.size(); ++call)
        for (std::size_t i = 0; i < best_[call].call.parameters.size(); ++i)
            simplify(call, Json::json_pointer("/" + std::to_string(i)), true);
}

bool Shrinker::try_value(std::size_t call, const Json::json_pointer &place, const Json &value) {
    Calls changed = best_;
    changed[call].call.parameters[place] = value;
    std::optional<Calls> played = attempt(changed);
    // A run that is fulfilled earlier has fewer calls, and other places.
    if (!played || played->size() != best_.size()) return false;
    best_ = std::move(*played);
    return true;
}

bool Shrinker::try_without(std::size_t call, const Json::json_pointer &place, const std::string &key) {
    Json without = best_[call].call.parameters[place];
    without.erase(key);
    return try_value(call, place, without);
}

// Toward nothing: no member, no element, zero.
void Shrinker::simplify(std::size_t call, const Json::json_pointer &place, bool is_argument) {
    const Json value = best_[call].call.parameters[place];
    if (value.is_object()) {
        if (value.empty() || try_value(call, place, Json::object())) return;
        for (const auto &[key, inside] : value.items())
            if (!try_without(call, place, key)) simplify(call, place / key, false);
    } else if (value.is_array()) {
        // How many elements an argument has, its count says; those behind are worth a try.
        while (best_[call].call.parameters[place].size() > (is_argument ? 1 : 0)) {
            Json shorter = best_[call].call.parameters[place];
            shorter.erase(shorter.size() - 1);
            if (!try_value(call, place, shorter)) break;
        }
        for (std::size_t i = 0; i < best_[call].call.parameters[place].size(); ++i) simplify(call, place / i, false);
    } else if (value.is_number_integer() && value != 0) {
        if (!try_value(call, place, 0) && value != 1) try_value(call, place, 1);
    } else if (value.is_string() && value != "") {
        try_value(call, place, "");
    }
}

}  // namespace lmqctl
