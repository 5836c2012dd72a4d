// Answers for people: names for numbers, one alternative of an overlay, nothing said at length that is only zeros.
#pragma once

#include <string>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

struct Style {
    bool full = false;   ///< all alternatives, all zeros
    bool color = false;  ///< for a terminal
    bool hex = false;    ///< numbers in hexadecimal
};

class Output {
  public:
    Output(const Dictionary &dictionary, Types &types, Style style)
        : dictionary_(dictionary), types_(types), style_(style) {}

    /// The answer of a method, [result, argument...], with its status line: lines that end with a line break.
    std::string answer(const Method &method, const Json &answer) const;

    /// A value under a name. Structures and arrays go on in lines of their own, indented.
    std::string value(const std::string &name, const Type &type, const Json &value, unsigned indent = 0) const;

    /// "VX_SUCCESS", "VX_ERR_GLBL_X (28674 = 0x7002: VX_ERR_GLBL_BASE + 2)".
    std::string status(const Method &method, const Json &result) const;

    std::string paint(const char *code, const std::string &text) const;

    std::string one_line(const Type &type, const Json &value) const;  ///< empty if it needs several

    /// In one line in any case: what needs several as "member=value", without what is 0.
    std::string in_a_cell(const Type &type, const Json &value) const;

  private:
    std::string scalar(const Type &type, const Json &value) const;
    std::string members_in_a_cell(const Type &type, const Json &object) const;
    std::string elements(const Type &element, const Json &items, unsigned indent) const;
    std::string members(const Type &type, const Json &object, unsigned indent) const;
    /// What was sent, without the members that were not given.
    Json given(const Type &type, const Json &value) const;
    /// The one that the selector's number means.
    std::string alternative(const Member &overlay, const Json &all, const Json &selector, unsigned indent) const;
    const Dictionary &dictionary_;
    Types &types_;
    Style style_;
};

}  // namespace lmqctl
