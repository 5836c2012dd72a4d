// The description of the interface, interface.json, as the host serves it: the build makes it of the headers, and it is
// installed beside a compressed copy. A host without the file serves calls all the same.
#pragma once

#include <filesystem>
#include <string>

#include "reply.h"

struct MHD_Connection;

namespace lmq::host {

class InterfaceFile {
  public:
    /// @param named The file; if it is empty, the one beside the program or in share/lmq, if there is one.
    /// @throws std::runtime_error if a file that was named cannot be read.
    explicit InterfaceFile(const std::string &named);

    /// The reply to a request that reads it: compressed if the client takes that, or status 304 if the client has it.
    Reply reply(MHD_Connection *connection) const;

  private:
    std::filesystem::path path_;
    /// A number over the content, in quotes; empty without a file.
    std::string tag_;
};

}  // namespace lmq::host
