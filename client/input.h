// Values as people write them, into values of the wire: checked against their types, with errors that name the place.
#pragma once

#include <optional>
#include <string>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

struct InputOptions {
    bool force = false;     ///< send arrays longer than their bound, and numbers beyond their type or range
    bool symbols = false;   ///< take what stands for a later value (symbol.h) for one of any type
    bool set_flags = true;  ///< set the flags of masks for the members that are given
};

/// What a word stands for: the contents of @FILE or of standard input, without the blanks around them; else itself.
/// `place` is for errors.
std::string text_of(const std::string &word, const std::string &place);

/// The flags of a mask in one view or in two.
const Type &bits_of(const Type &mask);

/// The flag that says a member is given: named like it, or like the beginning of a range's two ends. nullptr if there
/// is none.
const Member *flag_of(const Type &flags, const std::string &member);

/// Whether a member of a struct holds flags that say which of the others are given.
bool is_valid_mask(const Type &structure, const Member &member);

class Input {
  public:
    Input(const Dictionary &dictionary, InputOptions options) : dictionary_(dictionary), options_(options) {}

    /// A value from the text of an argument: a number, names with |, an address, characters, JSON, @FILE, or - for
    /// standard input. `place` is the argument's name, for errors. Throws a UsageError.
    Json from_text(const Type &type, const std::string &text, const std::string &place) const;

    /// A value from JSON in which names and addresses may stand as strings.
    Json from_json(const Type &type, const Json &json, const std::string &place) const;

    /// Sets what a path leads to inside a value: ".dev_cfg[0].enbl".
    void set(const Type &type, Json &value, const std::string &path, const std::string &text,
             const std::string &place) const;

    /// Sets the selectors of overlays that have an alternative and no selector beside it. Throws a UsageError for an
    /// alternative that several numbers select, and for one that the selector given does not select.
    void set_selectors(const Type &type, Json &value, const std::string &place) const;

    /// Sets the flags of masks for the members that a struct has, all the way down. For a value that is complete.
    void set_flags(const Type &type, Json &value) const;

  private:
    Json number(const Type &type, int64_t value, const std::string &place) const;
    Json named(const Type &type, const std::string &text, const std::string &place) const;
    Json flags_of_text(const Type &type, const std::string &text, const std::string &place) const;
    Json members(const Type &type, const Json &json, const std::string &place) const;
    Json list(const Type &type, const Json &json, const std::string &place) const;

    // `from_json`, a function for each kind.
    Json scalar(const Type &type, const Json &json, const std::string &place) const;
    Json text(const Type &type, const Json &json, const std::string &place) const;
    Json flags(const Type &type, const Json &json, const std::string &place) const;
    Json bytes(const Type &type, const std::string &text, const std::string &place) const;
    Json bytes_of_word(const Type &type, const std::string &text, const std::string &place) const;
    Json comma_list(const Type &type, const std::string &text, const std::string &place) const;
    Json array(const Type &type, const Json &json, const std::string &place) const;
    Json mac(const Type &type, const Json &json, const std::string &place) const;
    Json ip(const Type &type, const Json &json, const std::string &place) const;
    Json overlay(const Type &type, const Json &json, const std::string &place) const;
    Json structure(const Type &type, const Json &json, const std::string &place) const;

    std::optional<int64_t> selecting(const Type &structure, const Member &overlay, const std::string &alternative,
                                     const std::string &place) const;

    // `set`, for a path that begins with an index or with a key.
    void set_element(const Type &type, Json &value, const std::string &path, const std::string &text,
                     const std::string &place) const;
    void set_member(const Type &type, Json &value, const std::string &path, const std::string &text,
                    const std::string &place) const;
    [[noreturn]] void wrong(const Type &type, const std::string &given, const std::string &place,
                            const std::string &hint = "") const;
    const Dictionary &dictionary_;
    InputOptions options_;
};

}  // namespace lmqctl
