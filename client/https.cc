// HTTP over TLS with libcurl, which is loaded here.
#include <curl/curl.h>
#include <dlfcn.h>

#include "error.h"
#include "http.h"

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

int is_stopped(void *stop, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return *static_cast<const volatile std::sig_atomic_t *>(stop) != 0;
}

class CurlHttp : public Http {
  public:
    explicit CurlHttp(const Connection &connection) : connection_(connection) {
        curl_.global_init(CURL_GLOBAL_ALL);
        handle_ = curl_.init();
        if (!handle_) throw std::bad_alloc();
        headers_ = curl_.append(curl_.append(nullptr, "Content-Type: text/xml"), "Expect:");
        curl_.setopt(handle_, CURLOPT_HTTPHEADER, headers_);
        curl_.setopt(handle_, CURLOPT_USERAGENT, "lmqctl/" LMQCTL_VERSION);
        curl_.setopt(handle_, CURLOPT_NOSIGNAL, 1L);
        curl_.setopt(handle_, CURLOPT_WRITEFUNCTION, &store);
        curl_.setopt(handle_, CURLOPT_TIMEOUT_MS, static_cast<long>(connection_.timeout * 1000));
        curl_.setopt(handle_, CURLOPT_PROTOCOLS_STR, "https");
        curl_.setopt(handle_, CURLOPT_URL, connection_.url.c_str());
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

    ~CurlHttp() override {
        curl_.cleanup(handle_);
        curl_.free_all(headers_);
    }

    HttpAnswer post(const std::string &document) override {
        HttpAnswer answer;
        detail_[0] = '\0';
        curl_.setopt(handle_, CURLOPT_WRITEDATA, &answer.body);
        curl_.setopt(handle_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(document.size()));
        curl_.setopt(handle_, CURLOPT_POSTFIELDS, document.data());
        const CURLcode result = curl_.perform(handle_);
        const std::string why = curl_.strerror(result);
        switch (result) {
            case CURLE_OK: break;
            case CURLE_ABORTED_BY_CALLBACK: throw_stopped();
            case CURLE_OPERATION_TIMEDOUT: throw_timeout(connection_);
            case CURLE_COULDNT_CONNECT:
            case CURLE_COULDNT_RESOLVE_HOST: throw_cannot_connect(connection_, why);
            case CURLE_URL_MALFORMAT: throw_bad_url(connection_);
            case CURLE_PEER_FAILED_VERIFICATION:
                throw Error(exit_connection, connection_.url + ": the host's certificate is not trusted (" +
                                                 (*detail_ ? detail_ : why) + "); --cacert FILE names whom to trust");
            case CURLE_SSL_CERTPROBLEM:
            case CURLE_SSL_CACERT_BADFILE:
                throw UsageError(connection_.url +
                                 ": --cert, --key or --cacert cannot be used: " + (*detail_ ? detail_ : why));
            default: throw Error(exit_connection, connection_.url + ": " + (*detail_ ? detail_ : why));
        }
        long status = 0;
        curl_.getinfo(handle_, CURLINFO_RESPONSE_CODE, &status);
        answer.status = static_cast<int>(status);
        return answer;
    }

  private:
    const Connection connection_;
    const Curl curl_;
    CURL *handle_ = nullptr;
    curl_slist *headers_ = nullptr;
    char detail_[CURL_ERROR_SIZE] = "";
};

}  // namespace

std::unique_ptr<Http> make_https(const Connection &connection) { return std::make_unique<CurlHttp>(connection); }

}  // namespace lmqctl
