// Writing of fault documents, and finding the code in one that the XML-RPC library wrote.
#include "fault.h"

#include <charconv>

namespace lmq::host {
namespace {

std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '&': result += "&amp;"; break;
            default: result += c;
        }
    }
    return result;
}

}  // namespace

std::string document(const Fault &fault) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<methodResponse>\r\n<fault>\r\n<value><struct>\r\n"
           "<member><name>faultCode</name>\r\n<value><int>" +
           std::to_string(fault.code) +
           "</int></value></member>\r\n<member><name>faultString</name>\r\n<value><string>" + escaped(fault.text) +
           "</string></value></member>\r\n</struct></value>\r\n</fault>\r\n</methodResponse>\r\n";
}

// The library writes the code in front of the text, so that nothing a client sent can stand before it.
int fault_code(std::string_view answer) {
    constexpr std::string_view int_tag = "<int>", i4_tag = "<i4>";
    const std::string_view head = answer.substr(0, 256);
    const std::size_t fault = head.find("<fault>");
    if (fault == std::string_view::npos || head.find("<params>") < fault) return 0;
    std::size_t number = head.find(i4_tag, fault);
    number = number == std::string_view::npos ? head.find(int_tag, fault) + int_tag.size() : number + i4_tag.size();
    int code = Fault::internal;
    if (number < head.size()) std::from_chars(head.data() + number, head.data() + head.size(), code);
    return code;
}

}  // namespace lmq::host
