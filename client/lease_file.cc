// Where the tokens are, and their files.
#include "lease_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "cache.h"
#include "error.h"

namespace lmqctl {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longest_token = 200;

// The folder that goes with the login, if there is one: a lease is of no use behind it.
fs::path folder() {
    const char *runtime = std::getenv("XDG_RUNTIME_DIR");
    return runtime && *runtime == '/' ? fs::path(runtime) / "lmqctl" : cache_folder();
}

fs::path file_of(const std::string &url) {
    const fs::path where = folder();
    return where.empty() ? fs::path() : where / ("lease-" + fingerprint(url));
}

}  // namespace

std::string kept_lease(const std::string &url) {
    const int file = open(file_of(url).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) return "";
    struct stat status {};
    char text[longest_token];
    ssize_t length = 0;
    // One that others may write to is not this user's word.
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
        (status.st_mode & 077) == 0)
        length = read(file, text, sizeof text);
    close(file);
    const std::string token(text, static_cast<std::size_t>(length > 0 ? length : 0));
    return token.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos ? token : "";
}

void keep_lease(const std::string &url, const std::string &token) {
    const fs::path file = file_of(url);
    if (file.empty())
        throw Error(exit_output, "the lease cannot be kept: neither XDG_RUNTIME_DIR, XDG_CACHE_HOME nor HOME is set");
    unlink(file.c_str());
    if (token.empty()) return;
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const bool is_written =
        descriptor >= 0 && write(descriptor, token.data(), token.size()) == static_cast<ssize_t>(token.size());
    const int failure = errno;
    if (descriptor >= 0) close(descriptor);
    if (!is_written)
        throw Error(exit_output, "the lease cannot be kept: " + file.string() + ": " + std::strerror(failure));
}

}  // namespace lmqctl
