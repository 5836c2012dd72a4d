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
#include <optional>
#include <sstream>
#include <string_view>

#include "backtrace.h"
#include "board.h"
#include "frame.h"
#include "heap_gauge.h"
#include "service.h"
#include "spinner.h"

namespace lmq::host {
namespace {

constexpr char introspection_sign = '?', other_sign = '!';

/// The worker's end of the line to the front.
class Line {
  public:
    /// What the front asks for. The text lasts until the next one.
    struct Request {
        FrameHead head;
        std::string_view text;
    };

    Line(int socket, Board &board, const WorkerPlan &plan)
        : socket_(socket), board_(board), reader_(plan.max_call), spinner_(std::chrono::microseconds(plan.spin)) {}

    /// Waits for the call of this number.
    /// @param is_busy Whether to sleep at once.
    /// @return Nothing if nobody is at the other end.
    std::optional<Request> take(std::uint64_t number, bool is_busy) {
        const Slots &calls = board_.calls();
        if (has_taken_) reader_.next();
        has_taken_ = false;
        while (!calls.has(number)) {
            if (reader_.state() == FrameReader::State::broken || !is_open_) return std::nullopt;
            if (reader_.state() == FrameReader::State::complete) {
                if (reader_.head().kind != FrameKind::bell) {
                    has_taken_ = true;
                    return Request{reader_.head(), reader_.text()};
                }
                reader_.next();
            } else if (reader_.has_begun()) {
                read(0);
            } else {
                wait(number, is_busy);
            }
        }
        const FrameHead head = calls.head(number);
        return Request{head, calls.text(number, static_cast<std::size_t>(head.size))};
    }

    /// @return False if nobody is at the other end.
    bool send(const FrameHead &head, std::string_view text) {
        Slots &answers = board_.answers();
        FrameWriter writer;
        if (head.number == 0 || !answers.put(head, text)) {
            writer.begin(head, text);
        } else if (answers.wants_bell()) {
            writer.begin(bell, {});
        }
        return writer.send(socket_, 0);
    }

  private:
    void read(int flags) {
        const ssize_t count = recv(socket_, reader_.space(), reader_.room(), flags);
        if (count > 0) reader_.take(static_cast<std::size_t>(count));
        is_open_ = count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
    }

    void wait(std::uint64_t number, bool is_busy) {
        Slots &calls = board_.calls();
        const auto look = [&] {
            if (calls.has(number)) return true;
            read(MSG_DONTWAIT);
            return reader_.has_begun() || !is_open_;
        };
        const auto sleep = [&] {
            calls.sleep(true);
            if (!calls.has(number)) read(0);
            calls.sleep(false);
        };
        spinner_.wait(look, sleep, is_busy);
    }

    int socket_;
    Board &board_;
    FrameReader reader_;
    /// Whether the frame in it has been given out.
    bool has_taken_ = false;
    bool is_open_ = true;
    Spinner spinner_;
};

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
Done carry_out(Line &line, const Call &call, const Line::Request &request, std::size_t max_answer) {
    FrameHead head{.kind = FrameKind::answer, .number = request.head.number, .size = 0};
    const auto begun = std::chrono::steady_clock::now().time_since_epoch();
    head.begun = std::chrono::duration_cast<std::chrono::nanoseconds>(begun).count();
    std::string text;
    try {
        text = call(request.text);
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
    return {line.send(head, text), head.has_printed != 0};
}

}  // namespace

void work(int socket, Board &board, const WorkerPlan &plan) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    print_backtraces();
    board.keep_from_children();
    Line line(socket, board, plan);
    Service service;
    try {
        service = load_service(plan.driver, plan.plugin, plan.max_call);
    } catch (const std::exception &error) {
        line.send({.kind = FrameKind::failed, .number = 0, .size = 0}, error.what());
        return;
    }
    Done last{line.send({.kind = FrameKind::ready, .number = 0, .size = 0}, text_of(service.methods)), false};
    HeapGauge gauge;
    bool is_next = false;
    for (std::uint64_t number = plan.first_call; last.is_sent; ++number) {
        const auto request = line.take(number, is_next);
        if (!request) return;
        is_next = request->head.kind == FrameKind::next;
        // What the call before has printed is its own: the front reads it before it hands over a call alone.
        if ((last.has_printed && is_next) || !board.begin(number)) {
            last.is_sent = line.send({.kind = FrameKind::declined, .number = number, .size = 0}, "");
        } else {
            last = carry_out(line, service.call, *request, plan.max_answer);
            gauge.note();
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
