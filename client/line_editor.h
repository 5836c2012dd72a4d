// Lines from a terminal: edited, remembered, completed with Tab. The editing is libedit's, which is loaded for a
// session alone: the other commands need not pay half a millisecond for it. Without the library, lines are read as they
// come.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "complete.h"

namespace lmqctl {

class LineEditor {
  public:
    /// What the last word of the line up to the cursor may become.
    using Completer = std::function<std::vector<Completion>(const std::string &before_cursor)>;

    /// `history` is the file of the lines of earlier sessions; empty for none.
    LineEditor(const std::string &prompt, const std::string &history, Completer completer);
    ~LineEditor();
    void set_prompt(const std::string &prompt);
    LineEditor(const LineEditor &) = delete;
    LineEditor &operator=(const LineEditor &) = delete;

    enum Result { a_line, dropped, end };  ///< Enter, Ctrl-C, Ctrl-D
    Result read(std::string &line);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace lmqctl
