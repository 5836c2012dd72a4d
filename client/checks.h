// What must hold of answers by the contract, whatever the chip is: statuses that are some, inputs that stay as they
// were, settings that can be read.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

class Checks {
  public:
    Checks(const Dictionary &dictionary, Types &types) : dictionary_(dictionary), types_(types) {}

    /// Whether a call returned a number that its enum does not have.
    bool is_no_status(const Method &method, const Json &answer) const;

    /// The first part of what was sent that the driver may not write to and that came back as something else:
    /// "p_cfg.rate: 100 became 7"; nothing if there is none. Elements behind the length of an output belong to it.
    std::optional<std::string> changed_input(const Method &method, const Json &sent, const Json &answer) const;

    /// The call that reads what a call has set: by the names and types of both. Nothing if there is none.
    std::optional<Json> reading_of(const Method &setter, const Json &sent, Method &getter) const;

    /// The first member that was set, and that the getter answers otherwise: "p_cfg.rate: 100 was set, 7 was read".
    std::optional<std::string> lost_setting(const Method &setter, const Json &sent, const Method &getter,
                                            const Json &answer) const;

    /// The name of the method that reads what one sets; empty if there is none.
    const std::string &getter_of(const Method &setter) const;

  private:
    struct Difference {
        std::string place;
        Json sent, got;
    };
    std::optional<Difference> difference(const Type &type, const Json &sent, const Json &got, const std::string &place,
                                         bool only_flagged) const;
    std::optional<Difference> member_difference(const Type &type, const Json &sent, const Json &got,
                                                const std::string &place, bool only_flagged) const;
    std::string find_getter(const Method &setter) const;

    const Dictionary &dictionary_;
    Types &types_;
    mutable std::map<std::string, std::string> getters_;
};

}  // namespace lmqctl
