// The four description records that all introspection is built from.
#include "lmq_xmlrpc.h"

namespace {

void set(xmlrpc_env *env, xmlrpc_value *record, const char *key, xmlrpc_value *value) {
    xmlrpc_struct_set_value(env, record, key, value);
    xmlrpc_DECREF(value);
}

void set_text(xmlrpc_env *env, xmlrpc_value *record, const char *key, const char *text) {
    set(env, record, key, xmlrpc_string_new(env, text));
}

}  // namespace

xmlrpc_value *x_dvr_dvar(xmlrpc_env *env, const char *name, const char *value, const char *doc) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    set_text(env, record, "name", name);
    set_text(env, record, "value", value);
    set_text(env, record, "doc", doc);
    return record;
}

xmlrpc_value *x_dvr_svar(xmlrpc_env *env, const char *type, const char *name, const char *doc) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    set_text(env, record, "type", type);
    set_text(env, record, "name", name);
    set_text(env, record, "doc", doc);
    return record;
}

xmlrpc_value *x_dvr_evar(xmlrpc_env *env, const char *name, int value, const char *doc) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    set_text(env, record, "name", name);
    set(env, record, "value", xmlrpc_int_new(env, value));
    set_text(env, record, "doc", doc);
    return record;
}

xmlrpc_value *x_dvr_var(xmlrpc_env *env, const char *application_type, const char *primative_type,
                        const char *declaration_name, int isUDT, const char *doc) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    set_text(env, record, "application_type", application_type);
    set_text(env, record, "primative_type", primative_type);
    set(env, record, "declaration_name",
        declaration_name ? xmlrpc_string_new(env, declaration_name) : xmlrpc_nil_new(env));
    set(env, record, "isUDT", xmlrpc_bool_new(env, isUDT));
    set_text(env, record, "doc", doc);
    return record;
}
