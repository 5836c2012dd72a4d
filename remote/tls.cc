// HTTP over TLS with libcurl, which is loaded here: it brings thirty libraries that a program without https does not
// need.
#include <curl/curl.h>
#include <dlfcn.h>

#include <cstring>
#include <type_traits>

#include "remote/connection.h"

// The macros check the types of options, and call the functions by their names.
#undef curl_easy_setopt
#undef curl_easy_getinfo

namespace lmq::remote {

namespace {

struct Curl {
    Curl() {
        void *const library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
        if (!library) throw Failure(LMQ_REMOTE_NOT_SENT, std::string("https: needs libcurl: ") + dlerror());
        const auto load = [&](auto &function, const char *name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
            if (!function)
                throw Failure(LMQ_REMOTE_NOT_SENT, std::string("https: needs another libcurl: ") + dlerror());
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
        global_init(CURL_GLOBAL_ALL);
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
    keep_field({data, length}, *static_cast<Answer *>(into));
    return length;
}

class Tls : public Connection {
  public:
    explicit Tls(const Options &options) : options_(options) {
        handle_ = curl().init();
        if (!handle_) throw std::bad_alloc();
        headers_ = curl().append(curl().append(nullptr, "Content-Type: text/xml"), "Expect:");
        if (!options_.lease.empty()) headers_ = curl().append(headers_, ("Lmq-Lease: " + options_.lease).c_str());
        set(CURLOPT_HTTPHEADER, headers_);
        set(CURLOPT_USERAGENT, "liblmq");
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_WRITEFUNCTION, &store);
        set(CURLOPT_HEADERFUNCTION, &store_field);
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(options_.timeout * 1000));
        set(CURLOPT_PROTOCOLS_STR, "https");
        set(CURLOPT_URL, options_.url.c_str());
        set(CURLOPT_ERRORBUFFER, detail_);
        // The document goes through a function that gives it out once: libcurl would send it again by itself where a
        // kept connection breaks without an answer.
        set(CURLOPT_POST, 1L);
        set(CURLOPT_READFUNCTION, &Tls::give);
        set(CURLOPT_READDATA, this);
        if (!options_.user.empty()) {
            set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC));
            set(CURLOPT_USERNAME, options_.user.c_str());
            set(CURLOPT_PASSWORD, options_.password.c_str());
        }
        if (!options_.cacert.empty()) set(CURLOPT_CAINFO, options_.cacert.c_str());
        if (!options_.cert.empty()) set(CURLOPT_SSLCERT, options_.cert.c_str());
        if (!options_.key.empty()) set(CURLOPT_SSLKEY, options_.key.c_str());
    }

    ~Tls() override {
        curl().cleanup(handle_);
        curl().free_all(headers_);
    }

    void connect() override {
        // Any answer will do: what counts is the connection, which is kept.
        Answer ignored;
        set(CURLOPT_WRITEDATA, &ignored.body);
        set(CURLOPT_HEADERDATA, &ignored);
        set(CURLOPT_NOBODY, 1L);
        const CURLcode result = curl().perform(handle_);
        set(CURLOPT_NOBODY, 0L);
        set(CURLOPT_POST, 1L);
        if (result != CURLE_OK) throw Failure(LMQ_REMOTE_NOT_SENT, options_.url + ": cannot connect: " + why(result));
    }

    Answer post(const std::string &document) override {
        left_ = document;
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(document.size()));
        // Nothing of the document is asked for until the connection stands.
        return exchange([&] { return left_.size() < document.size(); });
    }

    Answer get(const std::string &name) override {
        const std::size_t host = std::strlen("https://"), slash = options_.url.rfind('/');
        set(CURLOPT_URL, (options_.url.substr(0, slash < host ? std::string::npos : slash) + "/" + name).c_str());
        set(CURLOPT_HTTPGET, 1L);
        const auto back = [this](void *) {
            set(CURLOPT_URL, options_.url.c_str());
            set(CURLOPT_POST, 1L);
        };
        const std::unique_ptr<void, decltype(back)> at_the_end(this, back);
        return exchange([] { return false; });
    }

  private:
    template <class IsSent>
    Answer exchange(IsSent is_sent) {
        Answer answer;
        detail_[0] = '\0';
        set(CURLOPT_WRITEDATA, &answer.body);
        set(CURLOPT_HEADERDATA, &answer);
        const CURLcode result = curl().perform(handle_);
        if (result != CURLE_OK && is_sent())
            throw Failure(LMQ_REMOTE_LOST, options_.url + ": no answer: " + why(result));
        if (result != CURLE_OK) throw Failure(LMQ_REMOTE_NOT_SENT, options_.url + ": cannot connect: " + why(result));
        long status = 0;
        curl().getinfo(handle_, CURLINFO_RESPONSE_CODE, &status);
        answer.status = static_cast<int>(status);
        return answer;
    }

    static const Curl &curl() {
        static const Curl loaded;
        return loaded;
    }

    template <class Value>
    void set(CURLoption option, Value value) {
        curl().setopt(handle_, option, value);
    }

    static std::size_t give(char *to, std::size_t, std::size_t room, void *self) {
        auto &left = static_cast<Tls *>(self)->left_;
        const std::size_t size = left.copy(to, room);
        left.remove_prefix(size);
        return size;
    }

    std::string why(CURLcode result) const { return *detail_ ? detail_ : curl().strerror(result); }

    const Options options_;
    CURL *handle_ = nullptr;
    curl_slist *headers_ = nullptr;
    std::string_view left_;  // of the document
    char detail_[CURL_ERROR_SIZE] = "";
};

}  // namespace

std::unique_ptr<Connection> make_tls_connection(const Options &options) { return std::make_unique<Tls>(options); }

}  // namespace lmq::remote
