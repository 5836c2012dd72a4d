// A host under valgrind, and a client that sends it calls.
#include "bench/host.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "bench/folder.h"

namespace lmq::bench {

namespace {

namespace fs = std::filesystem;

constexpr int records = 16;  // of vx_flow_us_all_get, as in the cases
constexpr int warm_up = 3;   // calls of each kind, before anything is counted
constexpr int eth_port = 3;  // as in the cases

template <class... T>
std::string call(const std::string &method, const char *format, T... values) {
    Env env;
    xmlrpc_value *parameters = xmlrpc_build_value(env, format, values...);
    env.check(format);
    std::string document = call_document(method, parameters);
    xmlrpc_DECREF(parameters);
    return document;
}

// What brings the simulated chip into the state of the cases.
std::vector<std::string> preparations() {
    std::vector<std::string> calls{call("lmq.lmq_init_system", "({s:i,s:({s:i,s:({s:i})})})", "num_dev", 1, "dev_cfg",
                                        "enbl", 1, "eth_port_cfg", "add_port", 1)};
    for (int i = 0; i < records; ++i)
        calls.push_back(call("lmq.vx_flow_us_add", "(ii{s:i,s:{s:{s:i}}}{}ii)", DEFAULT_DEVICE_ID, eth_port, "key_type",
                             VX_CL_KEY_MAC_VLAN, "key_s", "mac_vlan", "o_vid", i + 1, 0, 0));
    return calls;
}

// A connection that is kept.
class Client {
  public:
    explicit Client(in_port_t port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int on = 1;
        if (socket_ < 0 || setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) != 0 ||
            connect(socket_, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
            throw std::runtime_error("cannot connect to lmq-host");
    }
    ~Client() { close(socket_); }
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    // Makes a call. Returns the document of the answer.
    std::string call(const std::string &document) {
        const std::string request =
            "POST /RPC2 HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Type: text/xml\r\nContent-Length: " +
            std::to_string(document.size()) + "\r\n\r\n" + document;
        for (size_t sent = 0; sent < request.size();) {
            const ssize_t count = send(socket_, request.data() + sent, request.size() - sent, MSG_NOSIGNAL);
            if (count <= 0) throw std::runtime_error("lmq-host takes no call");
            sent += static_cast<size_t>(count);
        }
        constexpr std::string_view end_of_head = "\r\n\r\n", length = "\r\nContent-Length: ";
        std::string answer;
        size_t head = receive(answer).find(end_of_head);
        while (head == std::string::npos) head = receive(answer).find(end_of_head);
        const size_t number = answer.find(length);
        if (!answer.starts_with("HTTP/1.1 200 ") || number > head)
            throw std::runtime_error("lmq-host answers: " + answer);
        head += end_of_head.size();
        const size_t whole = head + std::stoul(answer.substr(number + length.size()));
        while (answer.size() < whole) receive(answer);
        return answer.substr(head);
    }

  private:
    const std::string &receive(std::string &text) const {
        char piece[1 << 16];
        const ssize_t count = recv(socket_, piece, sizeof piece, 0);
        if (count <= 0) throw std::runtime_error("lmq-host does not answer");
        return text.append(piece, static_cast<size_t>(count));
    }

    int socket_;
};

// A host under callgrind.
class Host {
  public:
    Host(const fs::path &program, const fs::path &dump) {
        const std::string words[] = {"valgrind",
                                     "--tool=callgrind",
                                     "--quiet",
                                     "--callgrind-out-file=" + dump.string(),
                                     program.string(),
                                     "--in-process",
                                     "--listen",
                                     "127.0.0.1:0",
                                     "--spin",  // how long it spins depends on the time
                                     "0"};
        std::vector<char *> pointers;
        for (const std::string &word : words) pointers.push_back(const_cast<char *>(word.data()));
        pointers.push_back(nullptr);
        // Callgrind counts a clear or a copy by one instruction of the processor as one for each byte: with these, the
        // C library takes vectors for them.
        setenv("GLIBC_TUNABLES",
               "glibc.cpu.x86_rep_stosb_threshold=1000000000:glibc.cpu.x86_rep_movsb_threshold=1000000000", 1);
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        const int result = posix_spawnp(&process_, "valgrind", &actions, nullptr, pointers.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        std::string line;
        for (char c; result == 0 && line.find('\n') == std::string::npos && read(ends[0], &c, 1) == 1;) line += c;
        close(ends[0]);
        if (result != 0) throw std::runtime_error("valgrind is not installed");
        const size_t colon = line.rfind(':');
        if (!line.starts_with("Listening on ") || colon == std::string::npos) {
            end();
            throw std::runtime_error(program.string() + " does not start under valgrind");
        }
        port = static_cast<in_port_t>(std::stoul(line.substr(colon + 1)));
    }
    ~Host() { end(); }
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    // Ends it; the dump is complete then.
    void end() {
        if (process_ == 0) return;
        kill(process_, SIGTERM);
        waitpid(std::exchange(process_, 0), nullptr, 0);
    }

    in_port_t port = 0;

  private:
    pid_t process_ = 0;
};

double instructions_in(const fs::path &dump) {
    constexpr std::string_view totals = "totals: ";
    std::ifstream in(dump);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with(totals)) return std::stod(line.substr(totals.size()));
    throw std::runtime_error("valgrind has not counted " + dump.string());
}

// All instructions of a host that is prepared, gets a few calls of each kind, and `count` of one kind in addition.
double run(const fs::path &program, const std::vector<HostCall> &calls, const HostCall *one) {
    const Folder folder;
    const fs::path dump = folder.path() / "host";
    Host host(program, dump);
    {
        Client client(host.port);
        for (const std::string &document : preparations()) client.call(document);
        for (const HostCall &each : calls)
            for (int i = 0; i < warm_up; ++i) client.call(each.document);
        for (int i = 0; one && i < one->count; ++i) client.call(one->document);
    }
    host.end();
    return instructions_in(dump);
}

}  // namespace

std::vector<HostCall> make_host_calls(const std::vector<Case> &cases) {
    const auto document = [&](const std::string &name) {
        for (const Case &one : cases)
            if (one.name == name) return one.document;
        throw std::runtime_error("there is no case " + name);
    };
    return {
        {"small call", call("lmq.vx_watchdog_get", "(i{})", DEFAULT_DEVICE_ID), 500, 50'600, ""},
        {"refused call", document("vx_reset"), 500, 28'100, "vx_reset"},
        {"refused argument",
         call("lmq.vx_rate_global_policer_set", "(i{s:i})", DEFAULT_DEVICE_ID, "tail_drp_sel", VX_POL_GLOBAL + 1), 500,
         39'940, ""},
        {"refused port", call("lmq.vx_mcast_vlan_add", "(iii)", DEFAULT_DEVICE_ID, LMQ_INVALID_ID8, 1), 500, 31'900,
         ""},
        {"57 kB echo", document("lmq_init_system"), 20, 6'025'000, "lmq_init_system"},
        {"16 flow records", document("vx_flow_us_all_get"), 6, 19'910'000, "vx_flow_us_all_get"},
    };
}

std::vector<double> count_in_host(const fs::path &program, const std::vector<HostCall> &calls) {
    const double start = run(program, calls, nullptr);
    std::vector<double> counts;
    counts.reserve(calls.size());
    for (const HostCall &one : calls) counts.push_back((run(program, calls, &one) - start) / one.count);
    return counts;
}

}  // namespace lmq::bench
