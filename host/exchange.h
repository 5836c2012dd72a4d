// What the server knows of a connection, and of the request that is under way on it.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "answer.h"
#include "budget.h"
#include "reply.h"

struct MHD_Connection;

namespace lmq::host {

using Clock = std::chrono::steady_clock;

/// What the host holds for the clients of one address.
struct Account {
    Budget::Share bodies, answers;
};

/// One connection.
struct Peer {
    MHD_Connection *connection;
    int socket;
    std::string address;
    std::shared_ptr<Account> account;
    /// The name in the client's certificate, once it has been looked at.
    std::string certified;
    /// What is next: the client sends a head, a body, or one that has been refused already; it has a call here; it
    /// takes an answer; or it has been hung up on, and is about to go.
    enum class State { head, body, refused_body, call, answer, gone } state = State::head;
    /// Since when.
    Clock::time_point since;
    /// Whether there were too many connections when it came: it is here for health and metrics.
    bool is_beyond_limit = false;
    /// The length of the answer that it takes.
    std::size_t answer = 0;
};

/// One request and its reply.
struct Exchange {
    explicit Exchange(Peer &client, Budget &bodies)
        : connection(client.connection), peer(&client), body(bodies, client.account->bodies) {}

    MHD_Connection *connection;
    Peer *peer;
    /// Method of HTTP and path.
    std::string request;
    /// Whether it is about the lease and no call.
    bool is_lease = false;
    /// What it shows of the lease.
    std::string lease_token;
    /// Who has logged in for it; empty for nobody.
    std::string user;
    Charged body;
    /// How long the body may become: what was announced, or the limit.
    std::size_t expected = 0;
    /// How much has been read and thrown away since the request was refused.
    std::size_t discarded = 0;
    std::optional<Reply> reply;
    /// Whether the log has it already, or will have it when the driver is done with the call of a client that has gone.
    bool is_logged = false;
    /// Whether it is a call that has arrived in full.
    bool is_call = false;
    /// The method of the call, as far as the document was read.
    std::string method;
    /// Whether it tells about the interface and calls nothing of the driver, as far as anybody wants to know.
    bool is_introspection = false;
    Clock::time_point arrived;
    Result result;
    /// The calls in a system.multicall, and what came of them.
    std::vector<std::string> inner;
    std::vector<Result> inner_results;

    void turn(Peer::State state, Clock::time_point now = Clock::now()) {
        if (peer->state == state || peer->state == Peer::State::gone) return;
        peer->state = state;
        peer->since = now;
    }
};

}  // namespace lmq::host
