// Faults to and from documents, with the XML-RPC library's own writer.
#include "fault.h"

#include <xmlrpc-c/base.h>

#include <charconv>
#include <new>

#include "answer.h"
#include "env.h"

namespace lmq::host {

std::string document(const Fault &fault) {
    Env env, told;
    xmlrpc_env_set_fault(told, fault.code, fault.text.c_str());
    const MemoryBlock block(env);
    xmlrpc_serialize_fault(env, block.get(), told);
    if (env.has_fault()) throw std::bad_alloc();
    return std::string(block.text());
}

// The library writes the code in front of the text, so that nothing a client sent can stand before it.
int fault_code(std::string_view answer) {
    if (answer.starts_with(begin_of_answer)) return 0;
    constexpr std::string_view opening = "<methodResponse>", fault_tag = "<fault>", int_tag = "<int>", i4_tag = "<i4>";
    const std::string_view head = answer.substr(0, 256);
    const std::size_t opened = head.find(opening);
    if (opened == std::string_view::npos) return 0;
    const std::size_t fault = head.find_first_not_of("\r\n \t", opened + opening.size());
    if (fault == std::string_view::npos || !head.substr(fault).starts_with(fault_tag)) return 0;
    std::size_t number = head.find(i4_tag, fault);
    number = number == std::string_view::npos ? head.find(int_tag, fault) + int_tag.size() : number + i4_tag.size();
    int code = Fault::internal;
    if (number < head.size()) std::from_chars(head.data() + number, head.data() + head.size(), code);
    return code;
}

}  // namespace lmq::host
