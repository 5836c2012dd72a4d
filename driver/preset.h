// The start file of the simulator: what a device has come to before the first call of its user.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "driver/event.h"
#include "driver/fault.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// A start file that was read and checked. README.md describes its keys.
class Preset {
  public:
    /// Reads a file.
    /// @throws std::invalid_argument with a text that names file and key, and what was expected.
    explicit Preset(const std::string &path);

    /// The file that LMQ_SIM_PRESET names, or nothing when it is not set. @throws As the constructor.
    static std::optional<Preset> from_environment();

    /// Brings a device that is up to the state that the file describes.
    void apply(Device &device) const;

    /// The faults of the file, with no call counted yet.
    const Faults &faults() const { return faults_; }

  private:
    std::map<vx_port_id_t, vx_admin_status_t> ports_;
    std::map<vx_port_id_t, vx_eth_port_stats_t> counters_;
    std::vector<EventKey> events_;
    Faults faults_;
};

}  // namespace lmq::sim
