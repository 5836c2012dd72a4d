// The macros that describe an API method: a driver function, its arguments and its help text.
//
//     METHOD(vx_watchdog_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_watchdog_cfg_t, p_cfg))
//
// defines the method handler x_rpc_vx_watchdog_get and the description method_vx_watchdog_get. The arguments are
// compared with the prototype in the header: another type, number or order does not compile. Widths, narrowing and the
// signature string follow from the prototype. Stands in namespace lmq.
#pragma once

#include <xmlrpc-c/base.h>

#include <type_traits>
#include <utility>

#include "lmq/status.h"
#include "marshal/describe.h"
#include "marshal/scalar.h"

namespace lmq {

enum class ArgumentKind : uint8_t {
    value,    // scalar or enum by value: an int
    element,  // pointer to scalars: an array of ints, or an int
    udt,      // pointer to a UDT: a struct, or an array of structs
    cookie,   // void *: a pointer value of this process, or an array of them
};

struct Argument {
    uint16_t name;  // string
    uint16_t type;  // string: declared type, as fault texts name it
    ArgumentKind kind;
    Scalar scalar;  // of a value or an element
    uint8_t unit;   // of an element: bytes allocated for each
    uint8_t udt;    // index into Method::udts
};

enum class Returns : uint8_t { status, int32, uint32, nothing };

// The text of a method without documentation.
inline constexpr char no_help_text[] = "No help available";

// Two pointers a method: each costs a relocation, and a private word in every process.
struct Method {
    const void *texts;  // the arguments, and behind them the strings, which begin with the method's full name
    const Udt *const *udts;
    uint16_t signature;  // string, as the registry takes it
    uint16_t help_text;  // string; 0 for none
    uint8_t count;
    Returns returns;

    const Argument *arguments() const { return static_cast<const Argument *>(texts); }
    const char *text(uint16_t string) const { return reinterpret_cast<const char *>(arguments() + count) + string; }
    const char *full_name() const { return text(0); }
    const char *name() const { return text(sizeof "lmq." - 1); }
    const char *help() const { return help_text == 0 ? no_help_text : text(help_text); }
};

// The handler of a method, as the registry takes it.
using Handler = xmlrpc_value *(xmlrpc_env *, xmlrpc_value *, void *, void *);

struct Registered {
    const Method *method;
    Handler *handler;
};

// The API methods in the order of order.def, without the introspection methods.
[[gnu::visibility("hidden")]] extern const Registered api_methods[];

// An argument between decoding, driver call and echo.
struct Slot {
    int32_t value;  // of a value argument
    int count;      // items of a client's array; not set for another form
    xmlrpc_type form;
    std::byte *block;  // of a pointer argument; NULL if the client sent an empty array
};

constexpr unsigned most_arguments = 8;

// Calls a driver function with the arguments in the slots, and leaves in them what it was handed.
using Call = int32_t(Slot *);

// The frame of every method handler: counts and reads the parameters, calls the driver, answers its result and the
// echo of each argument, and frees the call's blocks. Returns NULL with a fault set for what cannot be read; the driver
// has not been called then.
xmlrpc_value *run_method(xmlrpc_env *env, xmlrpc_value *parameters, const Method &method, Call *call);

// The parts of a help text. Lines end in "\n", without indentation: it is added when the parts are put together.
struct Help {
    const char *title = nullptr;
    const char *text = "";
    const char *inputs = "";   // one line for each argument; "" leaves the section out
    const char *outputs = "";  // "" leaves the section out
    const char *returns = "";
};
inline constexpr Help no_help{};

// VALUE(T, name): a scalar or enum by value.
#define VALUE(T, name) ::lmq::describe::value<T>(#T, #name)

// ELEMENT_PTR(T, name): a pointer to scalars or enums of type T. For an array typedef such as vx_mac_addr_t it points
// to the elements, and memory is taken in units of the whole array.
#define ELEMENT_PTR(T, name) ::lmq::describe::element_pointer<T>(#T, #name)

// UDT_PTR(T, name): a pointer to a UDT.
#define UDT_PTR(T, name) ::lmq::describe::udt_pointer<T>(#T, #name, udt_##T)

// COOKIE(name): the void * that the driver is handed the call's block for.
#define COOKIE(name) ::lmq::describe::cookie(#name)

#define METHOD(api, help_parts, ...)                                                                      \
    namespace row_of_##api {                                                                              \
        constexpr auto draft =                                                                            \
            ::lmq::describe::method<decltype(::api)>("lmq." #api, help_parts __VA_OPT__(, ) __VA_ARGS__); \
        static_assert(draft.fits, "row of " #api ": the header declares another prototype");              \
        static int32_t call(Slot *slots) { return typed_call(::api, slots); }                             \
    }                                                                                                     \
    extern constinit const Method method_##api;                                                           \
    constinit const Method method_##api = ::lmq::describe::packed_method<row_of_##api::draft>();          \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *);      \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {     \
        return run_method(env, parameters, method_##api, row_of_##api::call);                             \
    }

// Takes an argument from its slot, narrowed to the parameter's type. The narrowed value replaces the one that was read,
// so that the echo shows what the driver got.
template <class T>
inline T take(Slot &slot) {
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(slot.block);
    else {
        const T narrowed = static_cast<T>(slot.value);
        slot.value = static_cast<int32_t>(narrowed);
        return narrowed;
    }
}

// Unpacks the slots for a function. It is inlined into a local function for each method: an instance for each method
// would take the driver function's visibility, and its address would come from the global offset table.
template <class R, class... P>
[[gnu::always_inline]] inline int32_t typed_call(R (*function)(P...), [[maybe_unused]] Slot *slots) {
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
        if constexpr (std::is_void_v<R>)
            return function(take<P>(slots[I])...), 1;  // a constant in place of a result
        else
            return static_cast<int32_t>(function(take<P>(slots[I])...));
    }
    (std::index_sequence_for<P...>{});
}

}  // namespace lmq

