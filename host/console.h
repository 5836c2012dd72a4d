// The console, a web page for the chip, as the host serves it: console.pack, which the build makes and which is
// installed beside the description of the interface. A host without the file serves calls all the same.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "reply.h"

struct MHD_Connection;

namespace lmq::host {

/// Whether a path is the console's: those below /console, and the top, which leads there.
bool is_console_path(std::string_view path);

class Console {
  public:
    /// Reads the pack beside the program or in share/lmq, if there is one.
    /// @param wanted Whether to serve it at all.
    /// @throws std::runtime_error if there is a pack that cannot be read.
    explicit Console(bool wanted);

    /// Whether there is a page to serve.
    bool is_there() const { return !files_.empty(); }

    /// The reply to a request that reads one of the console's paths: compressed, as it is kept, or status 304.
    Reply reply(MHD_Connection *connection, std::string_view path) const;

  private:
    struct File {
        std::string type;
        /// With its quotes.
        std::string tag;
        /// Compressed with gzip.
        std::string content;
    };

    void read(const std::string &path);

    /// By path below /console/.
    std::map<std::string, File, std::less<>> files_;
};

}  // namespace lmq::host
