// Reading of /proc, and the limit of descriptors.
#include "process.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace lmq::host {

std::size_t resident_bytes(pid_t pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/statm");
    std::size_t total = 0, resident = 0;
    file >> total >> resident;
    return file ? resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) : 0;
}

std::size_t open_descriptors(pid_t pid) {
    std::error_code error;
    const std::filesystem::directory_iterator folder("/proc/" + std::to_string(pid) + "/fd", error);
    return error ? 0 : static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
}

std::size_t raise_descriptor_limit() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    getrlimit(RLIMIT_NOFILE, &limit);
    return limit.rlim_cur;
}

}  // namespace lmq::host
