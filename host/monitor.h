// What can be watched: the counters behind GET /metrics, and a line for each call in the access log.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "answer.h"
#include "backend.h"

namespace lmq::host {

/// One request that has been answered, as the access log shows it.
struct Served {
    /// Address of the client; "unix" for a Unix socket.
    std::string_view peer;
    /// Empty if nobody logged in.
    std::string_view user;
    /// As far as the document was read; empty for a request that is no call.
    std::string_view method;
    /// The method of HTTP and the path, of a request that is no call. What a client sent stands there as it came.
    std::string_view request;
    unsigned status;
    Result result;
    /// From the last byte of the request to the answer.
    std::chrono::microseconds time;
};

class Monitor {
  public:
    enum class Format { text, json };

    /// @param log    A file that lines are added to; "-" for standard error; empty for none.
    /// @throws std::runtime_error if the file cannot be opened.
    Monitor(const std::string &log, Format format);

    /// Opens the log anew, after somebody has moved it away.
    /// @throws std::runtime_error if that does not go; the old one stays open.
    void reopen();

    /// Says which methods there are. Only those are counted each on its own: others are what clients make up.
    void know(const std::vector<Method> &methods);

    void served(const Served &request);

    /// Says what came of a call in a system.multicall.
    /// @param request The system.multicall.
    void served_inner(const Served &request, const std::string &method, const Result &result);

    /// What is so at this moment.
    struct Now {
        bool is_worker_up;
        std::size_t connections, waiting;
        /// Of the call in hand.
        std::chrono::milliseconds age;
    };

    /// The counters in the text format of Prometheus.
    std::string metrics(const Backend::State &backend, const Now &now) const;

  private:
    static constexpr std::size_t buckets = 8;

    /// What came of one method's calls.
    struct Counts {
        std::uint64_t calls = 0, faults = 0;
        double seconds = 0;
        std::map<std::string, std::uint64_t> statuses;
    };

    Counts &count(std::string_view method, const Result &result);
    void write(const Served &request, bool is_inner);
    std::string text_line(const Served &request, bool is_inner) const;
    std::string json_line(const Served &request, bool is_inner) const;
    void add_methods(std::string &text) const;

    struct Close {
        void operator()(std::FILE *file) const {
            if (file != stderr) std::fclose(file);
        }
    };

    std::string path_;
    std::unique_ptr<std::FILE, Close> log_;
    Format format_;
    std::map<unsigned, std::uint64_t> by_status_;
    std::map<int, std::uint64_t> by_fault_;
    std::map<std::string, std::uint64_t> by_driver_status_;
    std::array<std::uint64_t, buckets> latency_{};
    std::uint64_t calls_ = 0;
    double seconds_ = 0;
    /// By the known methods; the empty name stands for all others.
    std::map<std::string, Counts, std::less<>> by_method_;
    /// The same of the methods that are registered, for a call to find at once.
    std::unordered_map<std::string_view, Counts *> registered_;
};

}  // namespace lmq::host
