// Packs the draft of a method (draft.h) into its row (method.h): arguments, strings and the help text in one constant.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

#include "frame/draft.h"
#include "marshal/pack.h"

namespace lmq::describe {

inline constexpr std::string_view device_argument = "dev_id";

/// The help text of a method. Its first line is the prototype, made from the row.
template <const auto &draft>
struct HelpText {
    struct Writer {
        char *to = nullptr;  ///< NULL only counts
        size_t size = 0;
        constexpr void put(char c) {
            if (to) to[size] = c;
            ++size;
        }
        constexpr void put(std::string_view words) {
            for (char c : words) put(c);
        }
        constexpr void lines(std::string_view indent, std::string_view words) {
            bool begin = true;
            for (char c : words) {
                if (begin) put(indent);
                put(c);
                begin = c == '\n';
            }
        }
    };
    /// The device's line is the same for all methods that take one, but for the blanks that put its colon below the
    /// others'.
    static constexpr void inputs(Writer &out, std::string_view lines) {
        const bool has_device =
            draft.help.device && !draft.arguments.empty() && draft.arguments[0].name == device_argument;
        if (!has_device && lines.empty()) return;
        out.put("INPUTS:\n\n");
        if (has_device) {
            const size_t colon = lines.empty() ? device_argument.size() + 1 : lines.find(':');
            out.put("  ");
            out.put(device_argument);
            for (size_t at = device_argument.size(); at < colon; ++at) out.put(' ');
            out.put(": device id\n");
        }
        out.lines("  ", lines);
    }
    static constexpr void write(Writer &out) {
        out.put(return_type(draft.returns));
        out.put(' ');
        out.put(draft.full_name + prefix_size);
        out.put("( ");
        bool first = true;
        for (const ArgumentDraft &argument : draft.arguments) {
            if (!first) out.put(", ");
            first = false;
            out.put(argument.type);
            out.put(argument.kind == ArgumentKind::value ? " " : " * ");
            out.put(argument.name);
        }
        out.put(" )\n\n");
        out.put(draft.help.title);
        out.put("\n\n");
        out.lines(" ", draft.help.text);
        out.put("  \n");
        inputs(out, draft.help.inputs);
        if (*draft.help.outputs) {
            out.put("\nOUTPUTS:\n\n");
            out.lines("  ", draft.help.outputs);
        }
        out.put("\nReturns:\n");
        out.lines("  ", draft.help.returns);
    }
    static constexpr size_t size = [] {
        Writer counter;
        write(counter);
        return counter.size + 1;
    }();
    static constexpr std::array<char, size> text = [] {
        std::array<char, size> made{};
        Writer writer{made.data()};
        write(writer);
        return made;
    }();
};

template <const auto &draft>
struct PackedMethod {
    static constexpr size_t count = draft.arguments.size();
    static_assert(std::all_of(draft.arguments.begin(), draft.arguments.end(),
                              [](const ArgumentDraft &argument) {
                                  return std::string_view(argument.type).size() + sizeof " *" <= name_room;
                              }),
                  "row: the type of an argument is longer than introspection has room for");
    struct Result {
        Strings<2048> strings;
        std::array<Argument, count> arguments{};
        std::array<const Udt *, count> udts{};
        size_t udt_count = 0;
        uint16_t signature = 0;
    };
    static constexpr Result pack() {
        Result result;
        result.strings.size = 0;  ///< the name stands first
        result.strings.add(draft.full_name);
        result.signature = result.strings.add(draft.signature);
        for (size_t i = 0; i < count; ++i) {
            const ArgumentDraft &argument = draft.arguments[i];
            result.arguments[i] = {result.strings.add(argument.name),
                                   result.strings.add(argument.type),
                                   argument.kind,
                                   argument.scalar,
                                   uint8_t(argument.unit),
                                   uint8_t(result.udt_count)};
            if (argument.kind == ArgumentKind::udt) result.udts[result.udt_count++] = argument.udt;
        }
        return result;
    }
    static constexpr Result packed = pack();
    static constexpr auto udts = first<packed.udt_count>(packed.udts);

    static constexpr bool has_help = draft.help.title != nullptr;
    static constexpr size_t help_size = [] {
        if constexpr (has_help)
            return HelpText<draft>::size;
        else
            return 0;
    }();
    struct Texts {
        std::array<Argument, count> arguments;
        std::array<char, packed.strings.size + help_size> strings;
    };
    struct TextsAlone {
        std::array<char, packed.strings.size + help_size> strings;
    };
    static constexpr auto texts = [] {
        std::conditional_t<(count > 0), Texts, TextsAlone> made{};
        if constexpr (count > 0) made.arguments = packed.arguments;
        std::copy_n(packed.strings.text.begin(), packed.strings.size, made.strings.begin());
        if constexpr (has_help)
            std::copy_n(HelpText<draft>::text.begin(), help_size, made.strings.begin() + packed.strings.size);
        return made;
    }();
    // Method finds the strings by their place.
    static_assert(offsetof(decltype(texts), strings) == count * sizeof(Argument));
    static_assert(packed.strings.size + help_size < 65536);
};

template <const auto &draft>
constexpr Method packed_method() {
    using P = PackedMethod<draft>;
    return {&P::texts,           P::udts.data(),
            P::packed.signature, P::has_help ? uint16_t(P::packed.strings.size) : uint16_t(0),
            uint8_t(P::count),   draft.returns};
}

}  // namespace lmq::describe
