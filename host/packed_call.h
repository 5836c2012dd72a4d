// A call as the pre-pass hands it on: the method's name, and the parameters as bytes that can be turned into values of
// the XML-RPC library without reading XML a second time, which took a third of a large call. Both ends run on one
// machine, often in one process, so that numbers stand as they do in memory.
//
//     packed_mark, length, name of the method, value...
//     value:  Item, then what belongs to it: the number, the length and the text, or what is inside up to Item::end
//     struct: Item::structure, then length, name and value of each member, each after Item::member, then Item::end
#ifndef LMQ_HOST_PACKED_CALL_H
#define LMQ_HOST_PACKED_CALL_H

#include <xmlrpc-c/base.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

namespace lmq::host {

/** The first byte of a packed call. No XML document begins with it. */
inline constexpr char packed_mark = '\x01';

enum class Item : char { end, int32, int64, boolean, nil, string, array, structure, member };

/**
 * Packs a call, piece by piece; what comes before begin() or after give_up() is dropped. Its memory serves one call
 * after the other.
 */
class Packer {
  public:
    /**
     * Begins a call.
     * @param method Its name.
     */
    void begin(std::string_view method) {
        size_ = 0;
        // One large call is no reason to keep its memory.
        if (bytes_.size() > largest_kept) std::vector<char>().swap(bytes_);
        usable_ = true;
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

    /** Says that the call holds something that cannot be packed, so that the library has to read its XML. */
    void give_up() { usable_ = false; }

    /** The call; empty if it cannot be packed or none has begun. Lasts until the next one begins. */
    std::string_view bytes() const { return {bytes_.data(), usable_ ? size_ : 0}; }

  private:
    static constexpr std::size_t largest_kept = 1 << 20;

    void make_room(std::size_t more) {
        if (bytes_.size() - size_ < more) bytes_.resize(2 * (size_ + more));
    }

    template <class... Values>
    void put(Values... values) {
        static_assert((std::is_trivially_copyable_v<Values> && ...));
        if (!usable_) return;
        make_room((sizeof values + ...));
        ((std::memcpy(bytes_.data() + size_, &values, sizeof values), size_ += sizeof values), ...);
    }

    void put_text(std::string_view text) {
        if (!usable_) return;
        put(static_cast<std::uint32_t>(text.size()));
        make_room(text.size());
        unsigned char highest = 0;
        for (const char c : text) {
            bytes_[size_++] = c;
            highest = std::max(highest, static_cast<unsigned char>(c));
        }
        // The library refuses what lies beyond the Basic Multilingual Plane, with a fault of its own.
        if (highest >= 0xF0) give_up();
    }

    std::vector<char> bytes_;
    std::size_t size_ = 0;
    bool usable_ = false;
};

/** The method of a packed call. */
std::string_view packed_method(std::string_view call);

/**
 * Appends the parameters of a packed call to an array.
 * @param env    Takes the fault if there is no memory for them.
 * @param call   What a Packer made; nothing is done if it is empty.
 * @param params The array.
 */
void unpack(xmlrpc_env *env, std::string_view call, xmlrpc_value *params);

}  // namespace lmq::host

#endif
