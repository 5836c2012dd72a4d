// The cache folder.
#include "cache.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "dictionary.h"

namespace lmqctl {

namespace fs = std::filesystem;

fs::path cache_folder() {
    const char *cache = std::getenv("XDG_CACHE_HOME"), *home = std::getenv("HOME");
    if (cache && *cache == '/') return fs::path(cache) / "lmqctl";
    return home && *home ? fs::path(home) / ".cache" / "lmqctl" : fs::path();
}

// FNV-1a: tells dictionaries apart, and need not withstand anybody.
std::string fingerprint(const std::string &text) {
    uint64_t hash = 14695981039346656037u;
    for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 1099511628211u;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

namespace {

std::optional<std::string> content(const fs::path &path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return {};
    struct stat status {};
    std::string text;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) text.resize(static_cast<std::size_t>(status.st_size));
    const ssize_t length = read(file, text.data(), text.size());
    close(file);
    if (text.empty() || length != static_cast<ssize_t>(text.size())) return {};
    return text;
}

}  // namespace

std::optional<std::string> load_cached(const std::string &url) {
    const fs::path where = cache_folder();
    if (where.empty()) return {};
    return content(where / ("url-" + fingerprint(url)));
}

std::optional<std::string> load_cached_interface(const std::string &of_interface) {
    const fs::path where = cache_folder();
    if (where.empty() || of_interface.empty()) return {};
    const std::string line = "\n" + Dictionary::line(Dictionary::contract, "fingerprint", Json(of_interface).dump());
    std::error_code ignored;
    for (const auto &entry : fs::directory_iterator(where, ignored)) {
        if (entry.path().extension() != ".dict") continue;
        std::optional<std::string> text = content(entry.path());
        if (text && text->find(line) != std::string::npos) return text;
    }
    return {};
}

std::map<std::string, std::string> load_cached_by_tag() {
    constexpr std::size_t most_kept = 8;  // versions that a lab has at a time
    std::vector<std::pair<fs::file_time_type, fs::path>> files;
    std::error_code ignored;
    if (const fs::path where = cache_folder(); !where.empty())
        for (const auto &entry : fs::directory_iterator(where, ignored))
            if (entry.path().extension() == ".dict") files.emplace_back(entry.last_write_time(ignored), entry.path());
    std::sort(files.begin(), files.end(), std::greater<>());
    files.resize(std::min(files.size(), most_kept));
    const std::string begin = "\n" + Dictionary::line(Dictionary::contract, "tag", "");
    std::map<std::string, std::string> found;
    for (const auto &file : files) {
        std::optional<std::string> text = content(file.second);
        const std::size_t at = text ? text->find(begin.data(), 0, begin.size() - 1) : std::string::npos;
        if (at == std::string::npos) continue;
        const std::size_t from = at + begin.size() - 1;
        const Json tag = Json::parse(text->substr(from, text->find('\n', from) - from), nullptr, false);
        if (tag.is_string()) found.emplace(tag, std::move(*text));
    }
    return found;
}

FetchTurn::FetchTurn(const Connection &connection) {
    constexpr std::chrono::milliseconds longest(5000), pause(10);
    const fs::path where = cache_folder();
    if (where.empty()) return;
    std::error_code ignored;
    fs::create_directories(where, ignored);
    file_ = open((where / "fetching").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    const Clock::time_point until = std::min(connection.until, Clock::now() + longest);
    while (file_ >= 0 && flock(file_, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || Clock::now() >= until || (connection.stop && *connection.stop)) break;
        has_waited_ = true;
        std::this_thread::sleep_for(pause);
    }
}

FetchTurn::~FetchTurn() {
    if (file_ >= 0) close(file_);
}

std::string store_cached(const std::string &url, const std::string &text) {
    const fs::path where = cache_folder();
    if (where.empty()) return "neither XDG_CACHE_HOME nor HOME is set";
    std::error_code failure;
    fs::create_directories(where, failure);
    const std::string name = fingerprint(text) + ".dict", mine = "." + std::to_string(getpid());
    if (content(where / name) == text) {
        fs::last_write_time(where / name, fs::file_time_type::clock::now(), failure);
    } else {
        // Written beside and moved into place, so that another lmqctl sees either the old or the new.
        std::ofstream(where / (name + mine), std::ios::binary) << text << std::flush;
        if (fs::file_size(where / (name + mine), failure) != text.size() || failure) {
            fs::remove(where / (name + mine), failure);
            return where.string() + " cannot be written";
        }
        fs::rename(where / (name + mine), where / name, failure);
    }
    const fs::path link = where / ("url-" + fingerprint(url));
    fs::remove(link.string() + mine, failure);
    fs::create_symlink(name, link.string() + mine, failure);
    if (!failure) fs::rename(link.string() + mine, link, failure);
    return failure ? where.string() + ": " + failure.message() : "";
}

}  // namespace lmqctl
