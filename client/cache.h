// The dictionaries that were fetched, in the user's cache folder. A dictionary's file is named by its fingerprint, so
// that hosts which say the same share it; a link for each URL says which one it has. Nothing here is an error for the
// user: without a cache the client asks the host.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "connection.h"

namespace lmqctl {

/// The folder of what is kept; empty if neither XDG_CACHE_HOME nor HOME says where.
std::filesystem::path cache_folder();

/// A name for the file of a text, such as a URL.
std::string fingerprint(const std::string &text);

/// The dictionary's text last seen behind a URL.
std::optional<std::string> load_cached(const std::string &url);

/// A dictionary's text, from whatever host, by its interface's fingerprint.
std::optional<std::string> load_cached_interface(const std::string &fingerprint);

/// The texts of the dictionaries that were kept last, of whatever host, by the tags of their contracts.
std::map<std::string, std::string> load_cached_by_tag();

/// One lmqctl after the other fetches a dictionary, since it may be what the others want as well. The constructor waits
/// for its turn, for some seconds at most: then something is wrong with those before, and it is better not to wait for
/// them.
class FetchTurn {
  public:
    explicit FetchTurn(const Connection &connection);
    FetchTurn(const FetchTurn &) = delete;
    FetchTurn &operator=(const FetchTurn &) = delete;
    ~FetchTurn();

    bool has_waited() const { return has_waited_; }

  private:
    int file_ = -1;
    bool has_waited_ = false;
};

/// Keeps a dictionary. Says why it could not, or an empty text.
std::string store_cached(const std::string &url, const std::string &text);

}  // namespace lmqctl
