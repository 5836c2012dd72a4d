// lmqctl get: what there is of a kind, as a table.
#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

#include "answer.h"
#include "arguments.h"
#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"
#include "survey.h"
#include "table.h"

namespace lmqctl {

namespace {

// An enum of events at each port of a chip.
constexpr std::size_t most_calls_of_a_list = 8192;

struct GetOptions : SurveyOptions {
    std::string kind, columns;
    bool full = false;
};

std::string plural(const std::string &kind) {
    return kind.ends_with('y') ? kind.substr(0, kind.size() - 1) + "ies" : kind + "s";
}

// Kinds by their plurals, with the methods that list them.
std::map<std::string, std::pair<std::string, Json>> kinds_of(const Dictionary &dictionary) {
    if (!dictionary.has_contract())
        throw UsageError("get: this host does not say how its things are listed; lmqctl list '*get*' may help");
    std::map<std::string, std::pair<std::string, Json>> kinds;
    for (const std::string &kind : dictionary.names(Dictionary::ids))
        if (const Json said = dictionary.said(Dictionary::ids, kind); said.contains("lists"))
            kinds[plural(kind)] = {kind, said};
    return kinds;
}

// A thing: its columns in the order in which they came, by name.
using Thing = std::vector<std::pair<std::string, Cell>>;

// Puts the things together out of what the lists answered.
class Things {
  public:
    Things(Context &context, const std::string &kind, const Json &said)
        : context_(context),
          kind_(kind),
          enum_(said.value("each", "")),
          has_several_(said["lists"].size() > 1),
          output_(context.output()) {}

    void add(const Reading &reading) {
        Thing inputs;
        const Method &method = reading.method;
        for (std::size_t i = 0; i < method.parameters.size() && i + 1 < reading.answer.size(); ++i) {
            const Parameter &parameter = method.parameters[i];
            const bool is_room = list_of_capacity(method, parameter) != nullptr;
            const bool clears = method.contract && parameter.name == method.contract->clears_if;
            if (!parameter.is_pointer() && !is_room && !clears && parameter.said.meaning.id != "device")
                inputs.push_back(column(parameter.name, *context_.types().parameter(parameter), reading.answer[i + 1]));
            if (is_of_kind(parameter) && !parameter.is_pointer()) ids_.insert(parameter.name);
        }
        for (const auto &[name, cell] : inputs) inputs_.insert(name);
        bool has_list = false;
        for (const Parameter &parameter : method.parameters)
            has_list = has_list || !parameter.said.length.filled.empty();
        if (has_list && has_several_) inputs.insert(inputs.begin(), {"list", {method.name, method.name}});
        for (std::size_t i = 0; i < method.parameters.size() && i + 1 < reading.answer.size(); ++i) {
            const Parameter &parameter = method.parameters[i];
            if (!parameter.is_pointer() || parameter.said.length.filled.empty() == has_list) continue;
            add_values(inputs, parameter, filled(method, i, reading.answer), has_list);
        }
    }

    /// What is told of each enumerator comes together, in their order.
    void sort(std::vector<Reading> &readings) const {
        if (enum_.empty()) return;
        const auto number = [&](const Reading &reading) {
            const std::vector<Parameter> &all = reading.method.parameters;
            const auto found = std::find_if(all.begin(), all.end(),
                                            [&](const Parameter &parameter) { return parameter.type == enum_; });
            const std::size_t at = static_cast<std::size_t>(found - all.begin());
            return at < all.size() ? reading.call.parameters[at].get<int64_t>() : 0;
        };
        std::stable_sort(readings.begin(), readings.end(),
                         [&](const Reading &one, const Reading &other) { return number(one) < number(other); });
    }

    /// Of what each enumerator stands for: those that differ in nothing but their other inputs are one.
    void join() {
        if (enum_.empty()) return;
        std::vector<Thing> joined;
        for (auto begin = things_.begin(); begin != things_.end();) {
            const auto end =
                std::find_if(begin, things_.end(), [&](const Thing &thing) { return !is_same(thing, *begin, true); });
            if (std::all_of(begin, end, [&](const Thing &thing) { return is_same(thing, *begin, false); }))
                joined.push_back(one_of(begin, end));
            else
                joined.insert(joined.end(), begin, end);
            begin = end;
        }
        things_ = std::move(joined);
    }

