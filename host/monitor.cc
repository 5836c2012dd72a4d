// The counters and their text, and the two forms of a log line. Labels come from closed sets only (numbers that the
// host, the XML-RPC library and the driver answer with): names that clients make up would fill the memory of whoever
// collects.
#include "monitor.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <ctime>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <system_error>

#include "process.h"
#include "status_name.h"

namespace lmq::host {
namespace {

/** Upper ends of the latency histogram in seconds; one more stands for all above. */
constexpr std::array<double, 7> bounds = {0.0001, 0.0005, 0.001, 0.01, 0.1, 1, 10};

std::string now() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    tm parts{};
    gmtime_r(&time.tv_sec, &parts);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03ldZ", time.tv_nsec / 1000000);
    return text;
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

/** One family of metrics. */
class Family {
  public:
    Family(std::string &to, std::string name, const char *type, const char *help) : to_(to), name_(std::move(name)) {
        to_ += "# HELP " + name_ + " " + help + "\n# TYPE " + name_ + " " + type + "\n";
    }
    void add(const std::string &labels, const std::string &value, const char *suffix = "") {
        to_ += name_ + suffix + labels + " " + value + "\n";
    }
    template <class Key>
    void add(const char *label, const std::map<Key, std::uint64_t> &values) {
        for (const auto &[key, value] : values) {
            add(std::string("{") + label + "=\"" + label_text(key) + "\"}", std::to_string(value));
        }
    }

  private:
    static std::string label_text(const std::string &key) { return key; }
    template <class Number>
    static std::string label_text(Number key) {
        return std::to_string(key);
    }

    std::string &to_;
    std::string name_;
};

}  // namespace

Monitor::Monitor(const std::string &log, Format format) : format_(format) {
    if (log.empty()) return;
    log_.reset(log == "-" ? stderr : std::fopen(log.c_str(), "ae"));
    if (log_ == nullptr) {
        throw std::runtime_error("cannot open the access log '" + log + "': " + std::generic_category().message(errno));
    }
}

void Monitor::served(const Served &request) {
    ++by_status_[request.status];
    if (!request.method.empty()) {
        ++calls_;
        const double seconds = static_cast<double>(request.time.count()) / 1e6;
        seconds_ += seconds;
        std::size_t bucket = 0;
        while (bucket < bounds.size() && seconds > bounds[bucket]) ++bucket;
        ++latency_[bucket];
    }
    if (request.fault != 0) ++by_fault_[request.fault];
    if (request.has_driver_status) {
        const std::string_view name = status_name(request.driver_status);
        ++by_driver_status_[std::string(name.empty() ? "other" : name)];
    }
    if (log_ == nullptr) return;
    if (format_ == Format::json) {
        write_json(request);
    } else {
        write_text(request);
    }
    std::fflush(log_.get());
}

void Monitor::write_text(const Served &request) {
    const auto shown = [](std::string_view text) { return text.empty() ? std::string("-") : std::string(text); };
    std::string line = now() + " " + shown(request.peer) + " " + shown(request.user) + " " + shown(request.method) +
                       " " + std::to_string(request.status);
    if (request.fault != 0) line += " fault=" + std::to_string(request.fault);
    if (request.has_driver_status) {
        const std::string_view name = status_name(request.driver_status);
        line += " driver=" + (name.empty() ? std::to_string(request.driver_status) : std::string(name));
    }
    line += " " + number(static_cast<double>(request.time.count()) / 1000) + "ms\n";
    std::fputs(line.c_str(), log_.get());
}

void Monitor::write_json(const Served &request) {
    nlohmann::ordered_json line;
    line["time"] = now();
    line["peer"] = request.peer;
    if (!request.user.empty()) line["user"] = request.user;
    if (!request.method.empty()) line["method"] = request.method;
    line["status"] = request.status;
    if (request.fault != 0) line["fault"] = request.fault;
    if (request.has_driver_status) {
        line["driver"] = request.driver_status;
        const std::string_view name = status_name(request.driver_status);
        if (!name.empty()) line["driver_name"] = name;
    }
    line["ms"] = static_cast<double>(request.time.count()) / 1000;
    std::fputs((line.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace) + "\n").c_str(), log_.get());
}

std::string Monitor::metrics(const Backend::State &backend, std::size_t connections, std::size_t waiting) const {
    std::string text;
    Family(text, "lmq_http_responses_total", "counter", "Answered requests by HTTP status.").add("status", by_status_);
    Family(text, "lmq_faults_total", "counter", "Faults by code.").add("code", by_fault_);
    Family(text, "lmq_driver_statuses_total", "counter", "Results of driver functions by name.")
        .add("status", by_driver_status_);
    {
        Family latency(text, "lmq_call_seconds", "histogram", "From the end of a call's document to its answer.");
        std::uint64_t sum = 0;
        for (std::size_t n = 0; n < bounds.size(); ++n) {
            sum += latency_[n];
            latency.add("{le=\"" + number(bounds[n]) + "\"}", std::to_string(sum), "_bucket");
        }
        latency.add("{le=\"+Inf\"}", std::to_string(calls_), "_bucket");
        latency.add("", number(seconds_), "_sum");
        latency.add("", std::to_string(calls_), "_count");
    }
    const auto one = [&](const char *name, const char *type, const char *help, std::uint64_t value) {
        Family(text, name, type, help).add("", std::to_string(value));
    };
    one("lmq_worker_restarts_total", "counter", "Workers that died.", backend.restarts);
    one("lmq_worker_recycled_total", "counter", "Workers that were replaced for their size.", backend.recycled);
    one("lmq_worker_resident_bytes", "gauge", "Memory of the process that holds the driver.",
        backend.pid > 0 ? resident_bytes(backend.pid) : 0);
    one("lmq_host_resident_bytes", "gauge", "Memory of the process that holds the sockets.", resident_bytes(getpid()));
    one("lmq_host_open_descriptors", "gauge", "Open descriptors.", open_descriptors(getpid()));
    one("lmq_connections", "gauge", "Open connections.", connections);
    one("lmq_waiting_calls", "gauge", "Calls that wait for their turn.", waiting);
    return text;
}

bool driver_status(std::string_view answer, int &status) {
    const std::string_view head = answer.substr(0, 256);
    std::size_t at = head.find("<params>");
    for (const std::string_view tag : {"<param>", "<value>", "<array>", "<data>", "<value>", "<i4>"}) {
        if (at == std::string_view::npos) return false;
        at = head.find_first_not_of("\r\n \t", head.find('>', at) + 1);
        if (at == std::string_view::npos || !head.substr(at).starts_with(tag)) return false;
    }
    at += std::string_view("<i4>").size();
    return std::from_chars(head.data() + at, head.data() + head.size(), status).ec == std::errc();
}

}  // namespace lmq::host
