// The comparison goes through both descriptions by name. The rules: what clients may name does not go away; what they
// send is taken as before; what they are answered has the form and the meaning that it had. More may come.
#include "interface_diff.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

namespace lmqctl {

namespace {

// Whether a change of an attribute breaks clients; what is not there is null.
using Rule = bool (*)(const Json &was, const Json &is);

bool always(const Json &, const Json &) { return true; }
bool never(const Json &, const Json &) { return false; }

// To say what was not said before takes nothing away.
bool unless_new(const Json &was, const Json &) { return !was.is_null(); }

bool if_fewer(const Json &was, const Json &is) { return !was.is_number() || !is.is_number() || is < was; }

bool if_one_is_gone(const Json &was, const Json &is) {
    return !was.is_array() || !is.is_array() || std::any_of(was.begin(), was.end(), [&](const Json &each) {
        return std::find(is.begin(), is.end(), each) == is.end();
    });
}

// A driver that also writes what it reads answers more than before.
bool unless_written_too(const Json &was, const Json &is) { return was != "in" || is != "inout"; }

// A client that may only read goes by it.
bool if_less_harmless(const Json &was, const Json &is) {
    const char *const effects[] = {"reads", "reads registers", "reads and clears", "changes", "resets"};
    const auto before = std::find(std::begin(effects), std::end(effects), was);
    const auto after = std::find(std::begin(effects), std::end(effects), is);
    return after == std::end(effects) || after > before;
}

struct Attribute {
    const char *name;
    Rule breaks;
};
const Attribute attributes[] = {
    {"direction", unless_written_too},
    {"effect", if_less_harmless},
    {"clears_if", always},
    {"family", never},
    {"pointer", always},
    {"length", always},
    {"times", always},
    {"length_if_zero", always},
    {"filled", always},
    {"count", if_fewer},
    {"bits", if_fewer},
    {"kind", always},
    {"flag", always},
    {"mask", always},
    {"by", always},
    {"if", if_one_is_gone},
    {"overlaid", always},
    {"value", always},
    {"enum", unless_new},
    {"bits_of", unless_new},
    {"unit", unless_new},
    {"id", unless_new},
    {"ipv4", unless_new},
    {"ipv6", unless_new},
    {"mac", unless_new},
    {"text", unless_new},
    {"bitmap", unless_new},
    {"counter", unless_new},
};

bool is_any(const std::string &word, std::initializer_list<const char *> of) {
    return std::find(of.begin(), of.end(), word) != of.end();
}

bool is_text(const std::string &key) { return is_any(key, {"brief", "documentation", "result"}); }

// What has a comparison of its own; the bound is the name of what is counted.
bool is_compared_elsewhere(const std::string &key) {
    return is_any(key, {"name", "bound", "type", "returns", "range", "or", "arguments", "members", "values"});
}

Rule rule_of(const std::string &key) {
    for (const Attribute &each : attributes)
        if (key == each.name) return each.breaks;
    return never;
}

Json value_of(const Json &entry, const std::string &key) { return entry.value(key, Json()); }

// The numbers that a place takes: a range and what stands for none or all; null for any.
Json allowed(const Json &entry) {
    if (!entry.contains("range")) return {};
    Json numbers = Json::array({entry["range"]});
    if (entry.contains("or"))
        for (const Json &number : entry["or"]) numbers.push_back(Json::array({number, number}));
    return numbers;
}

bool takes_less(const Json &was, const Json &is) {
    if (is.is_null()) return false;
    if (was.is_null()) return true;
    return !std::all_of(was.begin(), was.end(), [&](const Json &old) {
        return std::any_of(is.begin(), is.end(),
                           [&](const Json &now) { return now.at(0) <= old.at(0) && now.at(1) >= old.at(1); });
    });
}

// The integers of C that travel, with what they hold.
struct Integer {
    const char *name;
    int bits;
    bool is_signed;
};
const Integer integers[] = {
    {"char", 8, true},           {"signed char", 8, true},      {"unsigned char", 8, false},
    {"short", 16, true},         {"unsigned short", 16, false}, {"int", 32, true},
    {"unsigned int", 32, false}, {"long long", 64, true},       {"unsigned long long", 64, false}};

// What stands behind the typedefs of an interface; an enum travels as an int.
std::string base_of(const Json &interface, std::string type) {
    for (int steps = 0; steps < 32 && interface.at("typedefs").contains(type); ++steps)
        type = interface["typedefs"][type].at("type").get<std::string>();
    return interface.at("enums").contains(type) ? "int" : type;
}

// Whether each value of the one has the same form as the other, and fits.
bool fits(const std::string &was, const std::string &is) {
    const auto named = [](const std::string &name) {
        return std::find_if(std::begin(integers), std::end(integers),
                            [&](const Integer &each) { return name == each.name; });
    };
    const Integer *const before = named(was), *const after = named(is);
    if (before == std::end(integers) || after == std::end(integers)) return false;
    if ((before->bits == 64) != (after->bits == 64)) return false;
    return before->is_signed == after->is_signed ? after->bits >= before->bits
                                                 : after->is_signed && after->bits > before->bits;
}

using Names = std::vector<std::string>;

Names names_of(const Json &list) {
    Names names;
    for (const Json &entry : list) names.push_back(entry.at("name").get<std::string>());
    return names;
}

class Comparison {
  public:
    Comparison(const Json &before, const Json &after) : before_(before), after_(after) {}

