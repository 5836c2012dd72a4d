// Rounds of calls by contract, each on a fresh chip, and what is wrong with the answers.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "condition.h"
#include "generator.h"

namespace lmqctl {

struct FuzzOptions {
    std::vector<std::string> patterns;  ///< of methods; all if empty
    std::vector<std::string> skip;      ///< patterns of methods that are not called
    std::vector<std::string> also;      ///< of methods that are, although they reset
    uint64_t seed = 1;
    std::size_t calls = 20000;
    bool hostile = false;
    bool check = false;  ///< whether what was set can be read
};

/// Something that must not be, and the calls of the round up to it.
struct Finding {
    Condition condition;
    std::string text;  ///< for people, one line
    std::vector<PlayedCall> calls;
    std::size_t after;  ///< calls of the whole search, those to look at memory included
};

class Fuzzer {
  public:
    /// `first` are the calls that each round begins with. Throws a UsageError if no method is left to be called.
    Fuzzer(FreshHosts &hosts, FuzzOptions options, std::vector<Call> first);

    /// Makes a round of calls. `found` is told of what nobody has been told of yet; the round goes on if it can.
    void round(const std::function<void(const Finding &)> &found);

    bool is_done() const { return made_ >= options_.calls; }
    std::size_t made() const { return made_; }      ///< calls, the first of a round included
    std::size_t probes() const { return probes_; }  ///< calls to see whether memory grows, beside those
    std::size_t rounds() const { return rounds_; }
    std::size_t succeeded() const { return succeeded_; }  ///< of those that were made up
    std::size_t made_up() const { return made_up_; }
    std::size_t methods() const { return methods_.size(); }
    std::size_t methods_that_succeeded() const { return reached_.size(); }
    /// Those that the options leave out, or that are too dangerous.
    const std::vector<std::string> &left_out() const { return left_out_; }

  private:
    struct Round;
    void choose_methods();
    bool make(Round &round, const Method &method, Json parameters);
    void look(Round &round, const Method &method);
    void note_memory(Round &round, const Method &method);
    void probe(Round &round);
    void report(Round &round, Condition condition, const std::string &text);
    void give_up(const std::string &method);
    const Method &next_method(Round &round) const;
    void make_and_read(Round &round, const Method &method);

    FreshHosts &hosts_;
    const FuzzOptions options_;
    const std::vector<Call> first_;
    std::vector<Method> methods_;
    std::vector<std::string> left_out_;
    std::map<std::string, std::vector<std::size_t>> families_;  // places in methods_
    std::vector<std::string> family_names_, turns_;
    std::set<std::string> told_, reached_, given_up_;
    std::map<std::string, int> ends_;    // of the driver, by method
    std::map<std::string, int> probed_;  // by method
    std::size_t made_ = 0, probes_ = 0, made_up_ = 0, succeeded_ = 0, rounds_ = 0;
};

}  // namespace lmqctl
