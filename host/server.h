// HTTP in front of a function that answers XML-RPC documents: one thread, one event loop, any number of connections.
// Reading and writing of sockets never waits for a client; only the function itself holds the loop up.
#ifndef LMQ_HOST_SERVER_H
#define LMQ_HOST_SERVER_H

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "file_descriptor.h"
#include "stop.h"

struct MHD_Connection;
struct MHD_Daemon;

namespace lmq::host {

class Server {
  public:
    /** Takes the document of a call and returns that of the answer. What it throws becomes status 500. */
    using Call = std::function<std::string(std::string_view document)>;

    /** The one path that is served. */
    static constexpr const char path[] = "/RPC2";

    /**
     * Starts to accept connections; nothing is answered before run().
     * @param listener   A listening socket that does not block.
     * @param body_limit The longest body in bytes; a longer one is refused with status 413.
     * @param call       Called for one document at a time, from run() alone.
     * @throws std::runtime_error if the HTTP library cannot be set up.
     */
    Server(FileDescriptor listener, std::size_t body_limit, Call call);
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /**
     * Serves until a signal stops it. A call under way is then finished and its answer sent; calls that wait for their
     * turn are refused with status 503.
     */
    void run(const StopSignals &stop);

  private:
    struct Exchange;
    struct Callbacks;

    int poll_timeout();
    bool wait(int other, int timeout) const;
    void answer_next();
    void drain();

    std::size_t body_limit_;
    Call call_;
    MHD_Daemon *daemon_;
    int epoll_ = -1;
    /** Calls that have arrived in full and wait for their turn. Their connections are suspended meanwhile. */
    std::deque<Exchange *> waiting_;
    /** Calls that have arrived in full and whose answers are not sent in full yet. */
    std::size_t answers_due_ = 0;
    /**
     * Whether the HTTP library has work that no socket tells of: an answer to send, or, after a connection has been
     * closed, new ones to accept, which it stops to do while there are too many.
     */
    bool run_again_ = false;
    bool stopping_ = false;
};

}  // namespace lmq::host

#endif