    InterfaceDiff made() {
        each_of("methods", "method", [&](const Json &was, const Json &is) { method(was, is); });
        each_of("structs", "struct", [&](const Json &was, const Json &is) {
            shared(was, is);
            members("member ", was.at("members"), is.at("members"));
        });
        each_of("enums", "enum", [&](const Json &was, const Json &is) {
            shared(was, is);
            values(was.at("values"), is.at("values"));
        });
        each_of("typedefs", "typedef", [&](const Json &was, const Json &is) { entry(was, is); });
        each_of("ids", "id", [&](const Json &was, const Json &is) { shared(was, is); });
        return std::move(diff_);
    }

  private:
    void add(const std::string &what, const Json &was, const Json &is, bool breaks) {
        diff_.changes.push_back({kind_, name_, place_, what, was, is, breaks});
    }
    void removed() { add("removed", nullptr, nullptr, true); }
    void added() { add("added", nullptr, nullptr, false); }

    template <class Compare>
    void each_of(const char *section, const char *kind, Compare compare) {
        const Json &was = before_.at(section), &is = after_.at(section);
        kind_ = kind;
        place_.clear();
        for (const auto &[name, old] : was.items()) {
            name_ = name;
            place_.clear();
            if (is.contains(name))
                compare(old, is[name]);
            else
                removed();
        }
        place_.clear();
        for (const auto &[name, now] : is.items()) {
            name_ = name;
            if (!was.contains(name)) added();
        }
    }

    // The attributes that entries of all kinds have.
    void shared(const Json &was, const Json &is) {
        const auto compare = [&](const std::string &key) {
            const Json old = value_of(was, key), now = value_of(is, key);
            if (is_compared_elsewhere(key) || old == now) return;
            if (!is_text(key))
                add(key, old, now, rule_of(key)(old, now));
            else if (!old.is_null() && !now.is_null())  // the released interface has none
                ++diff_.texts;
        };
        for (const auto &[key, value] : was.items()) compare(key);
        for (const auto &[key, value] : is.items())
            if (!was.contains(key)) compare(key);
        const Json old = allowed(was), now = allowed(is);
        if (old != now) add("range", old, now, takes_less(old, now));
    }

    void type(const std::string &what, const std::string &was, const std::string &is) {
        const std::string old = base_of(before_, was), now = base_of(after_, is);
        if (was == is && old == now) return;
        const auto shown = [](const std::string &type, const std::string &base) {
            return type == base ? type : type + " (" + base + ")";
        };
        add(what, shown(was, old), shown(is, now), old != now && !fits(old, now));
    }

    // An argument, a member or a typedef.
    void entry(const Json &was, const Json &is) {
        type("type", was.at("type"), is.at("type"));
        shared(was, is);
        if (was.contains("members") && is.contains("members")) members(place_ + ".", was["members"], is["members"]);
    }

    void method(const Json &was, const Json &is) {
        shared(was, is);
        type("result", was.at("returns"), is.at("returns"));
        const Json &old = was.at("arguments"), &now = is.at("arguments");
        if (names_of(old) != names_of(now)) add("arguments", names_of(old), names_of(now), true);
        for (const Json &argument : old) {
            const auto same = find(now, argument.at("name"));
            place_ = "argument " + argument["name"].get<std::string>();
            if (same) entry(argument, *same);
        }
    }

    static std::optional<Json> find(const Json &list, const std::string &name) {
        for (const Json &entry : list)
            if (entry.at("name") == name) return entry;
        return {};
    }

    // Their order is no matter of the wire, but of memory.
    void members(const std::string &before, const Json &was, const Json &is) {
        const std::string outside = place_;
        Names kept, met;
        for (const Json &member : was) {
            const std::string name = member.at("name");
            place_ = before + name;
            if (const auto same = find(is, name)) {
                kept.push_back(name);
                entry(member, *same);
            } else {
                removed();
            }
        }
        for (const Json &member : is) {
            const std::string name = member.at("name");
            place_ = before + name;
            if (find(was, name))
                met.push_back(name);
            else
                added();
        }
        place_ = outside;
        if (kept != met) add("order of members", kept, met, false);
    }

    void values(const Json &was, const Json &is) {
        for (const auto &[name, value] : was.items()) {
            place_ = name;
            if (is.contains(name))
                shared(value, is[name]);
            else
                removed();
        }
        for (const auto &[name, value] : is.items()) {
            place_ = name;
            if (!was.contains(name)) added();
        }
    }

    const Json &before_, &after_;
    std::string kind_, name_, place_;
    InterfaceDiff diff_;
};

}  // namespace

InterfaceDiff compare_interfaces(const Json &before, const Json &after) { return Comparison(before, after).made(); }

}  // namespace lmqctl