    bool empty() const { return things_.empty(); }

    Table table(bool full) const {
        Table table;
        for (const std::string &name : columns_)
            if (full || ids_.contains(name) || tells_apart(name)) table.columns.push_back(name);
        for (const Thing &thing : things_) {
            table.rows.emplace_back();
            for (const std::string &name : table.columns) table.rows.back().push_back(cell(thing, name));
        }
        return table;
    }

    /// The table with these columns alone.
    Table table(const std::vector<std::string> &names) const {
        Table table{names, {}};
        for (const std::string &name : names)
            if (!things_.empty() && std::find(columns_.begin(), columns_.end(), name) == columns_.end())
                throw UsageError("--columns: no column " + name + did_you_mean(name, columns_));
        for (const Thing &thing : things_) {
            table.rows.emplace_back();
            for (const std::string &name : names) table.rows.back().push_back(cell(thing, name));
        }
        return table;
    }

  private:
    using Places = std::vector<Thing>::const_iterator;

    bool is_of_kind(const Parameter &parameter) const {
        return parameter.said.meaning.id == kind_ || (!enum_.empty() && parameter.type == enum_);
    }

    // In what they are, or in all that was not asked for.
    bool is_same(const Thing &one, const Thing &another, bool in_ids) const {
        const auto counts = [&](const std::string &name) {
            return in_ids ? ids_.contains(name) : !inputs_.contains(name);
        };
        return std::all_of(columns_.begin(), columns_.end(), [&](const std::string &name) {
            return !counts(name) || cell(one, name).text == cell(another, name).text;
        });
    }

    static Thing one_of(Places begin, Places end) {
        Thing one = *begin;
        for (auto &column : one) {
            const auto differs = [&](const Thing &other) {
                return cell(other, column.first).text != column.second.text;
            };
            if (std::any_of(begin, end, differs)) column.second = {"all", "all"};
        }
        return one;
    }

    std::pair<std::string, Cell> column(const std::string &name, const Type &type, const Json &value) {
        return {name, {output_.in_a_cell(type, value), plain(type, value, &context_.dictionary())}};
    }

    // The elements of a list are things of their own; what is read of one thing adds to it.
    void add_values(const Thing &inputs, const Parameter &parameter, const Json &value, bool is_list) {
        const TypePtr whole = context_.types().parameter(parameter);
        const Type &type = is_list && whole->element ? *whole->element : *whole;
        if (!is_list) return add_thing(inputs, type, value.is_array() && !value.empty() ? value[0] : value, parameter);
        for (const Json &item : value) {
            things_.push_back(inputs);
            note(inputs);
            extend(things_.back(), type, item, parameter);
        }
    }

    void add_thing(const Thing &inputs, const Type &type, const Json &value, const Parameter &parameter) {
        std::string key;
        for (const auto &[name, cell] : inputs) key += name + "=" + cell.text + " ";
        const auto known = places_.emplace(key, things_.size());
        if (known.second) {
            things_.push_back(inputs);
            note(inputs);
        }
        extend(things_[known.first->second], type, value, parameter);
    }

    void extend(Thing &thing, const Type &type, const Json &value, const Parameter &parameter) {
        Thing more;
        if (value.is_object() && type.kind == Type::structure) {
            for (const Member &member : type.members) {
                if (!value.contains(member.name) || is_valid_mask(type, member)) continue;
                if (member.type->meaning.id == kind_) ids_.insert(member.name);
                const Json &inside = value[member.name];
                const Member *chosen = member.type->is_union ? alternative(*member.type, thing) : nullptr;
                more.push_back(chosen && inside.contains(chosen->name)
                                   ? column(member.name, *chosen->type, inside[chosen->name])
                                   : column(member.name, *member.type, inside));
            }
        } else {
            more.push_back(column(parameter.name, type, value));
        }
        // What the call was asked with, and answers again, is shown once.
        for (auto &each : more)
            if (std::none_of(thing.begin(), thing.end(), [&](const auto &other) { return other.first == each.first; }))
                thing.push_back(std::move(each));
        note(thing);
    }

