// The type dictionary: lmq.listEnums, lmq.listDefines, lmq.listTypedefs, and lmq.capabilities. Order and spelling of
// every answer come from the .def files beside this one; nothing is asked of the driver.
//
// Each dictionary is one long text, its parts one behind the other, so that the plug-in needs no table of pointers.
#include "introspect/dictionary.h"

#include <cstring>
#include <string_view>

#include "frame/method.h"
#include "introspect/lookup.h"
#include "lmq/lmq.h"
#include "lmq_xmlrpc.h"

namespace lmq {

namespace {

// Begins an enum type among the names of enumerators.
#define ENUM_MARK "\1"

constexpr char enum_names[] =
#define ENUM(T) ENUM_MARK #T "\0"
#define ENUMERATOR(name) #name "\0"
#define BASED(base, name) #name "\0"
#include "introspect/enums.def"
#undef ENUM
#undef ENUMERATOR
#undef BASED
    ;

constexpr int enum_values[] = {
#define ENUM(T)
#define ENUMERATOR(name) name,
#define BASED(base, name) static_cast<int>(name) == static_cast<int>(base) ? name : name - base,
#include "introspect/enums.def"
#undef ENUM
#undef ENUMERATOR
#undef BASED
};

#define TEXT_OF(...) #__VA_ARGS__
constexpr char defines[] =  // name and replacement text in turn
#define DEFINE(name) #name "\0" TEXT_OF(name) "\0"
#define DEFINE_TEXT(name, text) #name "\0" text "\0"
#include "introspect/defines.def"
#undef DEFINE
#undef DEFINE_TEXT
    ;

constexpr char typedefs[] =  // name and base type in turn
#define TYPEDEF(name, base) #name "\0" base "\0"
#include "introspect/typedefs.def"
#undef TYPEDEF
    ;

// Walks the parts of a dictionary. The last is followed by an empty one.
constexpr const char *behind(const char *part) { return part + std::char_traits<char>::length(part) + 1; }

constexpr size_t typedef_count = [] {
    size_t count = 0;
    for (const char *part = typedefs; *part; part = behind(behind(part))) ++count;
    return count;
}();

// A base type is told as a pointer too.
static_assert(longest({
#define TYPEDEF(name, base) base,
#include "introspect/typedefs.def"
#undef TYPEDEF
              }) + sizeof " *" <=
              name_room);

constexpr const char *typedef_at(uint16_t offset) { return typedefs + offset; }

// By offsets of their names.
constexpr auto typedefs_by_name = [] {
    std::array<uint16_t, typedef_count> offsets{};
    size_t count = 0;
    for (const char *part = typedefs; *part; part = behind(behind(part)))
        offsets[count++] = static_cast<uint16_t>(part - typedefs);
    return sorted(offsets, typedef_at);
}();

void set(xmlrpc_env *env, xmlrpc_value *record, const char *key, xmlrpc_value *value) {
    xmlrpc_struct_set_value(env, record, key, value);
    xmlrpc_DECREF(value);
}

}  // namespace

const char *behind_typedefs(const char *name) {
    const uint16_t *found = find(typedefs_by_name, name, typedef_at);
    return found ? behind_typedefs(behind(typedef_at(*found))) : name;
}

extern "C" xmlrpc_value *x_rpc_listEnums(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *list = xmlrpc_array_new(env);
    const int *value = enum_values;
    for (const char *part = enum_names; *part;) {
        xmlrpc_value *type = xmlrpc_struct_new(env);
        set(env, type, "type", xmlrpc_string_new(env, part + sizeof ENUM_MARK - 1));
        set(env, type, "doc", xmlrpc_string_new(env, no_help_text));
        xmlrpc_value *values = xmlrpc_array_new(env);
        for (part = behind(part); *part && *part != *ENUM_MARK; part = behind(part))
            append_record(env, values, x_dvr_evar(env, part, *value++, no_help_text));
        set(env, type, "values", values);
        append_record(env, list, type);
    }
    return list;
}

extern "C" xmlrpc_value *x_rpc_listDefines(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *list = xmlrpc_array_new(env);
    for (const char *part = defines; *part; part = behind(behind(part)))
        append_record(env, list, x_dvr_dvar(env, part, behind(part), no_help_text));
    return list;
}

extern "C" xmlrpc_value *x_rpc_listTypedefs(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *chain = xmlrpc_struct_new(env);
    for (const char *part = typedefs; *part; part = behind(behind(part)))
        set(env, chain, part, xmlrpc_string_new(env, behind(part)));
    return chain;
}

// The whole answer: the key tells that methods describe their functions.
extern "C" xmlrpc_value *x_rpc_capabilities(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *answer = xmlrpc_struct_new(env);
    set(env, answer, "function_ios", xmlrpc_int_new(env, 1));
    return answer;
}

}  // namespace lmq
