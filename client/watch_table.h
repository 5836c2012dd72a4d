// The table of watch: what fits into the terminal, with the way that each rate has gone.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lmqctl {

struct WatchedRow {
    std::string name, value;
    std::optional<double> rate;  ///< a second
    bool is_zero = false;        ///< the value
};

/// "12", "12.3"
std::string rate_text(double rate);

class WatchTable {
  public:
    /// A screen for standard output as large as its terminal is. `head` stands above, `failures` below that; `full`
    /// shows the rows that are 0.
    std::string screen(const std::string &head, const std::vector<std::string> &failures,
                       const std::vector<WatchedRow> &rows, bool full);

  private:
    std::string row(const WatchedRow &row, std::size_t name_width, std::size_t columns) const;
    std::map<std::string, std::deque<double>> rates_;  // of each row, the latest last
};

}  // namespace lmqctl
