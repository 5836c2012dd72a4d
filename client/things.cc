// Things by the contract: in which order their makers come, what counts of their values, and the names of their ids.
#include "things.h"

#include <algorithm>
#include <tuple>

#include "answer.h"
#include "input.h"
#include "leaves.h"
#include "read_back.h"
#include "scalar_text.h"
#include "symbol.h"

namespace lmqctl {

namespace {

void add_id_kinds(const Type &type, std::set<std::string> &to) {
    if (!type.meaning.id.empty()) to.insert(type.meaning.id);
    if (type.element) add_id_kinds(*type.element, to);
    for (const Member &member : type.members) add_id_kinds(*member.type, to);
}

// The flags that are set, as one object.
Json set_flags_of(const Type &mask, const Json &value) {
    const Type &flags = bits_of(mask);
    const Json &held = mask.kind == Type::mask && value.is_object() && value.contains(mask.members[0].name)
                           ? value[mask.members[0].name]
                           : value;
    Json set = Json::object();
    for (const Member &flag : flags.members)
        if (held.is_object() && held.contains(flag.name) && !is_zero(held[flag.name])) set[flag.name] = 1;
    return set;
}

// Whether each flag is that of a member by its name: then the members that are there say which flags are set.
bool follows_from_members(const Type &structure, const Type &mask) {
    const Type &flags = bits_of(mask);
    return std::all_of(flags.members.begin(), flags.members.end(), [&](const Member &flag) {
        return flag.name.starts_with("reserved") ||
               std::any_of(structure.members.begin(), structure.members.end(),
                           [&](const Member &member) { return flag_of(flags, member.name) == &flag; });
    });
}

std::set<std::string> input_kinds(Context &context, const Method &method) {
    std::set<std::string> kinds;
    for (const Parameter &parameter : method.parameters)
        if (parameter.said.direction == Direction::in) add_id_kinds(*context.types().parameter(parameter), kinds);
    return kinds;
}

class AsMade {
  public:
    explicit AsMade(Context &context) : dictionary_(context.dictionary()) {}

    Json value(const Type &type, const Json &value) const {
        if (const std::string address = address_to_text(type, value); !address.empty()) return address;
        if (type.kind == Type::mask && value.is_object())
            return Json{{type.members[0].name, set_flags_of(type, value)}};
        if (type.kind == Type::flags && value.is_object()) return set_flags_of(type, value);
        if (value.is_object()) return members(type, value);
        if (!value.is_array()) return plain(type, value, &dictionary_);
        Json kept = Json::array();
        for (const Json &inside : value) kept.push_back(this->value(type.element ? *type.element : type, inside));
        return kept;
    }

  private:
    Json members(const Type &type, const Json &value) const {
        Json kept = Json::object();
        for (const Member &member : type.members) {
            if (!value.contains(member.name)) continue;
            const Json &inside = value[member.name];
            if (is_valid_mask(type, member)) {
                if (is_written_out(type, value, member)) kept[member.name] = this->value(*member.type, inside);
                continue;
            }
            if (!counts(type, value, member)) continue;
            const Member *chosen = member.type->kind == Type::overlay ? selected(*member.type, value) : nullptr;
            if (chosen && inside.contains(chosen->name))
                kept[member.name][chosen->name] = this->value(*chosen->type, inside[chosen->name]);
            else if (member.type->kind != Type::overlay || member.type->selected.empty())
                kept[member.name] = this->value(*member.type, inside);
        }
        return kept;
    }

    // A mask is left out if the members that are there say the same.
    static bool is_written_out(const Type &type, const Json &value, const Member &mask) {
        const Json set = set_flags_of(*mask.type, value[mask.name]);
        if (!follows_from_members(type, *mask.type)) return !set.empty();
        return std::any_of(type.members.begin(), type.members.end(), [&](const Member &member) {
            const Member *flag = &member == &mask ? nullptr : flag_of(bits_of(*mask.type), member.name);
            return flag && !set.contains(flag->name) && value.contains(member.name) && !is_zero(value[member.name]);
        });
    }

    // A member counts if it is not 0 or has a flag that is set, or if it selects.
    static bool counts(const Type &type, const Json &value, const Member &member) {
        for (const Member &mask : type.members) {
            if (!is_valid_mask(type, mask)) continue;
            if (const Member *flag = flag_of(bits_of(*mask.type), member.name))
                return !is_zero(value[member.name]) ||
                       (value.contains(mask.name) && set_flags_of(*mask.type, value[mask.name]).contains(flag->name));
        }
        return !is_zero(value[member.name]) ||
               std::any_of(type.members.begin(), type.members.end(),
                           [&](const Member &other) { return other.type->selector == member.name; });
    }

    const Dictionary &dictionary_;
};

// Makes things of one maker out of what answers tell.
class Making {
  public:
    Making(Context &context, const Makers &makers, const Method &maker, const Names &names)
        : context_(context), makers_(makers), maker_(maker), names_(names) {}

    void add(const Json &told) {
        Thing thing{maker_.name, Json::object()};
        for (const Parameter &parameter : maker_.parameters) {
            if (!told.contains(parameter.name)) continue;
            const Json &value = told[parameter.name];
            if (&parameter == Makers::output_of(maker_)) {
                const Json &id = value.is_array() && !value.empty() ? value[0] : value;
                if (!id.is_number_integer()) return;
                thing.id = as_declared(*context_.types().scalar(parameter.pointee()), id.get<int64_t>());
            } else if (parameter.said.direction == Direction::in) {
                const Json with_names = named(*context_.types().parameter(parameter), value, names_);
                // The id of something that no maker has made: then this one has not made it either.
                if (makers_.gives_out(parameter.said.meaning.id) && with_names.is_number()) return;
                thing.arguments[parameter.name] = as_made(context_, parameter, with_names);
            }
        }
        found_.emplace_back(json_text(thing.arguments), std::move(thing));
    }

