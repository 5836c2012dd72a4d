// Finds the few calls that matter among many, and the least that has to be in them.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "condition.h"

namespace lmqctl {

class Shrinker {
  public:
    /// `say` is told what is going on: how many calls are left.
    Shrinker(FreshHosts &hosts, Condition condition, std::function<void(const std::string &)> say)
        : hosts_(hosts), condition_(std::move(condition)), say_(std::move(say)) {}

    /// The calls that are left, with what became of them in the last run. Nothing if the calls, made again on a fresh
    /// chip, do not fulfil the condition.
    std::optional<std::vector<PlayedCall>> shrink(const std::vector<PlayedCall> &calls);

    /// Runs up to now.
    std::size_t tries() const { return tries_; }

  private:
    using Calls = std::vector<PlayedCall>;
    std::optional<Calls> attempt(const Calls &calls);
    bool is_fulfilled(const FreshHost &host, const Calls &played, bool is_last_of_method) const;
    void keep_family();
    void drop_calls();
    bool drop_chunk(std::size_t begin, std::size_t count);
    void simplify_calls();
    void simplify(std::size_t call, const Json::json_pointer &place, bool is_argument);
    bool try_value(std::size_t call, const Json::json_pointer &place, const Json &value);
    bool try_without(std::size_t call, const Json::json_pointer &place, const std::string &key);

    FreshHosts &hosts_;
    const Condition condition_;
    const std::function<void(const std::string &)> say_;
    Calls best_;
    std::size_t tries_ = 0;
};

}  // namespace lmqctl
