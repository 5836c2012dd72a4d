// Makes calls out of the contract: values in range, enumerators, arrays of the right length, ids that the chip gave
// out.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "random.h"
#include "type.h"

namespace lmqctl {

class Generator {
  public:
    /// `hostile`: a part of the numbers is out of range or no enumerator. Lengths fit all the same.
    Generator(const Dictionary &dictionary, Types &types, uint64_t seed, bool hostile)
        : dictionary_(dictionary), types_(types), random_(seed), hostile_(hostile) {}

    /// The parameters of a call that the contract allows. Behind the elements that the driver is told of, an array may
    /// have more: nobody may write there.
    Json arguments(const Method &method);

    /// Keeps what a call succeeded with, and the ids in its answer, for the calls that follow.
    void accept(const Method &method, const Json &sent, const Json &answer);

    Random &random() { return random_; }

  private:
    using Values = std::map<std::string, Json>;  // by what an argument stands for
    Json value(const Type &type, const std::string &name);
    Json number(const Type &type, const std::string &name);
    int64_t enumerator(const Type &type);
    int64_t fresh_number(const Type &type);
    int64_t hostile_number(const Type &type);
    Json structure(const Type &type);
    Json flags(const Type &type);
    Json array(const Type &type, const std::string &name);
    Json overlay(const Type &type, const Json &siblings);
    Json pointer(const Method &method, std::size_t at, const Json &parameters, const Values *before);
    int64_t count(const Type &type);
    const Values *recalled(const Method &method);
    std::optional<int64_t> favourite(const std::string &kind);
    void learn(const Type &type, const Json &value);

    const Dictionary &dictionary_;
    Types &types_;
    Random random_;
    const bool hostile_;
    std::map<std::string, std::vector<int64_t>> known_;    // ids by kind
    std::map<std::string, std::vector<int64_t>> domains_;  // the few values that a number of this name has
    std::map<std::string, std::vector<Values>> accepted_;  // by family
    std::string family_;                                   // of the call that is made up
    std::map<std::string, int64_t> favourites_;            // ids by family and kind
};

/// Whether a member is TRUE or FALSE in a number of another type: its sentence says so.
bool is_truth(const Member &member);

/// How many elements an argument stands for in a call with these parameters; 1 without a contract.
std::size_t elements_of(const Method &method, std::size_t at, const Json &parameters);

}  // namespace lmqctl
