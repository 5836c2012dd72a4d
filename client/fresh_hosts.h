// Hosts of one's own, one after the other, each with a chip that nobody has touched. The next one starts while the last
// is in use.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "checks.h"
#include "dictionary.h"
#include "own_host.h"
#include "player.h"
#include "type.h"

namespace lmqctl {

struct FreshHost {
    std::unique_ptr<OwnHost> host;
    Connection connection;
    std::unique_ptr<Session> session;
    Outcome play(const Call &call) const { return lmqctl::play(*session, connection, call); }
};

class FreshHosts {
  public:
    /// `hang`: seconds after which a call counts as hung. Asks a first host for its interface. Throws an Error if there
    /// is no host to be started, or if it has no contract.
    FreshHosts(std::vector<std::string> command, double hang);

    /// A host that listens. Throws an Error if it does not.
    FreshHost next();

    const Dictionary &dictionary() const { return *dictionary_; }
    Types &types() { return *types_; }
    const Checks &checks() const { return *checks_; }

  private:
    const std::vector<std::string> command_;
    const double hang_;
    std::unique_ptr<OwnHost> ahead_;
    std::unique_ptr<Dictionary> dictionary_;
    std::unique_ptr<Types> types_;
    std::unique_ptr<Checks> checks_;
};

struct Growth {
    int64_t bytes = 0;      ///< that a call loses each time it is made, beyond what all lose by design
    std::size_t calls = 0;  ///< made to find out
};

/// Whether the heap has grown by more than calls lose by design.
bool is_growth(int64_t bytes);

/// Makes a call again and again to see whether it loses memory; no bytes if it loses none, or if nobody can say.
Growth growth(const FreshHost &host, const Call &call);

}  // namespace lmqctl
