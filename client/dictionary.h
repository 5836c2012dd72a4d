// The dictionary of a host: its methods, UDTs, enums, defines and typedefs, as the introspection methods list them. It
// is kept as lines of text, KIND TAB NAME TAB JSON, one an entry; an entry is parsed when it is asked for, so that a
// call, which needs three of them, does not pay for two thousand.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "contract.h"
#include "json.h"

namespace lmqctl {

struct Parameter {
    std::string type;  ///< as declared, "vx_dev_id_t"; with " *" behind it for a pointer
    std::string base;  ///< what stands behind the typedefs: "unsigned char"
    std::string name;
    bool is_udt = false;
    ArgumentContract said = {};  ///< without a contract: unknown direction
    bool is_pointer() const { return type.ends_with(" *"); }
    std::string pointee() const { return is_pointer() ? type.substr(0, type.size() - 2) : type; }
};

struct Method {
    std::string name;         ///< without the namespace of the interface
    std::string result;       ///< declared type; empty if the host does not describe the method
    std::string result_base;  ///< what stands behind it
    std::vector<Parameter> parameters;
    std::string help;
    std::vector<std::string> letters;  ///< XML-RPC types where the host knows no more: result first
    std::optional<MethodContract> contract = {};
    bool is_described() const { return !result.empty(); }
    /// Whether it changes nothing, counters included, with flags that clear sent as 0. Registers need `registers`:
    /// reading them may have effects. Without a contract, whether its name leaves no doubt of that.
    bool only_reads(bool registers = false) const;
    std::string title() const;      ///< what it does in a sentence, or empty
    std::string prototype() const;  ///< in C
    /// What the help says of a parameter: its text, and whether it stands under the outputs. Nothing if it is not
    /// named.
    struct Told {
        std::string text;
        bool is_output;
    };
    std::optional<Told> told(const std::string &parameter) const;
};

struct Enumerator {
    std::string name;
    int64_t listed = 0;  ///< the number in the dictionary
    int64_t number = 0;  ///< the driver's number: behind a symbolic base it is the base's and the listed one
    std::string base;    ///< the enumerator that is the base, or empty
};

struct Enum {
    std::string type;
    std::vector<Enumerator> values;
    const Enumerator *named(std::string_view name) const;
    const Enumerator *numbered(int64_t number) const;  ///< the first with it
};

class Dictionary {
  public:
    enum Kind : char {
        methods = 'M',
        udts = 'U',
        enums = 'E',
        defines = 'D',
        typedefs = 'T',
        shapes = 'S',
        // The contract, if the host has one: the tag of its version, and what it says of each.
        contract = 'c',
        said_of_methods = 'm',
        said_of_structs = 'u',
        said_of_enums = 'e',
        said_of_typedefs = 't',
        ids = 'i'
    };

    /// From the lines. Throws std::runtime_error if they are none of a dictionary.
    explicit Dictionary(std::string text);
    Dictionary(const Dictionary &) = delete;
    Dictionary &operator=(const Dictionary &) = delete;

    /// The text that `Dictionary` is made of.
    static std::string head(const std::string &prefix);
    static std::string line(Kind kind, const std::string &name, const std::string &json);

    const std::string &text() const { return text_; }
    const std::string &prefix() const { return prefix_; }  // of the interface's names on the wire: "lmq."
    /// The name on the wire, and the name without the prefix.
    std::string full_name(const std::string &name) const;
    std::string bare_name(const std::string &name) const;

    std::vector<std::string> names(Kind kind) const;  ///< in the host's order
    bool has(Kind kind, const std::string &name) const { return find(kind, name) != nullptr; }
    std::string_view json(Kind kind, const std::string &name) const;  ///< empty if there is no such entry

    std::optional<Method> method(const std::string &name) const;
    Method method_or_throw(const std::string &name) const;   ///< a UsageError with the nearest names
    std::optional<Json> udt(const std::string &name) const;  ///< {"members": [{"type","name","doc"}], "prototype": {}}
    const Enum *enumeration(const std::string &type) const;
    std::optional<std::string> define(const std::string &name) const;
    std::optional<std::string> behind(const std::string &type) const;  ///< one step of the typedef chain
    std::vector<std::string> chain(const std::string &type) const;     ///< all steps of it
    std::string base_type(const std::string &type) const;              ///< the chain's end; "int" for an enum

    /// What the contract says of something; null without one.
    Json said(Kind kind, const std::string &name) const;
    bool has_contract() const { return has(contract, "tag"); }
    std::string contract_tag() const;  ///< empty without one
    std::string fingerprint() const;   ///< of the interface, as the contract has it; likewise
    /// The text with these lines for its contract, or with none.
    std::string text_with_contract(const std::string &lines) const;

    /// The enum that holds an enumerator; no parsing of the others.
    const Enum *enum_of(const std::string &enumerator) const;
    /// The number of a define, a typecast and parentheses taken off. Nothing if it is not a number.
    std::optional<int64_t> define_number(const std::string &name) const;

  private:
    Method parsed(const std::string &name, std::string_view entry) const;
    const std::string_view *find(Kind kind, const std::string &name) const;
    std::string text_, prefix_;
    std::vector<std::pair<Kind, std::string_view>> order_;
    std::vector<std::pair<std::string_view, std::string_view>> lines_;  ///< "KIND TAB NAME" and its JSON
    mutable std::unordered_map<std::string_view, std::string_view>
        entries_;  ///< the same, once there are many searches
    mutable std::size_t searches_ = 0;
    mutable std::map<std::string, Enum> parsed_enums_;
    mutable std::unordered_map<std::string, Method> parsed_methods_;  ///< commands that look at all do so many times
};

/// The keys inside a prototype as text: "addr{mac[6],ipv4{s_addr}}". What is declared without a name is known by it.
std::string shape(const Json &prototype);

}  // namespace lmqctl
