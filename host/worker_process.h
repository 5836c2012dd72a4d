// The worker's side: the process that holds the driver.
#pragma once

#include <string>
#include <vector>

#include "backend.h"
#include "spawner.h"

namespace lmq::host {

/// The life of a worker: it loads everything, then answers calls until the front closes the socket.
void work(int socket, Board &board, const WorkerPlan &plan);

/// The list of methods as the first frame of a worker holds it: lines, each with a sign of its kind in front.
std::string text_of(const std::vector<Method> &methods);
std::vector<Method> methods_of(const std::string &text);

}  // namespace lmq::host
