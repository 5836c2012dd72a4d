// What a driver function of the remote driver does: its arguments go to the host as a call of the method of its name,
// and the answer comes back into the caller's memory.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/method.h"
#include "remote/terms.h"

namespace lmq::remote {

/// An argument: a pointer, or a number of up to 32 bits extended by its sign.
using Word = std::uintptr_t;

template <class T>
Word word(T argument) {
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<Word>(argument);
    else
        return static_cast<Word>(static_cast<std::int32_t>(argument));
}

/// Makes a call.
/// @param method What is called.
/// @param terms  What the contract says of its arguments.
/// @param words  The arguments.
/// @return What the function is to return. Of a call that failed a number of lmq_remote_status_e, or 0 if the function
///         returns no status; the caller's memory is then unchanged, and the failure has been told.
std::int32_t call(const Method &method, const Terms *terms, const Word *words) noexcept;

}  // namespace lmq::remote
