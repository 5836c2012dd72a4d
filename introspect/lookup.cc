// The frame that the three methods share which answer a question about a name.
#include "introspect/lookup.h"

#include <cstdlib>
#include <cstring>

#include "frame/method.h"

namespace lmq {

namespace {

xmlrpc_value *refuse(xmlrpc_env *env, const char *text) {
    xmlrpc_env_set_fault(env, XMLRPC_LIMIT_EXCEEDED_ERROR, text);
    return nullptr;
}

}  // namespace

const char *bare_name(const char *name) {
    return strncmp(name, LMQ_PREFIX, prefix_size) == 0 ? name + prefix_size : nullptr;
}

void append_record(xmlrpc_env *env, xmlrpc_value *list, xmlrpc_value *record) {
    xmlrpc_array_append_item(env, list, record);
    xmlrpc_DECREF(record);
}

// Two losses here are decisions of this system: the item's reference is never given back, and the copy of a name that
// is not found is never freed.
xmlrpc_value *look_up(xmlrpc_env *env, xmlrpc_value *parameters, Answer *answer, const char *not_found) {
    if (!parameters || xmlrpc_array_size(env, parameters) != 1)
        return refuse(env, "Expected one and only one parameter");
    xmlrpc_value *item;
    xmlrpc_array_read_item(env, parameters, 0, &item);
    if (env->fault_occurred) return nullptr;
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRING) return refuse(env, "Expected a string as parameter");
    const char *name;
    xmlrpc_read_string(env, item, &name);
    if (env->fault_occurred) return nullptr;
    xmlrpc_value *answered = answer(env, name);
    if (!answered) return refuse(env, not_found);
    free(const_cast<char *>(name));
    return answered;
}

}  // namespace lmq
