// The plug-in as a host loads it, and registries with its rows in which some of the handlers may be others.
#pragma once

#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench/straight.h"

namespace lmq::bench {

/// Ends the program with the library's fault if there is one.
struct Env {
    xmlrpc_env env;
    Env() { xmlrpc_env_init(&env); }
    ~Env() { xmlrpc_env_clean(&env); }
    Env(const Env &) = delete;
    operator xmlrpc_env *() { return &env; }
    void check(const std::string &what) const;
};

struct Row {
    std::string name;
    Handler *handler;
    std::string signature, help;
    void *data;  ///< handed to the handler as its third argument
};

class Registry {
  public:
    explicit Registry(const std::vector<Row> &rows);

    /// Answers a document. The caller owns the answer.
    xmlrpc_mem_block *process(const std::string &document) const {
        Env env;
        xmlrpc_mem_block *answer = nullptr;
        xmlrpc_registry_process_call2(env, registry_.get(), document.data(), document.size(), nullptr, &answer);
        return answer;
    }
    std::string answer(const std::string &document) const;

  private:
    std::unique_ptr<xmlrpc_registry, decltype(&xmlrpc_registry_free)> registry_;
};

/// Loads the plug-in, with what it needs of this program's own libraries, and takes the rows that it registers. Sets
/// the tracker of the straight-line handlers. Throws std::runtime_error with the loader's reason.
class Plugin {
  public:
    explicit Plugin(const std::filesystem::path &file);

    const std::vector<Row> &rows() const { return rows_; }
    Handler *handler(const std::string &method) const;

  private:
    std::vector<Row> rows_;
};

/// A document that calls a method.
std::string call_document(const std::string &method, xmlrpc_value *parameters);

/// A handler that answers its data, a value that exists already.
Handler answer_existing;

}  // namespace lmq::bench
