// Finding members by the ends of their paths, and their values.
#include "columns.h"

#include <algorithm>
#include <functional>

#include "answer.h"
#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

// The way to a column's values. Where `list` stands, the elements of an array are the rows.
struct ColumnPlace {
    std::vector<std::string> before, behind;
    bool is_in_list = false;
    TypePtr type;
    std::size_t depth() const { return before.size() + behind.size(); }
};

bool ends_with(const std::vector<std::string> &path, const std::vector<std::string> &end) {
    return path.size() >= end.size() && std::equal(end.rbegin(), end.rend(), path.rbegin());
}

// Every member and argument, each with the way to it. Lists of structs that are in a list stay whole.
class Places {
  public:
    Places(Types &types, const Method &method, const Json &answer) {
        for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
            const TypePtr type = types.parameter(method.parameters[i]);
            ColumnPlace place{{method.parameters[i].name}, {}, false, type};
            const bool is_list = answer[i + 1].is_array() && is_a_list(method.parameters[i], *type);
            place.is_in_list = is_list;
            add(is_list && type->element ? type->element : type, std::move(place));
        }
    }

    /// The nearest to the root; nullptr if there is none.
    const ColumnPlace *find(const std::string &name) const {
        const std::vector<std::string> end = split(name, '.');
        const ColumnPlace *best = nullptr;
        for (const ColumnPlace &place : all_) {
            std::vector<std::string> path = place.before;
            path.insert(path.end(), place.behind.begin(), place.behind.end());
            if (ends_with(path, end) && (!best || place.depth() < best->depth())) best = &place;
        }
        return best;
    }

    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const ColumnPlace &place : all_)
            names.push_back(place.behind.empty() ? place.before.back() : place.behind.back());
        return names;
    }

  private:
    static bool is_a_list(const Parameter &parameter, const Type &type) {
        return type.kind == Type::structure || !parameter.said.length.filled.empty();
    }

    void add(const TypePtr &type, ColumnPlace place) {
        place.type = type;
        all_.push_back(place);
        std::vector<std::string> &path = place.is_in_list ? place.behind : place.before;
        if (type->kind == Type::flags || type->kind == Type::mask || type->kind == Type::ipv4 ||
            type->kind == Type::ipv6)
            return;
        for (const Member &member : type->members) {
            const bool is_list = member.type->kind == Type::array && member.type->element->kind == Type::structure;
            path.push_back(member.name);
            if (is_list && !place.is_in_list) {
                all_.push_back(place);
                all_.back().type = member.type;
                ColumnPlace inner = place;
                inner.is_in_list = true;
                add(member.type->element, std::move(inner));
            } else {
                add(member.type, place);
            }
            path.pop_back();
        }
    }

    std::vector<ColumnPlace> all_;
};

const Json *at(const Json &value, const std::vector<std::string> &path) {
    const Json *found = &value;
    for (const std::string &key : path) {
        // One struct may come as a list of one.
        while (found->is_array() && found->size() == 1) found = &(*found)[0];
        if (!found->is_object() || !found->contains(key)) return nullptr;
        found = &(*found)[key];
    }
    return found;
}

std::vector<ColumnPlace> found_places(const Places &places, const Method &method,
                                      const std::vector<std::string> &names) {
    std::vector<ColumnPlace> found;
    const ColumnPlace *list = nullptr;
    for (const std::string &name : names) {
        const ColumnPlace *place = places.find(name);
        if (!place)
            throw UsageError("--columns: " + method.name + " answers no " + name + did_you_mean(name, places.names()));
        if (place->is_in_list && list && list->before != place->before)
            throw UsageError("--columns: " + name + " is in another list than the others");
        if (place->is_in_list) list = place;
        found.push_back(*place);
    }
    return found;
}

}  // namespace

Table table_of(const Dictionary &dictionary, Types &types, const Output &output, const Method &method,
               const Json &answer, const std::vector<std::string> &names) {
    const std::vector<ColumnPlace> columns = found_places(Places(types, method, answer), method, names);
    Json arguments = Json::object();
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
        arguments[method.parameters[i].name] = filled(method, i, answer);
    const auto list =
        std::find_if(columns.begin(), columns.end(), [](const ColumnPlace &each) { return each.is_in_list; });
    const Json *items = list == columns.end() ? nullptr : at(arguments, list->before);
    const bool is_list = items && items->is_array();
    Table table{names, {}};
    for (std::size_t row = 0; row < (is_list ? items->size() : 1); ++row) {
        std::vector<Cell> cells;
        for (const ColumnPlace &place : columns) {
            const Json *from = !place.is_in_list ? &arguments : is_list ? &(*items)[row] : nullptr;
            const Json *value = from ? at(*from, place.is_in_list ? place.behind : place.before) : nullptr;
            if (value)
                cells.push_back({output.in_a_cell(*place.type, *value), plain(*place.type, *value, &dictionary)});
            else
                cells.push_back({"", nullptr});
        }
        table.rows.push_back(std::move(cells));
    }
    return table;
}

}  // namespace lmqctl
