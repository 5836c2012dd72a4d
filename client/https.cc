// HTTP over TLS with libcurl, which is loaded here.
#include <curl/curl.h>
#include <dlfcn.h>

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

std::size_t store_tag(char *data, std::size_t, std::size_t length, void *into) {
    const std::string field(data, length);
    if (lower(field.substr(0, 5)) == "etag:") {
        const std::size_t begin = field.find_first_not_of(" \t", 5), end = field.find_first_of("\r\n");
        if (begin < end) *static_cast<std::string *>(into) = field.substr(begin, end - begin);
    }
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
        curl_.setopt(handle_, CURLOPT_USERAGENT, "lmqctl/" LMQCTL_VERSION);
        curl_.setopt(handle_, CURLOPT_NOSIGNAL, 1L);
        curl_.setopt(handle_, CURLOPT_WRITEFUNCTION, &store);
        curl_.setopt(handle_, CURLOPT_PROTOCOLS_STR, "https");
        curl_.setopt(handle_, CURLOPT_HEADERFUNCTION, &store_tag);
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
        curl_.setopt(handle_, CURLOPT_URL, connection_.url.c_str());
        curl_.setopt(handle_, CURLOPT_HTTPHEADER, headers_);
        curl_.setopt(handle_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(document.size()));
        curl_.setopt(handle_, CURLOPT_POSTFIELDS, document.data());
        return perform();
    }

    HttpAnswer get(const std::string &name, const std::string &tag) override {
        const std::string path = connection_.url.substr(0, connection_.url.find_first_of("?#"));
        // The slash of a path, not one of "https://".
        const std::size_t slash = path.find('/', 8) == std::string::npos ? std::string::npos : path.rfind('/');
        const std::string url = path.substr(0, slash) + "/" + name, field = "If-None-Match: " + tag;
        curl_slist *fields = tag.empty() ? nullptr : curl_.append(nullptr, field.c_str());
        curl_.setopt(handle_, CURLOPT_URL, url.c_str());
        curl_.setopt(handle_, CURLOPT_HTTPHEADER, fields);
        curl_.setopt(handle_, CURLOPT_HTTPGET, 1L);
        const std::unique_ptr<curl_slist, decltype(curl_.free_all)> holder(fields, curl_.free_all);
        return perform();
    }

  private:
    HttpAnswer perform() {
        HttpAnswer answer;
        detail_[0] = '\0';
        curl_.setopt(handle_, CURLOPT_TIMEOUT_MS, milliseconds_left());
        curl_.setopt(handle_, CURLOPT_WRITEDATA, &answer.body);
        curl_.setopt(handle_, CURLOPT_HEADERDATA, &answer.tag);
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
    curl_slist *headers_ = nullptr;
    char detail_[CURL_ERROR_SIZE] = "";
};

}  // namespace

std::unique_ptr<Http> make_https(const Connection &connection) { return std::make_unique<CurlHttp>(connection); }

}  // namespace lmqctl
