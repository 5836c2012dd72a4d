// The XML of a report.
#include "junit.h"

#include <cstdio>

namespace lmqctl {

namespace {

// As content and as an attribute. What XML cannot hold becomes a question mark.
std::string escaped(const std::string &text) {
    std::string result;
    for (const char letter : text) {
        switch (letter) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            case '\n':
            case '\t': result += letter; break;
            default: result += static_cast<unsigned char>(letter) < 0x20 || letter == 0x7f ? '?' : letter;
        }
    }
    return result;
}

std::string duration_text(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", seconds);
    return text;
}

}  // namespace

void JunitReport::add(const std::string &name, Outcome outcome, double seconds, const std::string &why,
                      const std::string &answer) {
    static constexpr const char *elements[] = {"", "failure", "error", "skipped"};
    ++counts_[outcome];
    seconds_ += seconds;
    cases_ += "  <testcase classname=\"" + escaped(suite_) + "\" name=\"" + escaped(name) + "\" time=\"" +
              duration_text(seconds) + "\"";
    if (outcome == passed) {
        cases_ += "/>\n";
        return;
    }
    const std::string element = elements[outcome];
    cases_ += ">\n    <" + element + " message=\"" + escaped(why) + "\">" + escaped(answer) + "</" + element +
              ">\n  </testcase>\n";
}

std::string JunitReport::text() const {
    const std::size_t all = counts_[passed] + counts_[failed] + counts_[broken] + counts_[skipped];
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"" + escaped(suite_) + "\" tests=\"" +
           std::to_string(all) + "\" failures=\"" + std::to_string(counts_[failed]) + "\" errors=\"" +
           std::to_string(counts_[broken]) + "\" skipped=\"" + std::to_string(counts_[skipped]) + "\" time=\"" +
           duration_text(seconds_) + "\">\n" + cases_ + "</testsuite>\n";
}

}  // namespace lmqctl
