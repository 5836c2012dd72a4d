// The frame that the three methods share which answer a question about a name.
#pragma once

#include <xmlrpc-c/base.h>

namespace lmq {

// The namespace of all names that clients are told: "lmq." before a method, a UDT.
constexpr char name_prefix[] = "lmq.";

// "lmq.NAME", for names of the interface.
struct FullName {
    char text[128];
    explicit FullName(const char *name);
};

// Answers what a table has for a name, or NULL if it has none.
using Answer = xmlrpc_value *(xmlrpc_env *env, const char *name);

// Takes the one parameter, a string, and answers it. Every fault has the code -509: for another number of parameters,
// for another type, and `not_found` for a name that has no answer.
xmlrpc_value *look_up(xmlrpc_env *env, xmlrpc_value *parameters, Answer *answer, const char *not_found);

// Whether a name is the full name of `bare`: "lmq.BARE", character for character.
bool is_full_name(const char *name, const char *bare);

// Appends a record to a list, which takes it over.
void append_record(xmlrpc_env *env, xmlrpc_value *list, xmlrpc_value *record);

}  // namespace lmq
