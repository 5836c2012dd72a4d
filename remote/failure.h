// Why a call failed on its way.
#pragma once

#include <stdexcept>
#include <string>

#include "lmq/remote.h"

namespace lmq::remote {

struct Failure : std::runtime_error {
    Failure(lmq_remote_status_e why, const std::string &text) : std::runtime_error(text), status(why) {}
    lmq_remote_status_e status;
};

}  // namespace lmq::remote