namespace lmq::describe {

struct ArgumentDraft {
    const char *type, *name;
    ArgumentKind kind;
    Scalar scalar{};
    size_t unit = 0;
    const Udt *udt = nullptr;
};

// An argument with its C type and its letter in the signature.
template <class P, char l>
struct Typed : ArgumentDraft {
    using parameter = P;
    static constexpr char letter = l;
};

template <class T>
constexpr Typed<T, 'i'> value(const char *type, const char *name) {
    static_assert(is_scalar<T> && sizeof(T) <= 4, "rows: a value argument is no scalar of 8, 16 or 32 bits");
    return {{type, name, ArgumentKind::value, {sizeof(T), is_signed<T>()}}};
}

template <class T>
constexpr Typed<element_of<T> *, 'A'> element_pointer(const char *type, const char *name) {
    using Element = element_of<T>;
    static_assert(is_scalar<Element> && sizeof(Element) <= 4, "rows: the elements are no scalars of 8, 16 or 32 bits");
    return {{type, name, ArgumentKind::element, {sizeof(Element), is_signed<Element>()}, sizeof(T)}};
}

template <class T>
constexpr Typed<T *, 'S'> udt_pointer(const char *type, const char *name, const Udt &udt) {
    return {{type, name, ArgumentKind::udt, {}, 0, &udt}};
}

// The block is taken by the byte, as for an unsigned char *, though pointers are stored in it: a decision of this
// system.
constexpr Typed<void *, 'A'> cookie(const char *name) { return {{"void", name, ArgumentKind::cookie, {1, false}, 1}}; }

template <char... letters>
inline constexpr char signature_text[] = {'i', ':', letters..., '\0'};

template <size_t N>
struct MethodDraft {
    const char *full_name, *signature;
    Help help;
    Returns returns;
    std::array<ArgumentDraft, N> arguments;
    bool fits;  // the header has this prototype
};

template <class R, class... Known>
constexpr bool is_any_of = (std::is_same_v<R, Known> || ...);

template <class R>
constexpr bool is_result = is_any_of<R, void, vx_status_e, vx_int32, vx_uint32>;

template <class R>
constexpr Returns returns() {
    if constexpr (std::is_void_v<R>)
        return Returns::nothing;
    else if constexpr (std::is_same_v<R, vx_status_e>)
        return Returns::status;
    else if constexpr (std::is_same_v<R, vx_int32>)
        return Returns::int32;
    else
        return Returns::uint32;
}

constexpr const char *return_type(Returns returns) {
    switch (returns) {
        case Returns::status: return "vx_status_e";
        case Returns::int32: return "vx_int32";
        case Returns::uint32: return "vx_uint32";
        case Returns::nothing: return "void";
    }
    return nullptr;
}

template <class>
struct Prototype;
template <class R, class... P>
struct Prototype<R(P...)> {
    using result = R;
    template <class... A>
    static constexpr bool matches() {
        if constexpr (sizeof...(P) != sizeof...(A))
            return false;
        else
            return (std::is_same_v<P, typename A::parameter> && ...);
    }
};

template <class F, class... A>
constexpr MethodDraft<sizeof...(A)> method(const char *full_name, const Help &help, const A &...arguments) {
    static_assert(sizeof...(A) <= most_arguments);
    return {full_name,      signature_text<A::letter...>,
            help,           returns<typename Prototype<F>::result>(),
            {arguments...}, is_result<typename Prototype<F>::result> && Prototype<F>::template matches<A...>()};
}

// The help text of a method. Its first line is the prototype, made from the row.
template <const auto &draft>
struct HelpText {
    struct Writer {
        char *to = nullptr;  // NULL only counts
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
    static constexpr void write(Writer &out) {
        out.put(return_type(draft.returns));
        out.put(' ');
        out.put(draft.full_name + sizeof "lmq." - 1);
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
        if (*draft.help.inputs) {
            out.put("INPUTS:\n\n");
            out.lines("  ", draft.help.inputs);
        }
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
    struct Result {
        Strings<2048> strings;
        std::array<Argument, count> arguments{};
        std::array<const Udt *, count> udts{};
        size_t udt_count = 0;
        uint16_t signature = 0;
    };
    static constexpr Result pack() {
        Result result;
        result.strings.size = 0;  // the name stands first
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
