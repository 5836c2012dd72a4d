// Status line, header and body of an answer.
#include "http_answer.h"

#include <charconv>

#include "connection.h"
#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

constexpr std::size_t largest_head = 64 << 10;  // bytes of a status line and its header

// A number at the beginning of a text; nothing if there is none or it is absurd.
std::optional<std::size_t> length_of(std::string_view text, int base) {
    std::size_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (failure != std::errc() || end == text.data()) return {};
    return value;
}

}  // namespace

void keep_field(const std::string &name, const std::string &value, HttpAnswer &answer) {
    if (name == "etag") answer.tag = value;
    constexpr std::string_view place = "/output/";
    // It becomes part of a request.
    if (name == "lmq-output" && value.starts_with(place) && value.size() > place.size() && value.size() < 40 &&
        value.find_first_not_of("0123456789", place.size()) == std::string::npos)
        answer.output = value.substr(1);
}

HttpAnswer AnswerReader::read() {
    HttpAnswer answer;
    Head head;
    do head = read_head(answer);
    while (answer.status < 200);                                      // an interim answer
    if (answer.status == 204 || answer.status == 304) return answer;  // no body, whatever they say of one
    if (head.is_chunked)
        answer.body = read_chunks();
    else if (head.length)
        answer.body = take(*head.length);
    else {
        answer.body = read_to_the_end();
        answer.stays_open = false;
    }
    return answer;
}

AnswerReader::Head AnswerReader::read_head(HttpAnswer &answer) {
    const std::string status = line();
    if (!status.starts_with("HTTP/1.") || status.size() < 12) no_http();
    const std::optional<std::size_t> code = length_of(std::string_view(status).substr(9), 10);
    if (!code || *code < 100 || *code > 999) no_http();
    answer.status = static_cast<int>(*code);
    answer.stays_open = status[7] != '0';
    Head head;
    std::size_t size = 0;
    for (std::string field; !(field = line()).empty(); size += field.size()) {
        if (size > largest_head) no_http();
        read_field(field, head, answer);
    }
    return head;
}

void AnswerReader::read_field(const std::string &field, Head &head, HttpAnswer &answer) const {
    const std::size_t colon = field.find(':');
    const std::string name = lower(field.substr(0, colon));
    std::string value = colon == std::string::npos ? "" : field.substr(colon + 1);
    value.erase(0, value.find_first_not_of(" \t"));
    keep_field(name, value, answer);
    value = lower(value);
    if (name == "content-length" && !(head.length = length_of(value, 10))) no_http();
    if (name == "transfer-encoding") head.is_chunked = value.ends_with("chunked");
    if (name == "connection") answer.stays_open = value == "keep-alive" || (answer.stays_open && value != "close");
}

std::string AnswerReader::read_chunks() {
    std::string body;
    for (;;) {
        const std::optional<std::size_t> chunk = length_of(line(), 16);
        if (!chunk) no_http();
        if (*chunk == 0) break;
        if (*chunk > largest_answer - body.size()) too_large();
        body += take(*chunk);
        line();
    }
    std::size_t size = 0;
    for (std::string trailer; !(trailer = line()).empty(); size += trailer.size())
        if (size > largest_head) no_http();
    return body;
}

std::string AnswerReader::read_to_the_end() {
    while (more_(unread_))
        if (unread_.size() > largest_answer) too_large();
    std::string body;
    body.swap(unread_);
    return body;
}

std::string AnswerReader::take(std::size_t length) {
    if (length > largest_answer) too_large();
    while (unread_.size() < length) fetch();
    std::string taken = unread_.substr(0, length);
    unread_.erase(0, length);
    return taken;
}

// A line without its end.
std::string AnswerReader::line() {
    std::size_t end = 0;
    while ((end = unread_.find('\n')) == std::string::npos) {
        if (unread_.size() > largest_head) no_http();
        fetch();
    }
    std::string taken = take(end + 1);
    taken.pop_back();
    if (taken.ends_with('\r')) taken.pop_back();
    return taken;
}

void AnswerReader::fetch() {
    if (!more_(unread_)) throw_lost(url_, "closed by the host");
}

void AnswerReader::no_http() const { throw Error(exit_connection, url_ + ": what answers there does not speak HTTP"); }

void AnswerReader::too_large() const {
    throw Error(exit_connection, url_ + ": the answer is larger than " + std::to_string(largest_answer >> 20) + " MiB");
}

}  // namespace lmqctl
