// Reading of the pack, once at start, and what browsers are told of each file: nothing may be loaded from elsewhere,
// and no other page may show this one.
#include "console.h"

#include <microhttpd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace lmq::host {
namespace {

constexpr const char file_name[] = "console.pack";
constexpr std::string_view folder = "/console/";

/// A pack is some 100 KB.
constexpr std::size_t most_bytes = std::size_t{8} << 20;

constexpr const char policy[] =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; base-uri 'none'; "
    "form-action 'none'; frame-ancestors 'none'";

bool asks_for(MHD_Connection *connection, const char *header, std::string_view wanted) {
    const char *value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, header);
    return value != nullptr && std::string_view(value).find(wanted) != std::string_view::npos;
}

}  // namespace

bool is_console_path(std::string_view path) {
    return path == "/" || path == folder.substr(0, folder.size() - 1) || path.starts_with(folder);
}

Console::Console(bool wanted) {
    if (!wanted) return;
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
    for (const fs::path &place : {program / file_name, program / LMQ_HOST_DATA_FROM_PROGRAM / file_name}) {
        if (files_.empty() && fs::exists(place)) read(place.string());
    }
}

void Console::read(const std::string &path) {
    std::ifstream pack(path, std::ios::binary);
    std::string line;
    std::vector<std::pair<std::string, std::size_t>> order;
    bool good = std::getline(pack, line) && line == "lmq-console 1";
    while (good && std::getline(pack, line) && !line.empty()) {
        std::istringstream fields(line);
        std::string name;
        File file;
        std::size_t size = 0;
        good = static_cast<bool>(fields >> name >> file.type >> file.tag >> size) && size <= most_bytes;
        order.emplace_back(name, size);
        files_[name] = std::move(file);
    }
    for (const auto &[name, size] : order) {
        if (!good) break;
        files_[name].content.resize(size);
        good = static_cast<bool>(pack.read(files_[name].content.data(), static_cast<std::streamsize>(size)));
    }
    if (!good || !files_.contains("index.html")) throw std::runtime_error("'" + path + "' is no pack of the console");
}

Reply Console::reply(MHD_Connection *connection, std::string_view path) const {
    if (!path.starts_with(folder)) {
        Reply reply = refusal(MHD_HTTP_FOUND, "The console is at " + std::string(folder) + ".");
        reply.headers.emplace_back(MHD_HTTP_HEADER_LOCATION, folder);
        return reply;
    }
    const std::string_view name = path.substr(folder.size());
    const auto file = files_.find(name.empty() ? "index.html" : name);
    if (file == files_.end()) return refusal(MHD_HTTP_NOT_FOUND, "The console has no such file.");
    const auto &[type, tag, content] = file->second;
    Reply reply{MHD_HTTP_OK, "", type};
    reply.headers = {{MHD_HTTP_HEADER_ETAG, tag},
                     {MHD_HTTP_HEADER_CACHE_CONTROL, "no-cache"},
                     {MHD_HTTP_HEADER_VARY, MHD_HTTP_HEADER_ACCEPT_ENCODING},
                     {"Content-Security-Policy", policy},
                     {"X-Content-Type-Options", "nosniff"},
                     {"X-Frame-Options", "DENY"},
                     {"Referrer-Policy", "no-referrer"},
                     {"Cross-Origin-Resource-Policy", "same-origin"}};
    if (asks_for(connection, MHD_HTTP_HEADER_IF_NONE_MATCH, tag)) {
        reply.status = MHD_HTTP_NOT_MODIFIED;
    } else if (!asks_for(connection, MHD_HTTP_HEADER_ACCEPT_ENCODING, "gzip")) {
        return refusal(MHD_HTTP_NOT_ACCEPTABLE,
                       "The console is kept compressed: ask for it with Accept-Encoding: gzip.");
    } else {
        reply.headers.emplace_back(MHD_HTTP_HEADER_CONTENT_ENCODING, "gzip");
        reply.body = content;
    }
    return reply;
}

}  // namespace lmq::host
