// Reading of the description at each request: it is asked for seldom, as clients keep it, and is larger than all else
// that the host would have to keep.
#include "interface_file.h"

#include <microhttpd.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace fs = std::filesystem;

namespace lmq::host {
namespace {

constexpr const char file_name[] = "interface.json";

std::optional<std::string> content(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) return std::nullopt;
    return text;
}

/// FNV-1a with 64 bits, as an entity tag (RFC 9110).
std::string tag_of(std::string_view text) {
    std::uint64_t value = 0xCBF29CE484222325;
    for (const char c : text) value = (value ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    constexpr const char digits[] = "0123456789abcdef";
    std::string tag = "\"";
    for (int shift = 60; shift >= 0; shift -= 4) tag += digits[value >> shift & 15];
    return tag + '"';
}

bool asks_for(MHD_Connection *connection, const char *header, std::string_view wanted) {
    const char *value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, header);
    return value != nullptr && std::string_view(value).find(wanted) != std::string_view::npos;
}

}  // namespace

InterfaceFile::InterfaceFile(const std::string &named) {
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
    const fs::path places[] = {folder / file_name, folder / LMQ_HOST_DATA_FROM_PROGRAM / file_name};
    if (!named.empty()) {
        path_ = named;
    } else {
        for (const fs::path &place : places) {
            if (path_.empty() && fs::exists(place)) path_ = place;
        }
    }
    if (path_.empty()) return;
    const auto text = content(path_);
    if (text) {
        tag_ = tag_of(*text);
    } else if (!named.empty()) {
        throw std::runtime_error("cannot read the description of the interface '" + named + "'");
    }
}

Reply InterfaceFile::reply(MHD_Connection *connection) const {
    if (tag_.empty()) return refusal(MHD_HTTP_NOT_FOUND, "This host has no description of the interface.");
    Reply reply{MHD_HTTP_OK, "", "application/json"};
    reply.headers = {{MHD_HTTP_HEADER_ETAG, tag_},
                     {MHD_HTTP_HEADER_CACHE_CONTROL, "no-cache"},
                     {MHD_HTTP_HEADER_VARY, MHD_HTTP_HEADER_ACCEPT_ENCODING}};
    if (asks_for(connection, MHD_HTTP_HEADER_IF_NONE_MATCH, tag_)) {
        reply.status = MHD_HTTP_NOT_MODIFIED;
        return reply;
    }
    std::optional<std::string> text;
    if (asks_for(connection, MHD_HTTP_HEADER_ACCEPT_ENCODING, "gzip")) text = content(path_.string() + ".gz");
    if (text) {
        reply.headers.emplace_back(MHD_HTTP_HEADER_CONTENT_ENCODING, "gzip");
    } else {
        text = content(path_);
    }
    if (!text) return refusal(MHD_HTTP_NOT_FOUND, "The description of the interface is gone.");
    reply.body = std::move(*text);
    return reply;
}

}  // namespace lmq::host
