// The dictionaries that were fetched, in the user's cache folder. A dictionary's file is named by its fingerprint, so
// that hosts which say the same share it; a link for each URL says which one it has. Nothing here is an error for the
// user: without a cache the client asks the host.
#pragma once

#include <optional>
#include <string>

namespace lmqctl {

/// The dictionary's text last seen behind a URL.
std::optional<std::string> load_cached(const std::string &url);

/// A dictionary's text, from whatever host, by its interface's fingerprint.
std::optional<std::string> load_cached_interface(const std::string &fingerprint);

/// Keeps a dictionary. Says why it could not, or an empty text.
std::string store_cached(const std::string &url, const std::string &text);

}  // namespace lmqctl
