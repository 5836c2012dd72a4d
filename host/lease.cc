// Taking, prolonging and giving back of the lease, in JSON.
#include "lease.h"

#include <gnutls/crypto.h>
#include <gnutls/gnutls.h>
#include <microhttpd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "timestamp.h"

namespace lmq::host {
namespace {

constexpr long long longest = 24 * 60 * 60;
constexpr std::size_t longest_name = 100;

Reply json(std::string text) { return {MHD_HTTP_OK, std::move(text) + "\n", "application/json"}; }

/// What nobody can guess.
std::string new_token() {
    std::array<unsigned char, 16> bytes{};
    if (gnutls_rnd(GNUTLS_RND_KEY, bytes.data(), bytes.size()) < 0) throw std::runtime_error("no random numbers");
    std::string text;
    for (const unsigned char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

bool is_name(const std::string &name) {
    return !name.empty() && name.size() <= longest_name &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c < '\x7f'; });
}

}  // namespace

bool Lease::is_held() {
    if (holder_ && Clock::now() >= holder_->until) holder_.reset();
    return holder_.has_value();
}

bool Lease::is_holder(std::string_view token) {
    return is_held() && token.size() == holder_->token.size() &&
           gnutls_memcmp(token.data(), holder_->token.data(), token.size()) == 0;
}

std::string Lease::text(bool with_token) const {
    nlohmann::ordered_json object;
    object["held"] = holder_.has_value();
    if (holder_) {
        const auto left = std::chrono::ceil<std::chrono::seconds>(holder_->until - Clock::now());
        object["name"] = holder_->name;
        object["until"] = timestamp(holder_->until);
        object["seconds"] = left.count();
        if (with_token) object["token"] = holder_->token;
    }
    return object.dump();
}

Reply Lease::refused(const std::string &what) const {
    return refusal(MHD_HTTP_LOCKED,
                   holder_->name + " holds the lease until " + timestamp(holder_->until) + "; " + what);
}

Reply Lease::take(std::string_view body, std::string_view token) {
    const bool is_own = is_holder(token);
    if (is_held() && !is_own) return refused("it cannot be taken before.");
    constexpr std::size_t longest_wish = 4096;
    const auto wish = nlohmann::json::parse(body.substr(0, longest_wish), nullptr, false);
    const bool good = wish.is_object() && wish.contains("name") && wish["name"].is_string() &&
                      wish.contains("seconds") && wish["seconds"].is_number_integer();
    const auto seconds = good ? wish["seconds"].get<long long>() : 0;
    if (!good || seconds < 1 || seconds > longest || !is_name(wish["name"].get<std::string>())) {
        return refusal(
            MHD_HTTP_BAD_REQUEST,
            R"(A lease is {"name": TEXT, "seconds": NUMBER}: up to 100 plain signs, and 1 to 86400 seconds.)");
    }
    holder_ = Holder{wish["name"].get<std::string>(), is_own ? holder_->token : new_token(),
                     Clock::now() + std::chrono::seconds(seconds)};
    return json(text(true));
}

Reply Lease::serve(std::string_view method, std::string_view body, std::string_view token) {
    if (method == MHD_HTTP_METHOD_POST) return take(body, token);
    if (method == MHD_HTTP_METHOD_DELETE && is_held()) {
        if (!is_holder(token)) return refused("only its holder can give it back.");
        holder_.reset();
    }
    is_held();
    return json(text(false));
}

std::optional<Reply> Lease::judge(std::string_view token) {
    if (!is_held() || is_holder(token)) return std::nullopt;
    return refused("calls that change something have to wait.");
}

}  // namespace lmq::host
