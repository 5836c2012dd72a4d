// The service behind the calls: the driver, the plug-in, and the registry that it fills.
#pragma once

#include <cstddef>
#include <string>

#include "backend.h"

namespace lmq::host {

/// Loads the driver and the plug-in, and lets the plug-in register its methods.
/// @param driver   The driver's file; empty for the usual places.
/// @param plugin   The plug-in's file; empty for the usual places.
/// @param max_body The longest document in bytes.
/// @return What carries out a call, one at a time, and the methods. After a call the blocks that a faulted one has left
///         with the plug-in's tracker are given back.
/// @throws std::runtime_error that names the culprit.
Service load_service(const std::string &driver, const std::string &plugin, std::size_t max_body);

}  // namespace lmq::host
