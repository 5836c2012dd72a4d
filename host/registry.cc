// Ownership of the XML-RPC library's objects, and its fault carrier turned into exceptions.
#include "registry.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "packed_call.h"
#include "xml_text.h"

namespace lmq::host {
namespace {

/// A fault carrier of the XML-RPC library.
class Fault {
  public:
    Fault() { xmlrpc_env_init(&env_); }
    ~Fault() { xmlrpc_env_clean(&env_); }
    Fault(const Fault &) = delete;
    Fault &operator=(const Fault &) = delete;

    xmlrpc_env *env() { return &env_; }

    /// Throws what the carrier holds, if it holds anything.
    void check() const {
        if (env_.fault_occurred) throw std::runtime_error(env_.fault_string);
    }

  private:
    xmlrpc_env env_;
};

}  // namespace

XmlrpcLibrary::XmlrpcLibrary() {
    Fault fault;
    xmlrpc_init(fault.env());
    fault.check();
}

XmlrpcLibrary::~XmlrpcLibrary() { xmlrpc_term(); }

Registry::Registry(std::size_t document_limit) {
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, document_limit);
    Fault fault;
    registry_.reset(xmlrpc_registry_new(fault.env()));
    fault.check();
}

void Registry::fill(Init *init) {
    Fault fault;
    init(registry_.get(), fault.env());
    fault.check();
    // After the plug-in: a hook of its own would keep the parameters from its methods.
    const auto add_parameters = [](xmlrpc_env *env, const char *, xmlrpc_value *params, void *packed) {
        unpack(env, *static_cast<std::string_view *>(packed), params);
    };
    xmlrpc_registry_set_preinvoke_method(fault.env(), registry_.get(), add_parameters, &packed_);
    fault.check();
}

std::vector<std::string> Registry::methods() {
    const std::string answer = call("<methodCall><methodName>system.listMethods</methodName></methodCall>");
    Fault fault;
    xmlrpc_value *list = nullptr;
    int code = 0;
    const char *text = nullptr;
    xmlrpc_parse_response2(fault.env(), answer.data(), answer.size(), &list, &code, &text);
    fault.check();
    const std::unique_ptr<xmlrpc_value, void (*)(xmlrpc_value *)> owner(list, &xmlrpc_DECREF);
    std::vector<std::string> names;
    const int count = xmlrpc_array_size(fault.env(), list);
    for (int at = 0; at < count; ++at) {
        xmlrpc_value *item = nullptr;
        xmlrpc_array_read_item(fault.env(), list, static_cast<unsigned>(at), &item);
        const std::unique_ptr<xmlrpc_value, void (*)(xmlrpc_value *)> held(item, &xmlrpc_DECREF);
        const char *name = nullptr;
        xmlrpc_read_string(fault.env(), item, &name);
        fault.check();
        names.emplace_back(name);
        std::free(const_cast<char *>(name));
    }
    return names;
}

std::string Registry::call(std::string_view call) {
    // The library asks for nothing but a name in XML; the hook adds the parameters to those it has read, which are
    // none.
    std::string head;
    packed_ = {};
    std::string_view document = call;
    if (call.starts_with(packed_mark)) {
        packed_ = call;
        head.append("<methodCall><methodName>").append(packed_method(call)).append("</methodName></methodCall>");
        document = head;
    }
    Fault fault;
    xmlrpc_mem_block *answer = nullptr;
    xmlrpc_registry_process_call2(fault.env(), registry_.get(), document.data(), document.size(), nullptr, &answer);
    fault.check();
    const std::unique_ptr<xmlrpc_mem_block, void (*)(xmlrpc_mem_block *)> owner(
        answer, [](xmlrpc_mem_block *block) { XMLRPC_MEMBLOCK_FREE(char, block); });
    const std::string_view text(XMLRPC_MEMBLOCK_CONTENTS(char, answer), XMLRPC_MEMBLOCK_SIZE(char, answer));
    if (const auto at = not_xml(text); at != std::string_view::npos) {
        char code[8];
        std::snprintf(code, sizeof code, "0x%02X", static_cast<unsigned char>(text[at]));
        throw std::runtime_error("A text in the result holds the byte " + std::string(code) +
                                 ", which XML cannot carry there.");
    }
    return std::string(text);
}

}  // namespace lmq::host
