// How calls went, as the XML that build servers read of tests.
#pragma once

#include <cstddef>
#include <string>

namespace lmqctl {

class JunitReport {
  public:
    /// `suite` is what the calls are known by, such as their file.
    explicit JunitReport(std::string suite) : suite_(std::move(suite)) {}

    enum Outcome { passed, failed, broken, skipped };
    /// A call: `why` says what was wrong with it in a line, `answer` at length.
    void add(const std::string &name, Outcome outcome, double seconds, const std::string &why,
             const std::string &answer);

    std::string text() const;

  private:
    std::string suite_, cases_;
    std::size_t counts_[4] = {};
    double seconds_ = 0;
};

}  // namespace lmqctl
