// Calls by way of the XML-RPC library, or of the methods alone where the pre-pass has read the call.
#include "registry.h"

#include <cstdlib>
#include <stdexcept>

#include "answer_writer.h"
#include "env.h"
#include "packed_call.h"
#include "xml_text.h"

namespace lmq::host {
namespace {

using Value = std::unique_ptr<xmlrpc_value, void (*)(xmlrpc_value *)>;

}  // namespace

XmlrpcLibrary::XmlrpcLibrary() {
    Env env;
    xmlrpc_init(env);
    env.check();
}

XmlrpcLibrary::~XmlrpcLibrary() { xmlrpc_term(); }

Registry::Registry(std::size_t document_limit) {
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, document_limit);
    Env env;
    registry_.reset(xmlrpc_registry_new(env));
    env.check();
}

void Registry::fill(Init *init) {
    Env env;
    {
        const Methods::Recording recording(methods_);
        init(registry_.get(), env);
    }
    env.check();
    // After the plug-in: a hook of its own would keep the parameters from its methods.
    const auto add_parameters = [](xmlrpc_env *fault, const char *, xmlrpc_value *params, void *packed) {
        unpack(fault, *static_cast<std::string_view *>(packed), params);
    };
    xmlrpc_registry_set_preinvoke_method(env, registry_.get(), add_parameters, &packed_);
    env.check();
}

std::vector<std::string> Registry::methods() {
    const std::string answer = call("<methodCall><methodName>system.listMethods</methodName></methodCall>");
    Env env;
    xmlrpc_value *list = nullptr;
    int code = 0;
    const char *text = nullptr;
    xmlrpc_parse_response2(env, answer.data(), answer.size(), &list, &code, &text);
    env.check();
    const Value owner(list, &xmlrpc_DECREF);
    std::vector<std::string> names;
    const int count = xmlrpc_array_size(env, list);
    for (int at = 0; at < count; ++at) {
        xmlrpc_value *item = nullptr;
        xmlrpc_array_read_item(env, list, static_cast<unsigned>(at), &item);
        const Value held(item, &xmlrpc_DECREF);
        const char *name = nullptr;
        xmlrpc_read_string(env, item, &name);
        env.check();
        names.emplace_back(name);
        std::free(const_cast<char *>(name));
    }
    return names;
}

std::string Registry::call(std::string_view call) {
    packed_ = {};
    if (!call.starts_with(packed_mark)) return process(call);
    const std::string_view name = packed_method(call);
    if (MethodEntry *method = methods_.find(name)) return call_method(*method, call);
    // The library asks for nothing but a name in XML; the hook adds the parameters to those it has read, which are
    // none.
    packed_ = call;
    std::string head("<methodCall><methodName>");
    return process(head.append(name).append("</methodName></methodCall>"));
}

/// Does what the library does with a call, but for the reading and writing of XML.
std::string Registry::call_method(MethodEntry &method, std::string_view packed) {
    Env env;
    const Value parameters(xmlrpc_array_new(env), &xmlrpc_DECREF);
    env.check();
    unpack(env, packed, parameters.get());
    xmlrpc_value *returned = nullptr;
    if (!env.has_fault()) returned = method.function(env, parameters.get(), method.server_info, nullptr);
    if (env.has_fault()) {
        Env writing;
        const MemoryBlock block(writing);
        xmlrpc_serialize_fault(writing, block.get(), env);
        writing.check();
        check_xml(block.text());
        return std::string(block.text());
    }
    if (returned == nullptr) throw std::runtime_error("The method has no result.");
    const Value result(returned, &xmlrpc_DECREF);
    std::string answer = answer_document(result.get(), method.answer_length);
    method.answer_length = answer.size();
    return answer;
}

/// Has the library carry out the call of a document.
std::string Registry::process(std::string_view document) {
    Env env;
    xmlrpc_mem_block *answer = nullptr;
    xmlrpc_registry_process_call2(env, registry_.get(), document.data(), document.size(), nullptr, &answer);
    env.check();
    const MemoryBlock block(answer);
    check_xml(block.text());
    return std::string(block.text());
}

}  // namespace lmq::host
