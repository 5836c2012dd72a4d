// What is looked at in a document before the XML-RPC library reads it. The library builds a tree of all elements, looks
// up attributes one by one and replaces entities: a document can make it run out of stack, time or memory.
#pragma once

#include <string>
#include <string_view>

namespace lmqctl {

/// Why a document is not given to the library; empty if it may be. It may still be no XML at all.
std::string why_unsafe(std::string_view document);

}  // namespace lmqctl
