// Reading of PEM files, and the check of a client's certificate: the HTTP library asks for one but does not judge it.
#include "tls.h"

#include <gnutls/gnutls.h>
#include <gnutls/x509.h>
#include <microhttpd.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace lmq::host {
namespace {

std::string contents(const std::string &path) {
    if (path.empty()) return "";
    std::ifstream file(path, std::ios::binary);
    std::string result{std::istreambuf_iterator<char>(file), {}};
    if (!file || result.empty()) throw std::runtime_error("cannot read '" + path + "'");
    return result;
}

}  // namespace

Tls read_tls(const std::string &certificate, const std::string &key, const std::string &client_authority) {
    if (certificate.empty() != key.empty()) throw std::runtime_error("--tls-cert and --tls-key go together");
    if (certificate.empty() && !client_authority.empty()) {
        throw std::runtime_error("--tls-client-ca needs --tls-cert and --tls-key");
    }
    return {contents(certificate), contents(key), contents(client_authority)};
}

std::optional<std::string> certified_name(MHD_Connection *connection) {
    const auto *info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_GNUTLS_SESSION);
    if (info == nullptr || info->tls_session == nullptr) return std::nullopt;
    auto *session = static_cast<gnutls_session_t>(info->tls_session);
    unsigned status = 0;
    if (gnutls_certificate_verify_peers2(session, &status) < 0 || status != 0) return std::nullopt;
    unsigned count = 0;
    const gnutls_datum_t *chain = gnutls_certificate_get_peers(session, &count);
    gnutls_x509_crt_t raw = nullptr;
    if (chain == nullptr || count == 0 || gnutls_x509_crt_init(&raw) < 0) return std::nullopt;
    const std::unique_ptr<std::remove_pointer_t<gnutls_x509_crt_t>, decltype(&gnutls_x509_crt_deinit)> certificate(
        raw, &gnutls_x509_crt_deinit);
    if (gnutls_x509_crt_import(certificate.get(), &chain[0], GNUTLS_X509_FMT_DER) < 0) return std::nullopt;
    char name[256] = "";
    std::size_t size = sizeof name;
    gnutls_x509_crt_get_dn_by_oid(certificate.get(), GNUTLS_OID_X520_COMMON_NAME, 0, 0, name, &size);
    return name;
}

}  // namespace lmq::host
