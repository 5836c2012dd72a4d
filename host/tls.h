// TLS: the files that the operator names, and who is behind a client's certificate. libmicrohttpd does the rest.
#pragma once

#include <gnutls/abstract.h>

#include <optional>
#include <string>

struct MHD_Connection;

namespace lmq::host {

/// The contents of the files, in PEM. Without a certificate there is no TLS.
struct Tls {
    std::string certificate;
    std::string key;
    /// Who signs the certificates of clients. Empty: clients need none.
    std::string client_authority;
};

/// What is used in handshakes from now on, in place of what was before.
/// @param tls What read_tls() has returned.
void use_tls(const Tls &tls);

/// What the HTTP library calls in a handshake: it takes the certificate and the key.
extern gnutls_certificate_retrieve_function2 *const choose_certificate;

/// When the certificate in use ends, in seconds since 1970; 0 without TLS.
long long certificate_expiry();

/// Reads the files; an empty path stands for none.
/// @throws std::runtime_error that names the file which cannot be read or is none of its kind, the key that does not
/// fit
///         its certificate, or the option that is missing.
Tls read_tls(const std::string &certificate, const std::string &key, const std::string &client_authority);

/// The common name in the certificate of a client, if the authority has signed it and it is valid today.
/// @return None if the client showed no certificate or a wrong one.
std::optional<std::string> certified_name(MHD_Connection *connection);

}  // namespace lmq::host
