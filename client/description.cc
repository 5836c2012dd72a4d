// What a host's methods of introspection would answer, out of what its description says.
#include "description.h"

#include <algorithm>
#include <stdexcept>

#include "contract.h"
#include "dictionary.h"

namespace lmqctl {

namespace {

// What stands before the names on the wire; the description has them as in C.
const char prefix[] = "lmq.";

constexpr int most_steps = 32;                // of a chain of typedefs, and of structs in each other
constexpr std::size_t most_elements = 65536;  // of an array

class Description {
  public:
    explicit Description(const Json &interface) : interface_(interface) {}

    std::string text() const {
        std::string text = Dictionary::head(prefix);
        for (const auto &[name, method] : interface_.at("methods").items())
            text += Dictionary::line(
                Dictionary::methods, name,
                json_text(Json{{"signature", signature(method)}, {"letters", Json::array()}, {"help", ""}}));
        for (const auto &[name, structure] : interface_.at("structs").items()) {
            const Json value = prototype(structure.at("members"), 0);
            text +=
                Dictionary::line(Dictionary::udts, name,
                                 json_text(Json{{"members", members(structure.at("members"))}, {"prototype", value}}));
            text += Dictionary::line(Dictionary::shapes, shape(value), json_text(Json(name)));
        }
        for (const auto &[name, enumeration] : interface_.at("enums").items())
            text += Dictionary::line(Dictionary::enums, name, json_text(enumerators(enumeration.at("values"))));
        for (const auto &[name, type] : interface_.at("typedefs").items())
            text += Dictionary::line(Dictionary::typedefs, name, json_text(type.at("type")));
        return text;
    }

  private:
    // The typedef's entry; null for what is none.
    const Json *typedef_of(const std::string &type) const {
        const auto found = interface_.at("typedefs").find(type);
        return found == interface_.at("typedefs").end() ? nullptr : &*found;
    }

    std::string base(std::string type) const {
        for (int step = 0; const Json *behind = typedef_of(type); ++step) {
            if (step == most_steps) throw std::runtime_error(type + " stands behind itself");
            type = behind->at("type");
        }
        return type;
    }

    // The struct that a type is; null for what is none.
    const Json *struct_of(const std::string &type) const {
        const std::string name = base(type);
        const auto found = interface_.at("structs").find(name.starts_with("struct ") ? name.substr(7) : name);
        return found == interface_.at("structs").end() ? nullptr : &*found;
    }

    Json signature(const Json &method) const {
        const std::string returns = method.at("returns");
        Json records = Json::array({{{"application_type", returns}, {"primative_type", base(returns)}}});
        for (const Json &argument : method.at("arguments")) {
            const std::string type = argument.at("type"), pointer = argument.value("pointer", false) ? " *" : "";
            records.push_back({{"application_type", type + pointer},
                               {"primative_type", base(type) + pointer},
                               {"declaration_name", argument.at("name")},
                               {"isUDT", struct_of(type) != nullptr}});
        }
        return records;
    }

    // The elements of an array; 0 for what is none.
    std::size_t count(const Json &member) const {
        const std::string type = member.at("type");
        const Json *behind = typedef_of(type);
        const std::size_t found = member.value("count", behind ? behind->value("count", std::size_t{0}) : 0);
        if (found > most_elements) throw std::runtime_error("an array has too many elements");
        return found;
    }

    Json members(const Json &entries) const {
        Json records = Json::array();
        for (const Json &entry : entries) {
            const std::string name = entry.at("name"), type = entry.at("type");
            if (name.empty()) {  // what is in it counts as beside it
                for (const Json &inside : members(entry.at("members"))) records.push_back(inside);
                continue;
            }
            const std::size_t elements = count(entry);
            records.push_back({{"type", entry.contains("members") ? "inline struct"
                                        : elements                ? base(type)
                                                                  : type},
                               {"name", name + (elements ? "[" + std::to_string(elements) + "]" : "")}});
        }
        return records;
    }

    Json prototype(const Json &entries, int depth) const {
        if (depth > most_steps) throw std::runtime_error("a struct holds itself");
        Json object = Json::object();
        for (const Json &entry : entries) {
            const std::string name = entry.at("name"), type = entry.at("type");
            const Json *structure = struct_of(type);
            Json value = 0;
            if (entry.contains("members"))
                value = prototype(entry["members"], depth + 1);
            else if (structure)
                value = prototype(structure->at("members"), depth + 1);
            if (const std::size_t elements = count(entry))
                value = base(type) == "char" ? Json("") : Json(elements, value);
            if (name.empty())
                object.update(value);
            else
                object[name] = std::move(value);
        }
        return object;
    }

    // A dictionary counts what follows a base from there; what is said to be the base itself has its number.
    static Json enumerators(const Json &values) {
        Json listed = Json::array();
        int64_t base = 0;
        for (const auto &[name, entry] : values.items()) {
            const int64_t value = entry.at("value");
            const bool is_base = name.ends_with("_BASE");
            const bool is_behind = !is_base && base > 0 && value > base && value - base < base;
            listed.push_back({name, is_behind ? value - base : value});
            if (is_base) base = value;
        }
        return listed;
    }

    const Json &interface_;
};

}  // namespace

std::string dictionary_of_description(const std::string &description) {
    const std::string contract = contract_lines(description, "");  // checks the names
    const Json interface = parsed_description(description);
    return Description(interface).text() + contract;
}

}  // namespace lmqctl
