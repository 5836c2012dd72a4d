// The loop of the worker.
#include "worker_process.h"

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <sstream>
#include <string_view>

#include "backtrace.h"
#include "frame.h"
#include "service.h"
#include "spinner.h"

namespace lmq::host {
namespace {

constexpr char introspection_sign = '?', other_sign = '!';

/// Reads a frame, of which some may have arrived already.
/// @param spinner Asks for the first bytes before the process goes to sleep over them, unless the host is busy.
/// @return False if nobody is at the other end.
bool read_frame(int socket, FrameReader &reader, Spinner &spinner, bool is_busy) {
    bool open = true;
    const auto take = [&](int flags) {
        const ssize_t count = recv(socket, reader.space(), reader.room(), flags);
        if (count > 0) reader.take(static_cast<std::size_t>(count));
        open = count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
    };
    const auto look = [&] {
        take(MSG_DONTWAIT);
        return reader.has_begun() || !open;
    };
    if (!reader.has_begun()) {
        const auto sleep = [&] {
            while (open && !reader.has_begun()) take(0);
        };
        spinner.wait(look, sleep, is_busy);
    }
    while (open && reader.state() == FrameReader::State::incomplete) take(0);
    return reader.state() == FrameReader::State::complete;
}

bool write_frame(int socket, const FrameHead &head, std::string_view text) {
    FrameWriter writer;
    writer.begin(head, text);
    return writer.send(socket, 0);
}

/// Whether the front has not read all yet that this process and those before it have printed.
bool is_output_waiting() {
    return std::ranges::any_of(std::array{STDOUT_FILENO, STDERR_FILENO}, [](int descriptor) {
        int bytes = 0;
        return ioctl(descriptor, FIONREAD, &bytes) == 0 && bytes > 0;
    });
}

/// Makes a call and answers it.
/// @return Whether somebody is at the other end, and whether what was printed waits to be read.
struct Done {
    bool is_sent, has_printed;
};
Done carry_out(int socket, const Call &call, const FrameReader &reader, std::size_t max_answer) {
    FrameHead head{.kind = FrameKind::answer, .number = reader.head().number, .size = 0};
    const auto begun = std::chrono::steady_clock::now().time_since_epoch();
    head.begun = std::chrono::duration_cast<std::chrono::nanoseconds>(begun).count();
    std::string text;
    try {
        text = call(reader.text());
        if (text.size() > max_answer) {
            throw std::runtime_error("The answer is longer than " + std::to_string(max_answer) + " bytes.");
        }
    } catch (const std::exception &error) {
        head.kind = FrameKind::unanswerable;
        text = error.what();
    }
    // What a call printed is to be there before its answer.
    std::fflush(nullptr);
    head.has_printed = is_output_waiting() ? 1 : 0;
    return {write_frame(socket, head, text), head.has_printed != 0};
}

}  // namespace

void work(int socket, CallMark &mark, const WorkerPlan &plan) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    print_backtraces();
    Service service;
    try {
        service = load_service(plan.driver, plan.plugin, plan.max_call);
    } catch (const std::exception &error) {
        write_frame(socket, {.kind = FrameKind::failed, .number = 0, .size = 0}, error.what());
        return;
    }
    const FrameHead ready{.kind = FrameKind::ready, .number = 0, .size = 0};
    if (!write_frame(socket, ready, text_of(service.methods))) return;
    Spinner spinner{std::chrono::microseconds(plan.spin)};
    Done last{true, false};
    bool is_next = false;
    for (FrameReader reader(plan.max_call); last.is_sent && read_frame(socket, reader, spinner, is_next);
         reader.next()) {
        const std::uint64_t number = reader.head().number;
        is_next = reader.head().kind == FrameKind::next;
        // What the call before has printed is its own: the front reads it before it hands over a call alone.
        if ((last.has_printed && is_next) || !mark.begin(number)) {
            last.is_sent = write_frame(socket, {.kind = FrameKind::declined, .number = number, .size = 0}, "");
        } else {
            last = carry_out(socket, service.call, reader, plan.max_answer);
        }
    }
}

std::string text_of(const std::vector<Method> &methods) {
    std::string text;
    for (const Method &method : methods) {
        text.append(1, method.is_introspection ? introspection_sign : other_sign).append(method.name).append("\n");
    }
    return text;
}

std::vector<Method> methods_of(const std::string &text) {
    std::vector<Method> methods;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) methods.push_back({line.substr(1), line.front() == introspection_sign});
    }
    return methods;
}

}  // namespace lmq::host
