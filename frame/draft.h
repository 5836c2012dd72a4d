// Drafts of methods: what the macros of describe.h make of a description and of the prototype in the header.
#pragma once

#include <array>
#include <type_traits>

#include "frame/method.h"
#include "lmq/status.h"
#include "marshal/draft.h"

namespace lmq {

/// The parts of a help text. Lines end in "\n", without indentation: it is added when the parts are put together.
struct Help {
    const char *title = nullptr;
    const char *text = "";
    bool device = true;        ///< whether the line of dev_id, for a method that takes it, opens the inputs
    const char *inputs = "";   ///< one line for each other argument; "" and no dev_id leave the section out
    const char *outputs = "";  ///< "" leaves the section out
    const char *returns = "VX_SUCCESS, or error code as defined in vx_status_e\n";
};
inline constexpr Help no_help{};

// A target that is short of flash does without the texts; its methods answer that there is none.
#ifdef LMQ_WITHOUT_HELP
inline constexpr bool has_help = false;
#else
inline constexpr bool has_help = true;
#endif

}  // namespace lmq

namespace lmq::describe {

struct ArgumentDraft {
    const char *type, *name;
    ArgumentKind kind;
    Scalar scalar{};
    size_t unit = 0;
    const Udt *udt = nullptr;
};

/// An argument with its C type and its letter in the signature.
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

/// The block is taken by the byte, as for an unsigned char *, though pointers are stored in it: a decision of this
/// system.
constexpr Typed<void *, 'A'> cookie(const char *name) { return {{"void", name, ArgumentKind::cookie, {1, false}, 1}}; }

template <char... letters>
inline constexpr char signature_text[] = {'i', ':', letters..., '\0'};

template <size_t N>
struct MethodDraft {
    const char *full_name, *signature;
    Help help;
    Returns returns;
    std::array<ArgumentDraft, N> arguments;
    bool fits;  ///< the header has this prototype
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
    return {full_name,
            signature_text<A::letter...>,
            has_help ? help : no_help,
            returns<typename Prototype<F>::result>(),
            {arguments...},
            is_result<typename Prototype<F>::result> && Prototype<F>::template matches<A...>()};
}

}  // namespace lmq::describe
