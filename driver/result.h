// How functions of the chip refuse: by a status, which their callers pass on.
//
// A check returns the status itself, and what finds or makes something returns a Result:
//
//     if (const vx_status_e refused = check_vid(vid)) return refused;
//     const Result<Bridge &> bridge = bridge_of(device, id);
//     if (!bridge) return bridge.status();
#pragma once

#include <utility>

#include "lmq/lmq.h"

namespace lmq::sim {

static_assert(VX_SUCCESS == 0, "if (const vx_status_e refused = ...) tells a refusal from success");

/// What a function has found or made for an operation, or the status that it refuses the operation with.
template <typename T>
class [[nodiscard]] Result {
  public:
    Result(T value) : value_(std::move(value)) {}
    Result(vx_status_e refused) : status_(refused) {}

    /// Whether there is a value.
    explicit operator bool() const { return status_ == VX_SUCCESS; }

    vx_status_e status() const { return status_; }

    /// The value, if there is one.
    const T &operator*() const { return value_; }
    const T *operator->() const { return &value_; }

  private:
    T value_{};
    vx_status_e status_ = VX_SUCCESS;
};

/// The same for what stays where it is.
template <typename T>
class [[nodiscard]] Result<T &> {
  public:
    Result(T &found) : found_(&found) {}
    Result(vx_status_e refused) : status_(refused) {}

    explicit operator bool() const { return status_ == VX_SUCCESS; }
    vx_status_e status() const { return status_; }
    T &operator*() const { return *found_; }
    T *operator->() const { return found_; }

  private:
    T *found_ = nullptr;
    vx_status_e status_ = VX_SUCCESS;
};

/// Copies what was found, for the functions that read it.
template <typename T>
[[nodiscard]] vx_status_e copy(const Result<T &> &found, T *to) {
    if (found) *to = *found;
    return found.status();
}

}  // namespace lmq::sim
