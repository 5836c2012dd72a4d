// The UDT catalogue: lmq.listUDTs, lmq.UDTSignature and lmq.UDTMalloc, told from the rows that the coders read.
#include <cstdlib>

#include "families/udts.h"
#include "frame/method.h"
#include "introspect/lookup.h"
#include "lmq_xmlrpc.h"
#include "marshal/scalar.h"
#include "marshal/udt.h"

namespace lmq {

namespace {

constexpr const Udt *udts[] = {
#define UDT_NAME(T) &udt_##T,
#include "families/udts.def"
#undef UDT_NAME
};

constexpr const char *udt_names[] = {
#define UDT_NAME(T) #T,
#include "families/udts.def"
#undef UDT_NAME
};
static_assert(prefix_size + longest(udt_names) < name_room);

constexpr auto udts_by_name = sorted(udt_names);

const Udt *find_udt(const char *name) {
    const char *bare = bare_name(name);
    if (!bare) return nullptr;
    const uint16_t *found = find(udts_by_name, bare, [](uint16_t udt) { return udts[udt]->name; });
    return found ? udts[*found] : nullptr;
}

// An array of scalars is told by the resolved type of its elements, every other member as it is declared.
const char *told_type(const Udt &udt, const Row &row) {
    return row.kind == Kind::elements ? c_name({row.width, row.is_signed}) : udt.text(row.type);
}

// A member's wire key, with the bound of an array behind it as the header spells it.
JoinedName told_name(const char *key, const char *bound) {
    return *bound ? JoinedName{key, "[", bound, "]"} : JoinedName{key};
}

// The members at the top level. The keys inside an inline struct are told by a prototype alone.
xmlrpc_value *members(xmlrpc_env *env, const char *name) {
    const Udt *udt = find_udt(name);
    if (!udt) return nullptr;
    xmlrpc_value *list = xmlrpc_array_new(env);
    for (const Row *row = udt->rows; row != udt->end(); row = next(row))
        append_record(env, list,
                      x_dvr_svar(env, told_type(*udt, *row), told_name(udt->text(row->key), udt->text(row->bound)).text,
                                 no_help_text));
    return list;
}

// A struct with every key, all zero. Nothing of it stays here, in spite of the method's name. Without memory it is nil.
xmlrpc_value *prototype(xmlrpc_env *env, const char *name) {
    const Udt *udt = find_udt(name);
    if (!udt) return nullptr;
    void *zeros = calloc(1, udt->size);
    xmlrpc_value *value = encode_udt(env, *udt, static_cast<std::byte *>(zeros));
    free(zeros);
    return value;
}

}  // namespace

extern "C" xmlrpc_value *x_rpc_listUDTs(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *list = xmlrpc_array_new(env);
    for (const Udt *udt : udts)
        append_record(env, list, xmlrpc_string_new(env, JoinedName{LMQ_PREFIX, udt->name}.text));
    return list;
}

extern "C" xmlrpc_value *x_rpc_UDTSignature(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    return look_up(env, parameters, members, "UDT not found");
}

extern "C" xmlrpc_value *x_rpc_UDTMalloc(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    return look_up(env, parameters, prototype, "UDT not found");
}

}  // namespace lmq
