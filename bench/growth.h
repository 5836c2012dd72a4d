// Calls of several sizes, which show how the price grows.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/plugin.h"

namespace lmq::bench {

/// A column of a line: a handler alone, or the whole way of a document where there is a registry.
struct Subject {
    std::string column;
    Handler *handler;
    xmlrpc_value *parameters;
    std::shared_ptr<Registry> registry;
    std::string document;
    bool is_counted;  ///< its instructions too; that takes long where the library's XML parser has much to read
};

struct Growth {
    struct Line {
        int size;
        std::vector<Subject> subjects;
    };
    std::string title, size;
    std::vector<Line> lines;
};

/// The simulated chip must have been started.
std::vector<Growth> make_growth(const Plugin &plugin);

/// What times and counts of a subject are called.
std::string name_of(const Growth &growth, const Growth::Line &line, const Subject &subject);

}  // namespace lmq::bench
