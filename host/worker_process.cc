// The loop of the worker.
#include "worker_process.h"

#include <sys/socket.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <sstream>
#include <string_view>

#include "backtrace.h"
#include "frame.h"
#include "heap_gauge.h"
#include "service.h"
#include "spinner.h"

namespace lmq::host {
namespace {

constexpr char introspection_sign = '?', other_sign = '!';

/// Reads a frame.
/// @param spinner Asks for the first bytes before the process goes to sleep over them.
/// @return False if nobody is at the other end.
bool read_frame(int socket, FrameReader &reader, Spinner &spinner) {
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
    spinner.wait(look, [&] {
        while (open && !reader.has_begun()) take(0);
    });
    while (open && reader.state() == FrameReader::State::incomplete) take(0);
    return reader.state() == FrameReader::State::complete;
}

bool write_frame(int socket, FrameKind kind, std::uint64_t number, std::string_view text) {
    FrameWriter writer;
    writer.begin(kind, number, text);
    return writer.send(socket, 0);
}

/// Makes the call of a frame and sends its answer.
/// @return False if nobody is at the other end.
bool carry_out(int socket, const FrameReader &frame, const Service &service, const WorkerPlan &plan) {
    FrameKind kind = FrameKind::answer;
    std::string text;
    try {
        text = service.call(frame.text());
        // What a call printed is to be there before its answer.
        std::fflush(nullptr);
        if (text.size() > plan.max_answer) {
            throw std::runtime_error("The answer is longer than " + std::to_string(plan.max_answer) + " bytes.");
        }
    } catch (const std::exception &error) {
        kind = FrameKind::unanswerable;
        text = error.what();
    }
    return write_frame(socket, kind, frame.head().number, text);
}

}  // namespace

void work(int socket, const WorkerPlan &plan) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    print_backtraces();
    Service service;
    try {
        service = load_service(plan.driver, plan.plugin, plan.max_call);
    } catch (const std::exception &error) {
        write_frame(socket, FrameKind::failed, 0, error.what());
        return;
    }
    if (!write_frame(socket, FrameKind::ready, 0, text_of(service.methods))) return;
    Spinner spinner{std::chrono::microseconds(plan.spin)};
    HeapGauge gauge;
    for (FrameReader reader(plan.max_call); read_frame(socket, reader, spinner);) {
        if (!carry_out(socket, reader, service, plan)) return;
        reader.reset();
        gauge.note();
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
