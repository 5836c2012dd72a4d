// Declares the description of every UDT: udt_T for the type T.
#pragma once

#include "marshal/row.h"

// Hidden, so that the compiler takes their addresses without a word in the global offset table.
#pragma GCC visibility push(hidden)

namespace lmq {

#define UDT_NAME(T) extern const Udt udt_##T;
#include "families/udts.def"
#undef UDT_NAME

} // namespace lmq

#pragma GCC visibility pop