    // In a union without a selector, what goes with the enumerator; else what goes with all that have none of their
    // own.
    const Member *alternative(const Type &type, const Thing &thing) const {
        const Json members =
            context_.dictionary().said(Dictionary::said_of_structs, type.name).value("members", Json());
        const Member *general = nullptr;
        for (const Json &member : members) {
            const Member *here = type.member(member["name"]);
            if (!here || !member.contains("if")) {
                general = general ? general : here;
                continue;
            }
            for (const auto &[name, cell] : thing)
                if (ids_.contains(name) && std::count(member["if"].begin(), member["if"].end(), cell.text)) return here;
        }
        return enum_.empty() ? nullptr : general;
    }

    void note(const Thing &thing) {
        for (const auto &[name, cell] : thing)
            if (std::find(columns_.begin(), columns_.end(), name) == columns_.end()) columns_.push_back(name);
    }

    static Cell cell(const Thing &thing, const std::string &name) {
        const auto found =
            std::find_if(thing.begin(), thing.end(), [&](const auto &each) { return each.first == name; });
        return found == thing.end() ? Cell{"", nullptr} : found->second;
    }

    // Of one thing alone, what is not 0.
    bool tells_apart(const std::string &name) const {
        const Cell first = cell(things_[0], name);
        if (things_.size() == 1) return !is_zero(first.value) && first.text != "0";
        return std::any_of(things_.begin(), things_.end(),
                           [&](const Thing &thing) { return cell(thing, name).text != first.text; });
    }

    Context &context_;
    const std::string kind_, enum_;
    const bool has_several_;
    const Output output_;
    std::vector<Thing> things_;
    std::vector<std::string> columns_;
    std::set<std::string> ids_, inputs_;
    std::map<std::string, std::size_t> places_;  // of things that several calls are about
};

void list_kinds(Context &context) {
    Table table{{"kind", "what"}, {}};
    for (const auto &[name, kind] : kinds_of(context.dictionary())) {
        const std::string brief = kind.second.value("brief", "");
        table.rows.push_back({{name, name}, {brief, brief}});
    }
    show(context, table);
}

void get(Context &context, GetOptions options) {
    if (options.kind.empty()) return list_kinds(context);
    const auto kinds = kinds_of(context.dictionary());
    std::vector<std::string> names;
    const std::pair<std::string, Json> *kind = nullptr;
    std::string listed;
    for (const auto &[name, said] : kinds) {
        names.push_back(name);
        if (options.kind != name && options.kind != said.first) continue;
        kind = &said;
        listed = name;
    }
    if (!kind)
        throw UsageError("get: nothing lists " + options.kind + did_you_mean(options.kind, names) +
                         "\nlmqctl get lists the kinds.");
    options.only = kind->second["lists"].get<std::vector<std::string>>();
    options.fixed = kind->second.value("with", options.fixed);
    options.most_calls = most_calls_of_a_list;
    Things things(context, kind->first, kind->second);
    std::vector<Reading> readings = read_all(context, options);
    things.sort(readings);
    Json failed;
    bool has_any = false;
    for (const Reading &reading : readings) {
        if (is_fault(reading.answer)) throw Fault(reading.answer["faultCode"], reading.answer["faultString"]);
        const bool success = is_success(context.dictionary(), reading.method, result_of(reading.answer));
        has_any = has_any || success;
        if (success)
            things.add(reading);
        else if (failed.is_null())
            failed = {reading.method.name, context.output().status(reading.method, result_of(reading.answer))};
    }
    // One that is not there is none; if no call succeeds, it may be the chip.
    if (!has_any && !failed.is_null()) {
        print(failed[1].get<std::string>() + "\n");
        context.exit_status = exit_driver;
        return;
    }
    if (things.empty() && options.columns.empty() && !context.json && !context.hand_over) {
        std::fprintf(stderr, "There are no %s.\n", listed.c_str());
        return;
    }
    things.join();
    show(context, options.columns.empty() ? things.table(options.full) : things.table(split(options.columns, ',')));
}

}  // namespace

void set_up_get(CLI::App &command, Context &context) {
    const auto options = std::make_shared<GetOptions>();
    command.add_option("KIND", options->kind, "What to list; without it, the kinds are");
    command.add_option("--port", options->ports, "Of these ports alone: 3, 0-3 or 0,2")->type_name("PORTS");
    command.add_option("--columns", options->columns, "These columns, with commas between")->type_name("MEMBER,...");
    command.add_flag("--full", options->full, "All columns, not only those that tell things apart");
    command.callback([&context, options] { get(context, *options); });
}

}  // namespace lmqctl
