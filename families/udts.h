// Declares the description of every UDT: udt_T for the type T.
#pragma once

#include "marshal/row.h"

/// Hidden where it is declared, not only where it is defined: the compiler then takes an address without a word in the
/// global offset table, which would cost a relocation too.
#pragma GCC visibility push(hidden)
namespace lmq {

#define UDT_NAME(T) extern const Udt udt_##T;
#include "families/udts.def"
#undef UDT_NAME

} // namespace lmq
#pragma GCC visibility pop
