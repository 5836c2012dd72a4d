// The texts of the faults of API methods. They are part of the interface, odd grammar included.
#include "marshal/fault.h"

#include <cstddef>
#include <cstring>
#include <initializer_list>

namespace lmq::fault {

namespace {

// Longer than the longest text that the interface's names can make.
constexpr size_t text_size = 512;

void set(xmlrpc_env *env, int code, std::initializer_list<const char *> parts) {
    char text[text_size];
    size_t size = 0;
    for (const char *part : parts) {
        size_t length = strlen(part);
        if (length > text_size - 1 - size) length = text_size - 1 - size;
        memcpy(text + size, part, length);
        size += length;
    }
    text[size] = '\0';
    xmlrpc_env_set_fault(env, code, text);
}

struct Decimal {
    char text[11];
    explicit Decimal(unsigned value) {
        char reversed[sizeof text];
        size_t digits = 0;
        do reversed[digits++] = static_cast<char>('0' + value % 10);
        while (value /= 10);
        for (size_t i = 0; i < digits; ++i) text[i] = reversed[digits - 1 - i];
        text[digits] = '\0';
    }
};

void set_argument(xmlrpc_env *env, unsigned position, std::initializer_list<const char *> said) {
    const char *what[3] = {"", "", ""};
    size_t parts = 0;
    for (const char *part : said) what[parts++] = part;
    set(env, XMLRPC_TYPE_ERROR, {"Function input ", Decimal(position).text, ": ", what[0], what[1], what[2]});
}

void set_member(xmlrpc_env *env, Place place, std::initializer_list<const char *> said) {
    const char *what[3] = {"", "", ""};
    size_t parts = 0;
    for (const char *part : said) what[parts++] = part;
    set(env, XMLRPC_TYPE_ERROR,
        {"Member ", place.member, " of struct type ", place.udt, ": ", what[0], what[1], what[2]});
}

}  // namespace

void count(xmlrpc_env *env, const char *function, unsigned count) {
    set(env, XMLRPC_LIMIT_EXCEEDED_ERROR,
        {"Input argument size mismatch: function \"", function, "\" expects ", Decimal(count).text, " argument(s)!"});
}

void argument(xmlrpc_env *env, unsigned position, const char *type) {
    set_argument(env, position, {"expected a ", type, " but got something else"});
}

void argument_is_struct(xmlrpc_env *env, unsigned position, const char *pointee) {
    set_argument(env, position, {"is a struct, but I expected a ", pointee, " *"});
}

void argument_no_udt(xmlrpc_env *env, unsigned position) {
    set_argument(env, position, {"expected an array or a struct, but got something else"});
}

void entry(xmlrpc_env *env, const char *pointee, const char *type) {
    set(env, XMLRPC_TYPE_ERROR, {"Array of ", pointee, " * entry: expected a ", type, " but got something else"});
}

void member(xmlrpc_env *env, Place place, const char *type) {
    set_member(env, place, {"expected a ", type, " but got something else"});
}

void member_pointer(xmlrpc_env *env, Place place, const char *pointee) {
    set_member(env, place, {"expected a ", pointee, " * but got something else"});
}

void member_is_struct(xmlrpc_env *env, Place place, const char *pointee) {
    set_member(env, place, {"is a struct, but I expected a ", pointee, " *"});
}

void member_no_udt(xmlrpc_env *env, Place place) {
    set_member(env, place, {"expected an array or a struct, but got something else"});
}

void member_no_inline_struct(xmlrpc_env *env, Place place, const char *key) {
    set_member(env, place, {"expected an inline struct for member ", key, " but got something else"});
}

void member_too_long(xmlrpc_env *env, Place place, unsigned bound) {
    set(env, XMLRPC_TYPE_ERROR,
        {"Member ", place.member, " of struct type ", place.udt, ": strlen of ", place.member,
         " larger than defined maximum of ", Decimal(bound).text});
}

}  // namespace lmq::fault
