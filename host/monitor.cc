// The counters and their text, and the two forms of a log line. Labels come from closed sets only (numbers that the
// host, the XML-RPC library and the driver answer with): names that clients make up would fill the memory of whoever
// collects.
#include "monitor.h"

#include <unistd.h>

#include <cerrno>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <system_error>

#include "process.h"
#include "status_name.h"
#include "timestamp.h"
#include "tls.h"

namespace lmq::host {
namespace {

/// Upper ends of the latency histogram in seconds; one more stands for all above.
constexpr std::array<double, 7> bounds = {0.0001, 0.0005, 0.001, 0.01, 0.1, 1, 10};

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

/// Text of a client for a line whose columns end at blanks: what is no printable sign of ASCII stands as %XX.
std::string column(std::string_view text) {
    constexpr std::size_t most = 200;
    if (text.empty()) return "-";
    std::string result;
    for (const char c : text.substr(0, most)) {
        if (c > ' ' && c < '\x7f' && c != '%') {
            result += c;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
            result += code;
        }
    }
    return result + (text.size() > most ? "..." : "");
}

/// One family of metrics.
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

Monitor::Monitor(const std::string &log, Format format) : path_(log), format_(format) { reopen(); }

void Monitor::reopen() {
    if (path_.empty()) return;
    std::FILE *file = path_ == "-" ? stderr : std::fopen(path_.c_str(), "ae");
    if (file == nullptr) {
        throw std::runtime_error("cannot open the access log '" + path_ +
                                 "': " + std::generic_category().message(errno));
    }
    log_.reset(file);
}

void Monitor::know(const std::vector<Method> &methods) {
    for (const Method &method : methods) {
        auto &entry = *by_method_.try_emplace(method.name).first;
        registered_[entry.first] = &entry.second;
    }
}

Monitor::Counts &Monitor::count(std::string_view method, const Result &result) {
    const auto known = registered_.find(method);
    Counts &counts = known == registered_.end() ? by_method_[""] : *known->second;
    ++counts.calls;
    if (result.fault != 0) {
        ++counts.faults;
        ++by_fault_[result.fault];
    }
    if (result.driver_status) {
        const std::string_view name = status_name(*result.driver_status);
        const std::string label(name.empty() ? "other" : name);
        ++by_driver_status_[label];
        ++counts.statuses[label];
    }
    return counts;
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
        count(request.method, request.result).seconds += seconds;
    } else if (request.result.fault != 0) {
        ++by_fault_[request.result.fault];
    }
    write(request, false);
}

void Monitor::served_inner(const Served &request, const std::string &method, const Result &result) {
    count(method, result);
    Served inner = request;
    inner.method = method;
    inner.result = result;
    write(inner, true);
}

void Monitor::write(const Served &request, bool is_inner) {
    if (log_ == nullptr) return;
    const std::string line = format_ == Format::json ? json_line(request, is_inner) : text_line(request, is_inner);
    std::fputs((line + "\n").c_str(), log_.get());
    std::fflush(log_.get());
}

std::string Monitor::text_line(const Served &request, bool is_inner) const {
    std::string line = timestamp() + " " + column(request.peer) + " " + column(request.user) + " " +
                       column(request.method.empty() ? request.request : request.method) + " " +
                       std::to_string(request.status);
    if (request.result.fault != 0) line += " fault=" + std::to_string(request.result.fault);
    if (request.result.driver_status) {
        const std::string_view name = status_name(*request.result.driver_status);
        line += " driver=" + (name.empty() ? std::to_string(*request.result.driver_status) : std::string(name));
    }
    // Of the calls in a system.multicall only the time of all is known.
    return line +
           (is_inner ? " in=system.multicall" : " " + number(static_cast<double>(request.time.count()) / 1000) + "ms");
}

std::string Monitor::json_line(const Served &request, bool is_inner) const {
    nlohmann::ordered_json line;
    line["time"] = timestamp();
    line["peer"] = request.peer;
    if (!request.user.empty()) line["user"] = request.user;
    if (!request.method.empty()) line["method"] = request.method;
    if (request.method.empty() && !request.request.empty()) line["request"] = request.request;
    if (is_inner) line["in"] = "system.multicall";
    line["status"] = request.status;
    if (request.result.fault != 0) line["fault"] = request.result.fault;
    if (request.result.driver_status) {
        line["driver"] = *request.result.driver_status;
        const std::string_view name = status_name(*request.result.driver_status);
        if (!name.empty()) line["driver_name"] = name;
    }
    if (!is_inner) line["ms"] = static_cast<double>(request.time.count()) / 1000;
    return line.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace);
}

void Monitor::add_methods(std::string &text) const {
    const auto label = [](const std::string &method) {
        return "{method=\"" + (method.empty() ? "other" : method) + "\"";
    };
    const auto each = [&](const char *name, const char *help, auto value) {
        Family family(text, name, "counter", help);
        for (const auto &[method, counts] : by_method_) {
            if (counts.calls > 0) family.add(label(method) + "}", value(counts));
        }
    };
    each("lmq_method_calls_total", "Calls by method, those in a system.multicall included.",
         [](const Counts &counts) { return std::to_string(counts.calls); });
    each("lmq_method_faults_total", "Faults by method.",
         [](const Counts &counts) { return std::to_string(counts.faults); });
    each("lmq_method_seconds_total", "Time by method, without that of calls in a system.multicall.",
         [](const Counts &counts) { return number(counts.seconds); });
    Family family(text, "lmq_method_driver_statuses_total", "counter", "Results of driver functions by method.");
    for (const auto &[method, counts] : by_method_) {
        for (const auto &[status, count] : counts.statuses) {
            family.add(label(method) + ",status=\"" + status + "\"}", std::to_string(count));
        }
    }
}

std::string Monitor::metrics(const Backend::State &backend, const Now &now) const {
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
    one("lmq_output_dropped_bytes_total", "counter", "What the driver printed and nobody took.", backend.dropped);
    one("lmq_connections", "gauge", "Open connections.", now.connections);
    one("lmq_waiting_calls", "gauge", "Calls that wait for their turn.", now.waiting);
    one("lmq_worker_up", "gauge", "Whether calls can be carried out.", now.is_worker_up ? 1 : 0);
    Family(text, "lmq_call_age_seconds", "gauge", "Of the call that the driver has in hand.")
        .add("", number(static_cast<double>(now.age.count()) / 1000));
    if (certificate_expiry() > 0) {
        one("lmq_certificate_expiry_seconds", "gauge", "When the certificate ends, in seconds since 1970.",
            static_cast<std::uint64_t>(certificate_expiry()));
    }
    Family(text, "lmq_build_info", "gauge", "The version.").add("{version=\"" LMQ_HOST_VERSION "\"}", "1");
    add_methods(text);
    return text;
}

}  // namespace lmq::host
