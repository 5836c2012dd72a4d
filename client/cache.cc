// The cache folder.
#include "cache.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "dictionary.h"

namespace lmqctl {

namespace {

namespace fs = std::filesystem;

fs::path folder() {
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
    const fs::path where = folder();
    if (where.empty()) return {};
    return content(where / ("url-" + fingerprint(url)));
}

std::optional<std::string> load_cached_interface(const std::string &of_interface) {
    const fs::path where = folder();
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

std::string store_cached(const std::string &url, const std::string &text) {
    const fs::path where = folder();
    if (where.empty()) return "neither XDG_CACHE_HOME nor HOME is set";
    std::error_code failure;
    fs::create_directories(where, failure);
    const std::string name = fingerprint(text) + ".dict", mine = "." + std::to_string(getpid());
    // Written beside and moved into place, so that another lmqctl sees either the old or the new.
    std::ofstream(where / (name + mine), std::ios::binary) << text << std::flush;
    if (fs::file_size(where / (name + mine), failure) != text.size() || failure) {
        fs::remove(where / (name + mine), failure);
        return where.string() + " cannot be written";
    }
    fs::rename(where / (name + mine), where / name, failure);
    const fs::path link = where / ("url-" + fingerprint(url));
    fs::remove(link.string() + mine, failure);
    fs::create_symlink(name, link.string() + mine, failure);
    if (!failure) fs::rename(link.string() + mine, link, failure);
    return failure ? where.string() + ": " + failure.message() : "";
}

}  // namespace lmqctl
