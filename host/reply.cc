// Making of replies.
#include "reply.h"

#include <microhttpd.h>

namespace lmq::host {

Reply refusal(unsigned status, const std::string &why) { return {status, why + "\n"}; }

Reply too_long(std::size_t limit) {
    return refusal(MHD_HTTP_CONTENT_TOO_LARGE, "The body is longer than " + std::to_string(limit) + " bytes.");
}

Reply wrong_method(const std::string &allowed, const std::string &why) {
    Reply reply = refusal(MHD_HTTP_METHOD_NOT_ALLOWED, why);
    reply.headers.emplace_back(MHD_HTTP_HEADER_ALLOW, allowed);
    return reply;
}

Reply no_memory(unsigned status) { return {status, "no memory\n", "text/plain"}; }

Reply xml(unsigned status, std::string document) { return {status, std::move(document), "text/xml; charset=utf-8"}; }

}  // namespace lmq::host