    // Sorted; those that are the same and have no ids are one.
    std::vector<Thing> all() {
        std::sort(found_.begin(), found_.end(), [](const auto &one, const auto &other) {
            return std::tie(one.first, one.second.id) < std::tie(other.first, other.second.id);
        });
        std::vector<Thing> things;
        const bool has_ids = Makers::output_of(maker_) != nullptr;
        const std::string *last = nullptr;
        for (auto &[text, thing] : found_) {
            if (!last || has_ids || *last != text) things.push_back(std::move(thing));
            last = &text;
        }
        return things;
    }

  private:
    Context &context_;
    const Makers &makers_;
    const Method &maker_;
    const Names &names_;
    std::vector<std::pair<std::string, Thing>> found_;
};

}  // namespace

const Parameter *Makers::output_of(const Method &maker) {
    for (const Parameter &parameter : maker.parameters)
        if (parameter.said.direction == Direction::out && !parameter.said.meaning.id.empty() &&
            maker.contract->read_back->arguments.contains(parameter.name))
            return &parameter;
    return nullptr;
}

Makers::Makers(Context &context) {
    const Dictionary &dictionary = context.dictionary();
    std::map<std::string, std::size_t> level;             // of kinds: how many must be made before
    std::map<std::string, std::set<std::string>> inputs;  // kinds, by maker
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const Method method = dictionary.method_or_throw(name);
        if (!method.contract || !method.contract->read_back) continue;
        if (!dictionary.method(method.contract->read_back->by)) continue;
        concerned_.insert(name);
        for (const std::optional<Way> &way : {method.contract->undone_by, method.contract->changed_by})
            if (way) concerned_.insert(way->by);
        if (const Parameter *output = output_of(method)) kinds_.insert(output->said.meaning.id);
        inputs[name] = input_kinds(context, method);
        makers_.push_back(method);
    }
    const auto level_of = [&](const Method &maker) {
        std::size_t highest = 0;
        for (const std::string &kind : inputs[maker.name])
            if (const auto found = level.find(kind); found != level.end()) highest = std::max(highest, found->second);
        return highest;
    };
    for (std::size_t round = 0; round < 8; ++round)
        for (const Method &maker : makers_)
            if (const Parameter *output = output_of(maker)) {
                std::size_t &known = level[output->said.meaning.id];
                known = std::max(known, std::min<std::size_t>(level_of(maker) + 1, 8));
            }
    std::stable_sort(makers_.begin(), makers_.end(), [&](const Method &one, const Method &other) {
        return std::make_pair(level_of(one), one.name) < std::make_pair(level_of(other), other.name);
    });
}

const Method *Makers::find(const std::string &name) const {
    const auto found =
        std::find_if(makers_.begin(), makers_.end(), [&](const Method &maker) { return maker.name == name; });
    return found == makers_.end() ? nullptr : &*found;
}

std::set<std::string> Makers::with_makers(Context &context, std::set<std::string> methods) const {
    for (std::vector<std::string> open(methods.begin(), methods.end()); !open.empty();) {
        const std::set<std::string> kinds = input_kinds(context, context.dictionary().method_or_throw(open.back()));
        open.pop_back();
        for (const Method &maker : makers_)
            if (const Parameter *output = output_of(maker); output && kinds.contains(output->said.meaning.id))
                if (methods.insert(maker.name).second) open.push_back(maker.name);
    }
    return methods;
}

void Makers::keep(const std::set<std::string> &methods) {
    std::erase_if(makers_, [&](const Method &maker) { return !methods.contains(maker.name); });
}

Json named(const Type &type, Json value, const Names &names) {
    change_numbers(type, value, [&](const Type &own, int64_t number) -> Json {
        const auto found = own.meaning.id.empty() ? names.end() : names.find({own.meaning.id, number});
        return found == names.end() ? Json(number) : Json(symbol(found->second));
    });
    return value;
}

Json as_made(Context &context, const Parameter &parameter, const Json &value) {
    const bool is_one = parameter.said.length.count == 1 && parameter.said.length.argument.empty() &&
                        value.is_array() && value.size() == 1;
    return AsMade(context).value(*context.types().parameter(parameter), is_one ? value[0] : value);
}

std::vector<Thing> things_of(Context &context, const Makers &makers, const std::vector<Reading> &readings,
                             Names &names) {
    std::vector<Thing> things;
    std::map<std::string, std::size_t> count;  // by kind
    for (const Method &maker : makers.all()) {
        const ReadBack &read_back = *maker.contract->read_back;
        Making making(context, makers, maker, names);
        const auto look = [&](const Reading &reading) {
            for (const Json &told : made_in(maker, reading)) making.add(told);
        };
        if (!read_back.walk.empty())
            for (const Reading &reading : walk(context, read_back)) look(reading);
        else
            for (const Reading &reading : readings)
                if (reading.method.name == read_back.by) look(reading);
        for (Thing &thing : making.all()) {
            if (const Parameter *output = Makers::output_of(maker)) {
                const std::string &kind = output->said.meaning.id;
                thing.name = kind + "_" + std::to_string(++count[kind]);
                std::replace(thing.name.begin(), thing.name.end(), '-', '_');
                names[{kind, thing.id}] = thing.name;
            }
            things.push_back(std::move(thing));
        }
    }
    return things;
}

Json renamed(Json value, const std::map<std::string, std::string> &names) {
    if (value.is_structured())
        for (Json &inside : value) inside = renamed(std::move(inside), names);
    if (const std::optional<std::string> name = symbol_name(value))
        if (const auto found = names.find(*name); found != names.end()) return symbol(found->second);
    return value;
}

}  // namespace lmqctl
