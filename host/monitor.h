// What can be watched: the counters behind GET /metrics, and a line for each call in the access log.
#ifndef LMQ_HOST_MONITOR_H
#define LMQ_HOST_MONITOR_H

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "backend.h"

namespace lmq::host {

/** One request that has been answered, as the access log tells of it. */
struct Served {
    /** Address of the client; "unix" for a Unix socket. */
    std::string_view peer;
    /** Empty if nobody logged in. */
    std::string_view user;
    /** As far as the document was read; empty for a request that is no call. */
    std::string_view method;
    unsigned status;
    /** Of the answer; 0 if it is none. */
    int fault;
    /** What the driver returned, if the method returns a status. */
    bool has_driver_status;
    int driver_status;
    /** From the last byte of the request to the answer. */
    std::chrono::microseconds time;
};

class Monitor {
  public:
    enum class Format { text, json };

    /**
     * @param log    A file that lines are added to; "-" for standard error; empty for none.
     * @throws std::runtime_error if the file cannot be opened.
     */
    Monitor(const std::string &log, Format format);

    void served(const Served &request);

    /** The counters in the text format of Prometheus. */
    std::string metrics(const Backend::State &backend, std::size_t connections, std::size_t waiting) const;

  private:
    static constexpr std::size_t buckets = 8;

    void write_text(const Served &request);
    void write_json(const Served &request);

    struct Close {
        void operator()(std::FILE *file) const {
            if (file != stderr) std::fclose(file);
        }
    };

    std::unique_ptr<std::FILE, Close> log_;
    Format format_;
    std::map<unsigned, std::uint64_t> by_status_;
    std::map<int, std::uint64_t> by_fault_;
    std::map<std::string, std::uint64_t> by_driver_status_;
    std::array<std::uint64_t, buckets> latency_{};
    std::uint64_t calls_ = 0;
    double seconds_ = 0;
};

/**
 * The status that a driver function returned: the first value of the answer's array, if it is an int.
 * @return Whether there is one.
 */
bool driver_status(std::string_view answer, int &status);

}  // namespace lmq::host

#endif
