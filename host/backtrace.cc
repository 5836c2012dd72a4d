// The signal handler, which finds memory that may be damaged: it allocates nothing, and has a stack of its own for the
// case that the driver has used up the usual one.
#include "backtrace.h"

#ifdef LMQ_HOST_BACKTRACE
#include <execinfo.h>
#include <signal.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace lmq::host {
namespace {

constexpr std::array crashes = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr int most_frames = 64;

/// The unwinder needs some kilobytes, and more on its first visit to a library.
alignas(16) std::byte own_stack[std::size_t{64} << 10];

/// Whoever finds a lock held for ever is ended all the same.
constexpr unsigned seconds_to_print = 5;

/// Where the process was, and who called it if that is in a register: enough to go on with where a library has no
/// tables for the unwinder.
std::array<void *, 2> registers(const ucontext_t &context) {
    const auto &machine = context.uc_mcontext;
#if defined(__x86_64__)
    return {reinterpret_cast<void *>(machine.gregs[REG_RIP]), nullptr};
#elif defined(__i386__)
    return {reinterpret_cast<void *>(machine.gregs[REG_EIP]), nullptr};
#elif defined(__arm__)
    return {reinterpret_cast<void *>(machine.arm_pc), reinterpret_cast<void *>(machine.arm_lr)};
#elif defined(__aarch64__)
    return {reinterpret_cast<void *>(machine.pc), reinterpret_cast<void *>(machine.regs[30])};
#else
    static_cast<void>(machine);
    return {nullptr, nullptr};
#endif
}

void on_crash(int number, siginfo_t *info, void *context) {
    alarm(seconds_to_print);
    char line[128];
    const char *name = sigabbrev_np(number);
    const int length =
        info->si_code > 0 && number != SIGABRT
            ? std::snprintf(line, sizeof line, "SIG%s at address %p in:\n", name == nullptr ? "?" : name, info->si_addr)
            : std::snprintf(line, sizeof line, "SIG%s in:\n", name == nullptr ? "?" : name);
    static_cast<void>(write(STDERR_FILENO, line, static_cast<std::size_t>(std::max(length, 0))) < 0);
    void *frames[most_frames];
    void **const end = frames + std::max(backtrace(frames, most_frames), 0);
    const auto [here, caller] = registers(*static_cast<const ucontext_t *>(context));
    // Above the place of the crash are this function and the system's way into it.
    void **const from = std::find(frames, end, here);
    if (from != end) {
        backtrace_symbols_fd(from, static_cast<int>(end - from), STDERR_FILENO);
    } else {
        void *known[] = {here, caller};
        backtrace_symbols_fd(known, caller == nullptr ? 1 : 2, STDERR_FILENO);
        backtrace_symbols_fd(frames, static_cast<int>(end - frames), STDERR_FILENO);
    }
    raise(number);  // the handler is not in force any longer
}

}  // namespace

void print_backtraces() {
    // The first one loads a library, for which there must be memory.
    void *frame = nullptr;
    backtrace(&frame, 1);
    stack_t stack{};
    stack.ss_sp = own_stack;
    stack.ss_size = sizeof own_stack;
    sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_sigaction = on_crash;
    action.sa_flags = static_cast<int>(SA_SIGINFO | SA_ONSTACK | SA_RESETHAND | SA_NODEFER);
    for (const int number : crashes) sigaction(number, &action, nullptr);
}

}  // namespace lmq::host

#else

namespace lmq::host {

void print_backtraces() {}

}  // namespace lmq::host
#endif
