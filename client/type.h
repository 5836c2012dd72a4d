// What a value of the interface is: a tree made from member lists and prototypes. Where the dictionary does not say it
// outright, its shape does: which of the structs without a name are bit sets, masks or overlays, which member selects
// an overlay's alternative, what is an address.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dictionary.h"

namespace lmqctl {

struct Type;
using TypePtr = std::shared_ptr<const Type>;

struct Member {
    std::string name;
    TypePtr type;
    std::string brief = {};  ///< what the contract says of it
};

struct Type {
    enum Kind {
        integer,      ///< width, is_signed
        enumeration,  ///< the same; `name` is an enum's
        text,         ///< a string of at most `bound` characters
        array,        ///< of `element`, at most `bound` (0: not known)
        structure,    ///< members
        flags,        ///< members are bits, the lowest first
        mask,         ///< members are two views of a bit set: members[0] is `flags`, members[1] an integer over them
        overlay,      ///< members are alternatives in one place
        mac,          ///< array of six bytes
        ipv4,         ///< struct of one number, members[0]; the first byte is its highest
        ipv6,         ///< struct around sixteen bytes; `path` leads to them
    };
    Kind kind = integer;
    std::string name;  ///< declared; empty for a struct without a name; an enumeration's enum
    std::string held;  ///< of an enumeration in an integer: the declared type of that
    Meaning meaning;   ///< of a number, as the contract has it
    unsigned width = 32;
    bool is_signed = true;
    std::size_t bound = 0;
    TypePtr element;
    std::vector<Member> members;
    std::vector<std::string> path;
    bool is_union = false;  ///< of a structure: its members lie over each other, and nothing in it says which counts
    /// Of an overlay: the sibling that selects, and the alternative for each of its numbers. Empty if not known.
    std::string selector;
    std::map<int64_t, std::string> selected;
    bool is_selector_told = false;  ///< by the contract; otherwise the names suggest it

    const Member *member(const std::string &member_name) const;
    std::vector<std::string> member_names() const;
    /// A struct for an address of either kind: an overlay with an ipv4 and an ipv6 alternative, and its selector.
    const Member *address_overlay() const;
    /// Whether it is 0 or 1 by its declared type or its range.
    bool is_boolean() const;
    /// An array of bytes that are no booleans: a text may stand for it.
    bool is_bytes() const;
    /// For people: "an array of at most 8 vx_uint16".
    std::string described() const;
    /// "vx_uint16", "vx_uint16[8]".
    std::string declared() const;
};

class Types {
  public:
    explicit Types(const Dictionary &dictionary) : dictionary_(dictionary) {}

    /// Of a parameter: behind a pointer to a UDT the UDT, behind another an array.
    TypePtr parameter(const Parameter &parameter);
    TypePtr udt(const std::string &name);     ///< nullptr if there is none
    TypePtr scalar(const std::string &name);  ///< of an enum, a typedef or a C type

  private:
    TypePtr member(const std::string &type, const std::string &declared, const Json &prototype);
    TypePtr unnamed(const std::string &name, const Json &prototype, bool is_member);
    void find_selectors(Type &structure) const;
    /// A type with what the contract's entry says of an argument or a member.
    TypePtr with_meaning(const TypePtr &type, const Json &entry);
    TypePtr with_width(const TypePtr &type, const Json &entry);
    TypePtr with_meaning(const TypePtr &type, const Meaning &meaning) const;
    void add_meanings(Type &structure, const Json &members);
    void select(Type &overlay, const Json &entry) const;
    const Dictionary &dictionary_;
    std::map<std::string, TypePtr> udts_;  ///< nullptr for one that is being made
};

}  // namespace lmqctl
