// How far a long command has come, on a terminal.
#pragma once

#include <cstddef>
#include <string>

namespace lmqctl {

class Progress {
  public:
    /// Shows nothing if standard error is no terminal.
    Progress(std::string what, std::size_t all);
    ~Progress();  ///< takes the bar away
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    void reached(std::size_t count);

  private:
    std::string what_;
    std::size_t all_;
    bool shown_;
};

}  // namespace lmqctl
