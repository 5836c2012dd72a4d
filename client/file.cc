// Reading and writing, with the system's own words for what goes wrong.
#include "file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "error.h"

namespace lmqctl {

namespace {

struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

// Whether it is there, and no plain file: a device, a pipe, a folder.
bool is_special(const std::string &file) {
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(file, ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

// Returns 0 or an errno.
int write_to(const std::string &file, const std::string &text) {
    std::FILE *stream = std::fopen(file.c_str(), "we");
    if (!stream) return errno;
    const bool written = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
    const int failure = written ? 0 : errno;
    return std::fclose(stream) != 0 && !failure ? errno : failure;
}

}  // namespace

std::string read_text(const std::string &file) {
    const bool is_input = file == "-";
    const std::unique_ptr<std::FILE, Close> opened(is_input ? nullptr : std::fopen(file.c_str(), "re"));
    std::FILE *stream = is_input ? stdin : opened.get();
    std::string text;
    char buffer[65536];
    errno = stream ? 0 : errno;
    while (stream && !std::feof(stream) && !std::ferror(stream))
        text.append(buffer, std::fread(buffer, 1, sizeof buffer, stream));
    if (!stream || std::ferror(stream))
        throw UsageError("cannot read " + (is_input ? "standard input" : file) + ": " + std::strerror(errno));
    if (is_input) std::clearerr(stdin);
    return text;
}

void check_writable(const std::string &file) {
    const std::size_t slash = file.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash + 1);
    const bool in_place = is_special(file);
    if (access(in_place ? file.c_str() : folder.c_str(), W_OK) != 0)
        throw UsageError("cannot write " + file + ": " + std::strerror(errno));
}

void write_text(const std::string &file, const std::string &text) {
    std::error_code ignored;
    const bool in_place = is_special(file);
    // Where a link leads to, so that it stays one.
    const std::string target = in_place ? file : std::filesystem::weakly_canonical(file, ignored).string();
    const std::string fresh = in_place ? file : target + ".new";
    int failure = write_to(fresh, text);
    if (!in_place && !failure && std::rename(fresh.c_str(), target.c_str()) != 0) failure = errno;
    if (!in_place && failure) unlink(fresh.c_str());
    if (failure) throw Error(exit_output, "cannot write " + file + ": " + std::strerror(failure));
}

}  // namespace lmqctl
