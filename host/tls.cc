// Reading of PEM files, and the check of a client's certificate: the HTTP library asks for one but does not judge it.
#include "tls.h"

#include <gnutls/gnutls.h>
#include <gnutls/x509.h>
#include <microhttpd.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace lmq::host {
namespace {

std::string contents(const std::string &path) {
    if (path.empty()) return "";
    std::ifstream file(path, std::ios::binary);
    std::string result{std::istreambuf_iterator<char>(file), {}};
    if (!file || result.empty()) throw std::runtime_error("cannot read '" + path + "'");
    return result;
}

gnutls_datum_t datum(const std::string &text) {
    return {reinterpret_cast<unsigned char *>(const_cast<char *>(text.data())), static_cast<unsigned>(text.size())};
}

struct FreeCredentials {
    void operator()(gnutls_certificate_credentials_t credentials) const {
        gnutls_certificate_free_credentials(credentials);
    }
};

/// Tries the files as the HTTP library will, which does not say what is wrong with them.
void check(const Tls &tls, const std::string &certificate, const std::string &key, const std::string &authority) {
    gnutls_certificate_credentials_t raw = nullptr;
    if (gnutls_certificate_allocate_credentials(&raw) < 0) throw std::bad_alloc();
    const std::unique_ptr<std::remove_pointer_t<gnutls_certificate_credentials_t>, FreeCredentials> credentials(raw);
    const gnutls_datum_t chain = datum(tls.certificate), secret = datum(tls.key), trusted = datum(tls.client_authority);
    const int paired = gnutls_certificate_set_x509_key_mem(raw, &chain, &secret, GNUTLS_X509_FMT_PEM);
    if (paired == GNUTLS_E_CERTIFICATE_KEY_MISMATCH) {
        throw std::runtime_error("--tls-key '" + key + "' is not the key of --tls-cert '" + certificate + "'");
    }
    if (paired < 0) {
        throw std::runtime_error("--tls-cert '" + certificate + "' and --tls-key '" + key +
                                 "' cannot be used: " + gnutls_strerror(paired));
    }
    if (!authority.empty() && gnutls_certificate_set_x509_trust_mem(raw, &trusted, GNUTLS_X509_FMT_PEM) <= 0) {
        throw std::runtime_error("--tls-client-ca '" + authority + "' holds no certificate");
    }
}

template <class Pointer, void (*release)(Pointer)>
struct Release {
    void operator()(Pointer pointer) const { release(pointer); }
};
template <class Pointer, void (*release)(Pointer)>
using Owned = std::unique_ptr<std::remove_pointer_t<Pointer>, Release<Pointer, release>>;

void free_trust(gnutls_x509_trust_list_t list) { gnutls_x509_trust_list_deinit(list, 1); }

/// What handshakes use. The callbacks of the TLS library take no argument of ours.
struct InUse {
    std::vector<gnutls_pcert_st> chain;
    Owned<gnutls_privkey_t, gnutls_privkey_deinit> key;
    Owned<gnutls_x509_trust_list_t, free_trust> trust;
    long long expiry = 0;

    ~InUse() {
        for (gnutls_pcert_st &certificate : chain) gnutls_pcert_deinit(&certificate);
    }
};
std::unique_ptr<InUse> in_use;
/// A handshake under way may still hold it.
std::unique_ptr<InUse> in_use_before;

void require(int result) {
    if (result < 0) throw std::runtime_error(std::string("TLS: ") + gnutls_strerror(result));
}

}  // namespace

