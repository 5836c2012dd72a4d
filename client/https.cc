// HTTP over TLS with libcurl, which is loaded here.
#include <curl/curl.h>
#include <dlfcn.h>

#include <algorithm>
#include <string_view>

#include "error.h"
#include "http.h"
#include "names.h"

// The macros check the types of options, and call the functions by their names.
#undef curl_easy_setopt
#undef curl_easy_getinfo

namespace lmqctl {

namespace {

struct Curl {
    Curl() {
        void *library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
        if (!library) throw Error(exit_connection, std::string("https: needs libcurl: ") + dlerror());
        const auto load = [&](auto &function, const char *name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
            if (!function) throw Error(exit_connection, std::string("https: needs another libcurl: ") + dlerror());
        };
        load(global_init, "curl_global_init");
        load(init, "curl_easy_init");
        load(setopt, "curl_easy_setopt");
        load(perform, "curl_easy_perform");
        load(getinfo, "curl_easy_getinfo");
        load(strerror, "curl_easy_strerror");
        load(cleanup, "curl_easy_cleanup");
        load(append, "curl_slist_append");
        load(free_all, "curl_slist_free_all");
    }
    decltype(&curl_global_init) global_init;
    decltype(&curl_easy_init) init;
    decltype(&curl_easy_setopt) setopt;
    decltype(&curl_easy_perform) perform;
    decltype(&curl_easy_getinfo) getinfo;
    decltype(&curl_easy_strerror) strerror;
    decltype(&curl_easy_cleanup) cleanup;
    decltype(&curl_slist_append) append;
    decltype(&curl_slist_free_all) free_all;
};

std::size_t store(char *data, std::size_t, std::size_t length, void *into) {
    auto &text = *static_cast<std::string *>(into);
    if (text.size() + length > largest_answer) return 0;
    text.append(data, length);
    return length;
}

std::size_t store_field(char *data, std::size_t, std::size_t length, void *into) {
    const std::string field(data, length);
    const std::size_t colon = std::min(field.find(':'), length - 1);
    const std::size_t begin = field.find_first_not_of(" \t", colon + 1), end = field.find_first_of("\r\n");
    if (begin < end)
        keep_field(lower(field.substr(0, colon)), field.substr(begin, end - begin), *static_cast<HttpAnswer *>(into));
    return length;
}

int is_stopped(void *stop, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return *static_cast<const volatile std::sig_atomic_t *>(stop) != 0;
}

class CurlHttp : public Http {
  public:
    explicit CurlHttp(const Connection &connection) : connection_(connection) {
        curl_.global_init(CURL_GLOBAL_ALL);
        handle_ = curl_.init();
        if (!handle_) throw std::bad_alloc();
        curl_.setopt(handle_, CURLOPT_USERAGENT, "lmqctl/" LMQCTL_VERSION);
        curl_.setopt(handle_, CURLOPT_NOSIGNAL, 1L);
        curl_.setopt(handle_, CURLOPT_WRITEFUNCTION, &store);
        curl_.setopt(handle_, CURLOPT_PROTOCOLS_STR, "https");
        curl_.setopt(handle_, CURLOPT_HEADERFUNCTION, &store_field);
        // A document goes through a function that gives it out once: libcurl would send it again by itself where a kept
        // connection breaks without an answer.
        curl_.setopt(handle_, CURLOPT_READFUNCTION, &CurlHttp::give);
        curl_.setopt(handle_, CURLOPT_READDATA, this);
        curl_.setopt(handle_, CURLOPT_ERRORBUFFER, detail_);
        if (!connection_.user.empty()) {
            curl_.setopt(handle_, CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
            curl_.setopt(handle_, CURLOPT_USERNAME, connection_.user.c_str());
            curl_.setopt(handle_, CURLOPT_PASSWORD, connection_.password.c_str());
        }
        if (connection_.stop) {
            curl_.setopt(handle_, CURLOPT_NOPROGRESS, 0L);
            curl_.setopt(handle_, CURLOPT_XFERINFOFUNCTION, &is_stopped);
            curl_.setopt(handle_, CURLOPT_XFERINFODATA, connection_.stop);
        }
        if (!connection_.cacert.empty()) curl_.setopt(handle_, CURLOPT_CAINFO, connection_.cacert.c_str());
        if (!connection_.cert.empty()) curl_.setopt(handle_, CURLOPT_SSLCERT, connection_.cert.c_str());
        if (!connection_.key.empty()) curl_.setopt(handle_, CURLOPT_SSLKEY, connection_.key.c_str());
    }

    ~CurlHttp() override { curl_.cleanup(handle_); }

    HttpAnswer send(const HttpRequest &request) override {
        const std::string url = request.name.empty() ? connection_.url : beside(request.name);
        curl_slist *fields = curl_.append(nullptr, "Expect:");
        const auto add = [&](const std::string &field) { fields = curl_.append(fields, field.c_str()); };
        if (!lease_.empty()) add("Lmq-Lease: " + lease_);
        if (!request.tag.empty()) add("If-None-Match: " + request.tag);
        if (!request.body.empty())
            add(std::string("Content-Type: ") + (request.name.empty() ? "text/xml" : "application/json"));
        const std::unique_ptr<curl_slist, decltype(curl_.free_all)> holder(fields, curl_.free_all);
        curl_.setopt(handle_, CURLOPT_URL, url.c_str());
        curl_.setopt(handle_, CURLOPT_HTTPHEADER, fields);
        curl_.setopt(handle_, request.body.empty() ? CURLOPT_HTTPGET : CURLOPT_POST, 1L);
        curl_.setopt(handle_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
        curl_.setopt(handle_, CURLOPT_CUSTOMREQUEST, request.method);
        left_ = request.body;
        return perform();
    }

  private:
    static std::size_t give(char *to, std::size_t, std::size_t room, void *self) {
        auto &left = static_cast<CurlHttp *>(self)->left_;
        const std::size_t size = left.copy(to, room);
        left.remove_prefix(size);
        return size;
    }

    std::string beside(const std::string &name) const {
        const std::string path = connection_.url.substr(0, connection_.url.find_first_of("?#"));
        // The slash of a path, not one of "https://".
        const std::size_t slash = path.find('/', 8) == std::string::npos ? std::string::npos : path.rfind('/');
        return path.substr(0, slash) + "/" + name;
    }

    HttpAnswer perform() {
        HttpAnswer answer;
        detail_[0] = '\0';
        curl_.setopt(handle_, CURLOPT_TIMEOUT_MS, milliseconds_left());
        curl_.setopt(handle_, CURLOPT_WRITEDATA, &answer.body);
        curl_.setopt(handle_, CURLOPT_HEADERDATA, &answer);
        if (const CURLcode result = curl_.perform(handle_); result != CURLE_OK) fail(result);
        long status = 0;
        curl_.getinfo(handle_, CURLINFO_RESPONSE_CODE, &status);
        answer.status = static_cast<int>(status);
        return answer;
    }

    // 0 for no limit, as the library wants it.
    long milliseconds_left() const {
        const Clock::time_point deadline = connection_.deadline();
        if (deadline == Clock::time_point::max()) return 0;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) throw_timeout(connection_);
        return static_cast<long>(left);
    }

    [[noreturn]] void fail(CURLcode result) const {
        const std::string &url = connection_.url;
        const std::string why = curl_.strerror(result), detail = *detail_ ? detail_ : why;
        switch (result) {
            case CURLE_ABORTED_BY_CALLBACK: throw_stopped();
            case CURLE_OPERATION_TIMEDOUT: throw_timeout(connection_);
            case CURLE_COULDNT_CONNECT:
            case CURLE_COULDNT_RESOLVE_HOST: throw_cannot_connect(connection_, why);
            case CURLE_URL_MALFORMAT: throw_bad_url(connection_);
            case CURLE_PEER_FAILED_VERIFICATION:
                throw Error(exit_connection, url + ": the host's certificate is not trusted (" + detail +
                                                 "); --cacert FILE names whom to trust");
            case CURLE_SSL_CACERT_BADFILE:
                if (connection_.cacert.empty())
                    throw Error(exit_connection,
                                url + ": this system names nobody whose certificates are trusted (" + detail +
                                    "); install ca-certificates, or name whom to trust with --cacert FILE");
                throw UsageError(url + ": --cacert cannot be used: " + detail);
            case CURLE_SSL_CERTPROBLEM: throw UsageError(url + ": --cert or --key cannot be used: " + detail);
            default: throw Error(exit_connection, url + ": " + detail);
        }
    }

    const Connection connection_;
    const Curl curl_;
    CURL *handle_ = nullptr;
    std::string_view left_;  // of the document
    char detail_[CURL_ERROR_SIZE] = "";
};

}  // namespace

std::unique_ptr<Http> make_https(const Connection &connection) { return std::make_unique<CurlHttp>(connection); }

}  // namespace lmqctl
