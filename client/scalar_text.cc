// Scalars and addresses as texts.
#include "scalar_text.h"

#include <arpa/inet.h>

#include <charconv>
#include <cstdio>

#include "names.h"

namespace lmqctl {

std::optional<Json> bytes_from_hex(const std::string &text) {
    if (text.size() < 6 || text.size() % 2 != 0 || (!text.starts_with("0x") && !text.starts_with("0X"))) return {};
    Json bytes = Json::array();
    for (std::size_t i = 2; i < text.size(); i += 2) {
        unsigned byte = 0;
        const auto [end, failure] = std::from_chars(text.data() + i, text.data() + i + 2, byte, 16);
        if (failure != std::errc() || end != text.data() + i + 2) return {};
        bytes.push_back(byte);
    }
    return bytes;
}

std::optional<Json> mac_from_text(const std::string &text) {
    std::array<unsigned, 6> bytes{};
    char rest = 0;
    for (const char *form : {"%2x:%2x:%2x:%2x:%2x:%2x%c", "%2x-%2x-%2x-%2x-%2x-%2x%c"})
        if (std::sscanf(text.c_str(), form, &bytes[0], &bytes[1], &bytes[2], &bytes[3], &bytes[4], &bytes[5], &rest) ==
            6)
            return Json(bytes);
    if (std::optional<Json> plain = bytes_from_hex(text); plain && plain->size() == 6) return plain;
    return {};
}

std::optional<Json> ip_from_text(const Type &type, const std::string &text) {
    if (type.kind == Type::ipv4) {
        in_addr address;
        if (inet_pton(AF_INET, text.c_str(), &address) != 1) return {};
        return Json{{type.members[0].name, static_cast<int32_t>(ntohl(address.s_addr))}};
    }
    in6_addr address;
    if (type.kind != Type::ipv6 || inet_pton(AF_INET6, text.c_str(), &address) != 1) return {};
    Json bytes = Json::array();
    for (const uint8_t byte : address.s6_addr) bytes.push_back(byte);
    return Json{{type.path[0], {{type.path[1], bytes}}}};
}

std::string address_to_text(const Type &type, const Json &value) {
    char text[INET6_ADDRSTRLEN] = "";
    if (type.kind == Type::mac && value.is_array() && value.size() == 6) {
        std::string all;
        for (std::size_t i = 0; i < 6; ++i) {
            std::snprintf(text, sizeof text, i ? ":%02x" : "%02x",
                          static_cast<unsigned>(value[i].get<int64_t>() & 0xff));
            all += text;
        }
        return all;
    }
    if (type.kind == Type::ipv4 && value.is_object() && value.contains(type.members[0].name)) {
        in_addr address;
        address.s_addr = htonl(static_cast<uint32_t>(value[type.members[0].name].get<int64_t>()));
        return inet_ntop(AF_INET, &address, text, sizeof text);
    }
    if (type.kind == Type::ipv6 && value.is_object() && value.contains(type.path[0])) {
        const Json &bytes = value[type.path[0]][type.path[1]];
        in6_addr address;
        for (std::size_t i = 0; i < 16 && i < bytes.size(); ++i)
            address.s6_addr[i] = static_cast<uint8_t>(bytes[i].get<int64_t>());
        if (bytes.size() == 16) return inet_ntop(AF_INET6, &address, text, sizeof text);
    }
    return "";
}

std::optional<std::string> characters_to_text(const Json &value) {
    std::string text;
    std::size_t zeros = 0;
    if (!value.is_array()) return {};
    for (const Json &item : value) {
        if (!item.is_number_integer()) return {};
        const int64_t letter = item.get<int64_t>();
        if (letter == 0) ++zeros;
        if (letter != 0 && (zeros || letter < ' ' || letter > '~')) return {};
        if (letter != 0) text += static_cast<char>(letter);
    }
    return json_text(text);
}

int64_t as_declared(const Type &type, int64_t wire) {
    if (type.is_signed || type.width == 64) return wire;
    return wire & ((int64_t{1} << type.width) - 1);
}

std::string scalar_to_text(const Dictionary &dictionary, const Type &type, const Json &value) {
    if (!value.is_number_integer()) return json_text(value);
    const int64_t number = as_declared(type, value.get<int64_t>());
    if (!type.is_signed && type.width == 64) return std::to_string(static_cast<uint64_t>(number));
    if (type.meaning.is_ipv4) {
        char text[INET_ADDRSTRLEN] = "";
        const in_addr address{htonl(static_cast<uint32_t>(number))};
        return inet_ntop(AF_INET, &address, text, sizeof text);
    }
    const Enum *values = type.kind == Type::enumeration ? dictionary.enumeration(type.name) : nullptr;
    if (!values) return std::to_string(number);
    if (const Enumerator *named = values->numbered(number)) return named->name;
    if (type.meaning.is_bits && number == 0) return "0";
    // A number that stands for none or for all.
    for (const int64_t other : type.meaning.also)
        if (other == number) return std::to_string(number);
    // Bits of several enumerators, if they are all that the number is.
    std::string text;
    int64_t left = number;
    for (const Enumerator &bit : values->values)
        if (bit.number > 0 && (bit.number & (bit.number - 1)) == 0 && (left & bit.number)) {
            text += (text.empty() ? "" : "|") + bit.name;
            left &= ~bit.number;
        }
    return left == 0 && !text.empty() ? text : std::to_string(number) + " (no enumerator of " + type.name + ")";
}

std::string flags_to_text(const Json &value) {
    std::string text;
    if (value.is_object())
        for (const auto &[key, flag] : value.items())
            if (flag.is_number() && flag != 0)
                text += (text.empty() ? "" : "|") + key + (flag == 1 ? "" : "=" + std::to_string(flag.get<int64_t>()));
    return text.empty() ? "none" : text;
}

}  // namespace lmqctl
