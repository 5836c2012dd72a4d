// The XML-RPC library's carrier of faults, and its growing blocks of memory, as objects.
#pragma once

#include <xmlrpc-c/base.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>

namespace lmq::host {

/// A carrier of faults, without one at first.
class Env {
  public:
    Env() { xmlrpc_env_init(&env_); }
    ~Env() { xmlrpc_env_clean(&env_); }
    Env(const Env &) = delete;
    Env &operator=(const Env &) = delete;

    operator xmlrpc_env *() { return &env_; }

    bool has_fault() const { return env_.fault_occurred != 0; }

    /// @throws std::runtime_error with the text of the fault, if there is one.
    void check() const {
        if (has_fault()) throw std::runtime_error(env_.fault_string);
    }

  private:
    xmlrpc_env env_;
};

/// A block of characters that the library writes to.
class MemoryBlock {
  public:
    /// @throws std::bad_alloc if there is no memory for it.
    explicit MemoryBlock(xmlrpc_env *env) : block_(XMLRPC_MEMBLOCK_NEW(char, env, 0)) {
        if (env->fault_occurred) throw std::bad_alloc();
    }
    /// Takes charge of a block.
    explicit MemoryBlock(xmlrpc_mem_block *block) : block_(block) {}

    xmlrpc_mem_block *get() const { return block_.get(); }

    std::string_view text() const { return {XMLRPC_MEMBLOCK_CONTENTS(char, get()), XMLRPC_MEMBLOCK_SIZE(char, get())}; }

  private:
    struct Free {
        void operator()(xmlrpc_mem_block *block) const { XMLRPC_MEMBLOCK_FREE(char, block); }
    };

    std::unique_ptr<xmlrpc_mem_block, Free> block_;
};

}  // namespace lmq::host