void use_tls(const Tls &tls) {
    if (tls.certificate.empty()) return;
    auto next = std::make_unique<InUse>();
    const gnutls_datum_t chain = datum(tls.certificate), secret = datum(tls.key), trusted = datum(tls.client_authority);
    unsigned count = 16;
    next->chain.resize(count);
    const int read = gnutls_pcert_list_import_x509_raw(next->chain.data(), &count, &chain, GNUTLS_X509_FMT_PEM, 0);
    next->chain.resize(read < 0 ? 0 : count);
    require(read);
    gnutls_privkey_t key = nullptr;
    require(gnutls_privkey_init(&key));
    next->key.reset(key);
    require(gnutls_privkey_import_x509_raw(key, &secret, GNUTLS_X509_FMT_PEM, nullptr, 0));
    gnutls_x509_crt_t first = nullptr;
    require(gnutls_pcert_export_x509(next->chain.data(), &first));
    next->expiry = static_cast<long long>(gnutls_x509_crt_get_expiration_time(first));
    gnutls_x509_crt_deinit(first);
    if (!tls.client_authority.empty()) {
        gnutls_x509_trust_list_t trust = nullptr;
        require(gnutls_x509_trust_list_init(&trust, 0));
        next->trust.reset(trust);
        require(gnutls_x509_trust_list_add_trust_mem(trust, &trusted, nullptr, GNUTLS_X509_FMT_PEM, 0, 0));
    }
    in_use_before = std::exchange(in_use, std::move(next));
}

long long certificate_expiry() { return in_use == nullptr ? 0 : in_use->expiry; }

gnutls_certificate_retrieve_function2 *const choose_certificate =
    [](gnutls_session_t session, const gnutls_datum_t *, int, const gnutls_pk_algorithm_t *, int,
       gnutls_pcert_st **chain, unsigned *count, gnutls_privkey_t *key) {
        // The list of accepted authorities that the library would send is that of the start.
        gnutls_certificate_send_x509_rdn_sequence(session, 1);
        *chain = in_use->chain.data();
        *count = static_cast<unsigned>(in_use->chain.size());
        *key = in_use->key.get();
        return 0;
    };

Tls read_tls(const std::string &certificate, const std::string &key, const std::string &client_authority) {
    if (certificate.empty() != key.empty()) throw std::runtime_error("--tls-cert and --tls-key go together");
    if (certificate.empty() && !client_authority.empty()) {
        throw std::runtime_error("--tls-client-ca needs --tls-cert and --tls-key");
    }
    Tls tls{contents(certificate), contents(key), contents(client_authority)};
    if (!certificate.empty()) check(tls, certificate, key, client_authority);
    return tls;
}

std::optional<std::string> certified_name(MHD_Connection *connection) {
    const auto *info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_GNUTLS_SESSION);
    if (info == nullptr || info->tls_session == nullptr) return std::nullopt;
    auto *session = static_cast<gnutls_session_t>(info->tls_session);
    unsigned count = 0;
    const gnutls_datum_t *raw = gnutls_certificate_get_peers(session, &count);
    if (raw == nullptr || count == 0 || in_use == nullptr || in_use->trust == nullptr) return std::nullopt;
    std::vector<Owned<gnutls_x509_crt_t, gnutls_x509_crt_deinit>> owners;
    std::vector<gnutls_x509_crt_t> chain;
    for (unsigned at = 0; at < count; ++at) {
        gnutls_x509_crt_t certificate = nullptr;
        if (gnutls_x509_crt_init(&certificate) < 0) return std::nullopt;
        owners.emplace_back(certificate);
        chain.push_back(certificate);
        if (gnutls_x509_crt_import(certificate, &raw[at], GNUTLS_X509_FMT_DER) < 0) return std::nullopt;
    }
    // A certificate that was made for a server is no client's.
    gnutls_typed_vdata_st purpose{GNUTLS_DT_KEY_PURPOSE_OID,
                                  reinterpret_cast<unsigned char *>(const_cast<char *>(GNUTLS_KP_TLS_WWW_CLIENT)), 0};
    unsigned status = 0;
    if (gnutls_x509_trust_list_verify_crt2(in_use->trust.get(), chain.data(), count, &purpose, 1, 0, &status, nullptr) <
            0 ||
        status != 0) {
        return std::nullopt;
    }
    char name[256] = "";
    std::size_t size = sizeof name;
    gnutls_x509_crt_get_dn_by_oid(chain.front(), GNUTLS_OID_X520_COMMON_NAME, 0, 0, name, &size);
    return name;
}

}  // namespace lmq::host
