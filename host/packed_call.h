// A call as the pre-pass hands it on: the method's name, and the parameters as bytes that can be turned into values of
// the XML-RPC library without reading XML a second time, which took a third of a large call. Both ends run on one
// machine, often in one process, so that numbers stand as they do in memory.
//
//     packed_mark, length, name of the method, value...
//     value:  Item, then what belongs to it: the number, the length and the text, or what is inside up to Item::end
//     struct: Item::structure, then length, name and value of each member, each after Item::member, then Item::end
#pragma once

#include <xmlrpc-c/base.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

#include "trace/packed.h"

namespace lmq::host {

using trace::Item;
using trace::packed_mark;

/// Packs a call, piece by piece; what comes before begin() is dropped. Its memory serves one call after the other.
class Packer {
  public:
    /// Forgets the call before.
    void reset() {
        size_ = 0;
        // One large call is no reason to keep its memory.
        if (bytes_.size() > largest_kept) std::vector<char>().swap(bytes_);
        begun_ = false;
        whole_ = true;
    }

    /// Begins a call.
    /// @param method Its name.
    void begin(std::string_view method) {
        begun_ = true;
        put(packed_mark);
        put_text(method);
    }

    void add(Item item) { put(item); }
    void add(std::int32_t value) { put(Item::int32, value); }
    void add(std::int64_t value) { put(Item::int64, value); }
    void add(bool value) { put(Item::boolean, value); }
    void add(std::string_view text) {
        put(Item::string);
        put_text(text);
    }
    void add_member(std::string_view name) {
        put(Item::member);
        put_text(name);
    }

    /// Says that the library has to read the call's XML, as it holds something that cannot be packed or is one of the
    /// library's own.
    void give_up() { whole_ = false; }

    /// The call, for being carried out; empty if it cannot be packed or none has begun. Lasts until the next reset().
    std::string_view bytes() const { return whole_ ? read() : std::string_view(); }

    /// The call as far as it could be packed, for being looked at. Lasts until the next reset().
    std::string_view read() const { return {bytes_.data(), size_}; }

  private:
    static constexpr std::size_t largest_kept = 1 << 20;

    void make_room(std::size_t more) {
        if (bytes_.size() - size_ < more) bytes_.resize(2 * (size_ + more));
    }

    template <class... Values>
    void put(Values... values) {
        static_assert((std::is_trivially_copyable_v<Values> && ...));
        if (!begun_) return;
        make_room((sizeof values + ...));
        ((std::memcpy(bytes_.data() + size_, &values, sizeof values), size_ += sizeof values), ...);
    }

    void put_text(std::string_view text) {
        if (!begun_) return;
        put(static_cast<std::uint32_t>(text.size()));
        make_room(text.size());
        size_ += text.copy(bytes_.data() + size_, text.size());
        unsigned char highest = 0;
        for (const char c : text) highest = std::max(highest, static_cast<unsigned char>(c));
        // The library refuses what lies beyond the Basic Multilingual Plane, with a fault of its own.
        if (highest >= 0xF0) give_up();
    }

    std::vector<char> bytes_;
    std::size_t size_ = 0;
    bool begun_ = false;
    bool whole_ = true;
};

/// The method of a packed call.
std::string_view packed_method(std::string_view call);

/// Appends the parameters of a packed call to an array.
/// @param env    Takes the fault if there is no memory for them.
/// @param call   What a Packer made; nothing is done if it is empty.
/// @param params The array.
void unpack(xmlrpc_env *env, std::string_view call, xmlrpc_value *params);

}  // namespace lmq::host
