// Fuzzer of the whole way of a document: what the pre-pass accepts goes to the XML-RPC library, whose registry has one
// method that sends its arguments back. Whatever comes in, there is an answer, and what the pre-pass has packed is
// answered like the document itself.
#include "registry.h"

#include <cstdint>
#include <cstdlib>

#include "encoding.h"
#include "prepass.h"

namespace {

xmlrpc_value *echo(xmlrpc_env *, xmlrpc_value *params, void *, void *) {
    xmlrpc_INCREF(params);
    return params;
}

int fill(xmlrpc_registry *registry, xmlrpc_env *env) {
    xmlrpc_registry_add_method2(env, registry, "test.echo", &echo, "?", "", nullptr);
    return 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static lmq::host::Prepass prepass({32, 5000, 100, 10});
    static auto *registry = [] {
        auto *made = new lmq::host::Registry(1 << 20);
        made->fill(&fill);
        return made;
    }();
    const std::string_view document(reinterpret_cast<const char *>(data), size);
    const auto verdict = prepass.examine(document);
    if (verdict.fault) return 0;
    const lmq::host::Utf8 utf8(document);
    const std::string answer = registry->call(utf8.text());
    if (answer.empty()) std::abort();
    if (!verdict.packed.empty() && registry->call(verdict.packed) != answer) std::abort();
    return 0;
}
