// Two states brought together: chips give out other ids for the same things, and files other names.
#include <algorithm>
#include <optional>

#include "state.h"
#include "symbol.h"

namespace lmqctl {

namespace {

class Alignment {
  public:
    Alignment(const Makers &makers, State &state, State &other) : makers_(makers), state_(state), other_(other) {
        for (const Thing &thing : state.things) taken_.insert(thing.name);
    }

    std::map<std::size_t, std::size_t> same() {
        for (const Method &maker : makers_.all()) {
            const std::vector<std::size_t> ours = of(state_, maker), theirs = of(other_, maker);
            for (const std::size_t i : theirs) {
                Thing &thing = other_.things[i];
                thing.arguments = renamed(thing.arguments, new_names_);
            }
            find_pairs(ours, theirs,
                       [](const Thing &one, const Thing &another) { return one.arguments == another.arguments; });
            if (maker.contract->changed_by)
                find_pairs(ours, theirs, [&](const Thing &one, const Thing &another) {
                    return could_become(*maker.contract->changed_by, one, another);
                });
            name(theirs);
            number(ours, theirs);
        }
        Settings settings;
        for (const auto &[key, values] : other_.settings) {
            std::vector<Json> ids;
            for (const Json &id : key.second) ids.push_back(renamed(id, new_names_));
            settings[{key.first, ids}] = renamed(values, new_names_);
        }
        other_.settings = std::move(settings);
        return pairs_;
    }

  private:
    static std::vector<std::size_t> of(const State &state, const Method &maker) {
        std::vector<std::size_t> places;
        for (std::size_t i = 0; i < state.things.size(); ++i)
            if (state.things[i].maker == maker.name) places.push_back(i);
        return places;
    }

    // What the change does not take, and its keys, have to be the same.
    static bool could_become(const Way &change, const Thing &one, const Thing &another) {
        for (const auto &[name, value] : one.arguments.items()) {
            const bool is_key = std::find(change.keys.begin(), change.keys.end(), name) != change.keys.end();
            const bool is_taken = std::any_of(change.arguments.begin(), change.arguments.end(),
                                              [&name = name](const Json &source) { return source == name; });
            if ((is_key || !is_taken) && another.arguments.value(name, Json()) != value) return false;
        }
        return true;
    }

    template <class Fits>
    void find_pairs(const std::vector<std::size_t> &ours, const std::vector<std::size_t> &theirs, Fits fits) {
        for (const std::size_t one : ours)
            for (const std::size_t another : theirs) {
                if (pairs_.contains(one) || paired_.contains(another)) continue;
                if (!fits(state_.things[one], other_.things[another])) continue;
                pairs_[one] = another;
                paired_[another] = one;
            }
    }

    void name(const std::vector<std::size_t> &theirs) {
        for (const std::size_t i : theirs) {
            Thing &thing = other_.things[i];
            if (thing.name.empty()) continue;
            const auto pair = paired_.find(i);
            std::string now = pair == paired_.end() ? thing.name : state_.things[pair->second].name;
            if (now.empty()) now = thing.name;  // a file need not name what nothing refers to
            for (int next = 2; pair == paired_.end() && taken_.contains(now); ++next)
                now = thing.name + "_" + std::to_string(next);
            if (pair != paired_.end() && state_.things[pair->second].name.empty())
                state_.things[pair->second].name = now;
            taken_.insert(now);
            new_names_[thing.name] = now;
            thing.name = now;
        }
    }

    // Of what is called the same: those that stand for each other have the same number, all others one of their own.
    void number(const std::vector<std::size_t> &ours, const std::vector<std::size_t> &theirs) {
        std::map<std::string, std::size_t> next;
        for (const std::size_t i : ours) {
            Thing &thing = state_.things[i];
            thing.number = next[thing_call(makers_, thing)]++;
        }
        for (const std::size_t i : theirs) {
            Thing &thing = other_.things[i];
            const auto pair = paired_.find(i);
            thing.number =
                pair == paired_.end() ? next[thing_call(makers_, thing)]++ : state_.things[pair->second].number;
        }
    }

    const Makers &makers_;
    State &state_, &other_;
    std::map<std::size_t, std::size_t> pairs_, paired_;  // from ours to theirs, and back
    std::map<std::string, std::string> new_names_;
    std::set<std::string> taken_;
};

}  // namespace

std::map<std::size_t, std::size_t> align(const Makers &makers, State &state, State &other) {
    return Alignment(makers, state, other).same();
}

}  // namespace lmqctl
