// Replies of HTTP: what is sent, and the plain refusals.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace lmq::host {

/// One reply. The server adds what belongs to the connection.
struct Reply {
    unsigned status;
    std::string body;
    std::string type = "text/plain; charset=utf-8";
    /// Further headers: name and value.
    std::vector<std::pair<std::string, std::string>> headers = {};
    /// Whether the connection ends with it, at once: what follows on it cannot be understood.
    bool closes = false;
};

/// A refusal: a status of HTTP and a line of text.
Reply refusal(unsigned status, const std::string &why);

/// The refusal of a body that is longer than the limit, in bytes.
Reply too_long(std::size_t limit);

/// The refusal of a method of HTTP.
/// @param allowed The methods that the path takes, as the Allow header lists them.
Reply wrong_method(const std::string &allowed, const std::string &why);

/// What is said when there is no memory to say more. Making it needs none.
Reply no_memory(unsigned status);

/// A reply that holds XML.
Reply xml(unsigned status, std::string document);

}  // namespace lmq::host
