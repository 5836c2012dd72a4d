// lmq.methodSignature: what a method returns and takes, and its help text, told from the rows that its handler reads.
#include "frame/method.h"
#include "introspect/dictionary.h"
#include "introspect/lookup.h"
#include "lmq_xmlrpc.h"

namespace lmq {

namespace {

// Positions in api_methods. The introspection methods have no row here.
constexpr auto methods_by_name = sorted({
#define API(api) #api,
#include "frame/order.def"
#undef API
});

const char *primitive_return_type(Returns returns) {
    switch (returns) {
        case Returns::status:
        case Returns::int32: return "int";
        case Returns::uint32: return "unsigned int";
        case Returns::nothing: return "void";
    }
    __builtin_unreachable();
}

JoinedName pointer_to(const char *type) { return {type, " *"}; }

xmlrpc_value *parameter(xmlrpc_env *env, const Method &method, const Argument &argument) {
    const char *name = method.text(argument.name);
    const char *type = method.text(argument.type);
    switch (argument.kind) {
        case ArgumentKind::value: return x_dvr_var(env, type, c_name(argument.scalar), name, 0, no_help_text);
        // A pointer to scalars is told by its resolved type in both places, unlike the prototype: so that a client sees
        // the width of what it sends.
        case ArgumentKind::element: {
            const JoinedName pointer = pointer_to(c_name(argument.scalar));
            return x_dvr_var(env, pointer.text, pointer.text, name, 0, no_help_text);
        }
        case ArgumentKind::udt:
            return x_dvr_var(env, pointer_to(type).text, pointer_to(behind_typedefs(type)).text, name, 1, no_help_text);
        case ArgumentKind::cookie:
            return x_dvr_var(env, pointer_to(type).text, pointer_to(type).text, name, 0, no_help_text);
    }
    __builtin_unreachable();
}

xmlrpc_value *signature(xmlrpc_env *env, const Method &method) {
    xmlrpc_value *list = xmlrpc_array_new(env);
    append_record(
        env, list,
        x_dvr_var(env, return_type(method.returns), primitive_return_type(method.returns), nullptr, 0, method.help()));
    for (unsigned i = 0; i < method.count; ++i) append_record(env, list, parameter(env, method, method.arguments()[i]));
    return list;
}

xmlrpc_value *answer(xmlrpc_env *env, const char *name) {
    const char *bare = bare_name(name);
    if (!bare) return nullptr;
    const uint16_t *found =
        find(methods_by_name, bare, [](uint16_t method) { return api_methods[method].method->name(); });
    return found ? signature(env, *api_methods[*found].method) : nullptr;
}

}  // namespace

extern "C" xmlrpc_value *x_rpc_methodSignature(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    return look_up(env, parameters, answer, "Function not found");
}

}  // namespace lmq
