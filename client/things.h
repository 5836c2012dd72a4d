// What is made and deleted on a chip, such as bridges and flows: which calls make it, as the contract has it, and what
// there is.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "context.h"
#include "survey.h"

namespace lmqctl {

/// A thing, as the call that makes it.
struct Thing {
    std::string maker;
    Json arguments;          ///< inputs by name: enumerators by name, addresses as such, symbols for ids given out
    std::string name = {};   ///< of the symbol for its own id; empty if it gets none
    int64_t id = 0;          ///< on the chip
    std::size_t number = 0;  ///< among those that are called the same
};

/// The methods that make things which can be read back; those whose ids others take come first.
class Makers {
  public:
    explicit Makers(Context &context);

    const std::vector<Method> &all() const { return makers_; }
    const Method *find(const std::string &name) const;
    /// The output that gives out an id; nullptr if there is none.
    static const Parameter *output_of(const Method &maker);
    bool gives_out(const std::string &kind) const { return kinds_.contains(kind); }
    /// Whether a method makes, changes or undoes a thing.
    bool concerns(const std::string &method) const { return concerned_.contains(method); }
    /// With these methods those that make what they refer to.
    std::set<std::string> with_makers(Context &context, std::set<std::string> methods) const;
    /// Leaves out all makers but these.
    void keep(const std::set<std::string> &methods);

  private:
    std::vector<Method> makers_;
    std::set<std::string> kinds_, concerned_;
};

/// The names of things by their kinds and ids.
using Names = std::map<std::pair<std::string, int64_t>, std::string>;

/// Symbols in the places of ids that have a name.
Json named(const Type &type, Json value, const Names &names);

/// A value as things have it: comparable, with members that count alone, in their order.
Json as_made(Context &context, const Parameter &parameter, const Json &value);

/// Out of the answers of the methods that read back; `names` gets the names of the things, by what they are.
std::vector<Thing> things_of(Context &context, const Makers &makers, const std::vector<Reading> &readings,
                             Names &names);

/// A value with the name of each symbol replaced.
Json renamed(Json value, const std::map<std::string, std::string> &names);

}  // namespace lmqctl
