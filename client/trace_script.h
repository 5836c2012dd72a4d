// The calls of a trace as a script that makes them again. An id that the chip gave out, and that a later call takes, is
// a variable in it.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "connection.h"
#include "id_map.h"
#include "trace_entry.h"
#include "trace_interface.h"

namespace lmqctl {

class TraceScript {
  public:
    /// @param interface, connection Must outlive this.
    TraceScript(TraceInterface &interface, const Connection &connection)
        : interface_(interface), connection_(connection), ids_(interface.dictionary, interface.types) {}

    /// Adds a call. What is none is passed over.
    void add(TraceEntry entry);

    /// @param language "batch", "c" or "python".
    /// @param file     Where the calls come from, for a comment.
    std::string text(const std::string &language, const std::string &file);

  private:
    using Id = std::pair<std::string, int64_t>;  // kind and number
    /// Where a call gives out an id that a later one takes.
    struct Kept {
        std::string path, name;
        std::size_t parameter;
    };
    struct Step {
        Method method;
        TraceEntry entry;
        std::vector<Kept> keeps;
        std::map<Id, std::string> names;  ///< of the ids that it takes
    };

    void find_ids();
    void find_taken(Step &step);
    void find_given(std::size_t index);
    std::string name_of(const Step &step, const Type &type, int64_t number) const;
    std::string batch_step(const Step &step);
    std::string python_step(const Step &step) const;
    std::string c_step(const Step &step);

    TraceInterface &interface_;
    const Connection &connection_;
    IdMap ids_;
    std::vector<Step> steps_;
    struct Given {
        std::size_t step;
        std::string path;
        std::size_t parameter;
    };
    std::map<Id, Given> given_;
    std::map<std::string, std::size_t> counts_;  ///< of the variables, by kind
    std::string comment_;
};

}  // namespace lmqctl
