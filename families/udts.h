// Declares the description of every UDT: udt_T for the type T.
#pragma once

#include "marshal/row.h"

namespace lmq {

#define UDT_NAME(T) extern const Udt udt_##T;
#include "families/udts.def"
#undef UDT_NAME

} // namespace lmq
