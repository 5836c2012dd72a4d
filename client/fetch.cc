// Fetching the dictionary with the introspection methods: the only names of methods that the client knows by itself.
#include "fetch.h"

#include <algorithm>

#include "error.h"

namespace lmqctl {

namespace {

// "lmq." of a host that answers lmq.methodSignature.
std::string prefix_of(const Json &names, const std::string &url) {
    for (const Json &name : names) {
        const std::string text = name;
        const std::string end = ".methodSignature";
        if (text.ends_with(end) && !text.starts_with("system.")) return text.substr(0, text.size() - end.size() + 1);
    }
    throw Error(exit_connection,
                url + ": this host does not describe its methods: it has no NAMESPACE.methodSignature");
}

std::string bare(const std::string &prefix, const std::string &name) {
    return name.starts_with(prefix) ? name.substr(prefix.size()) : name;
}

std::vector<Call> method_questions(const std::string &prefix, const std::string &name) {
    const Json only = Json::array({name});
    return {{prefix + "methodSignature", only}, {"system.methodSignature", only}, {"system.methodHelp", only}};
}

std::vector<Call> udt_questions(const std::string &prefix, const std::string &name) {
    const Json only = Json::array({name});
    return {{prefix + "UDTSignature", only}, {prefix + "UDTMalloc", only}};
}

// The records of a method or a UDT, without what they all say alike.
Json signature_of(const Json &answer) {
    Json signature = Json::array();
    if (answer.is_array())
        for (const Json &record : answer) {
            Json kept = record;
            kept.erase("doc");
            signature.push_back(kept);
        }
    return signature;
}

Json members_of(const Json &answer) {
    Json members = Json::array();
    if (answer.is_array())
        for (const Json &record : answer) members.push_back({{"type", record.at("type")}, {"name", record.at("name")}});
    return members;
}

std::string method_json(const Json *answers) {
    const Json signature = signature_of(answers[0]);
    Json letters = Json::array();
    if (signature.empty() && answers[1].is_array() && !answers[1].empty()) letters = answers[1][0];
    return Json{
        {"signature", signature}, {"letters", letters}, {"help", answers[2].is_string() ? answers[2] : Json("")}}
        .dump();
}

std::string udt_json(const Json *answers) {
    return Json{{"members", members_of(answers[0])}, {"prototype", is_fault(answers[1]) ? Json::object() : answers[1]}}
        .dump();
}

std::vector<std::string> taken_udts(const Dictionary &dictionary, const Method &method) {
    std::vector<std::string> names;
    for (const Parameter &parameter : method.parameters)
        if (parameter.is_udt) names.push_back(dictionary.full_name(parameter.pointee()));
    return names;
}

}  // namespace

std::string fetch_dictionary(Session &session) { return fetch_dictionary(session, session.call("system.listMethods")); }

std::string fetch_dictionary(Session &session, const Json &names) {
    const std::string prefix = prefix_of(names, session.url());
    const std::vector<Json> lists = session.multicall(
        {{prefix + "listUDTs"}, {prefix + "listEnums"}, {prefix + "listDefines"}, {prefix + "listTypedefs"}});
    for (const Json &list : lists)
        if (is_fault(list)) throw Fault(list.at("faultCode"), list.at("faultString"));

    std::vector<Call> questions;
    for (const Json &name : names)
        for (const Call &question : method_questions(prefix, name)) questions.push_back(question);
    for (const Json &name : lists[0])
        for (const Call &question : udt_questions(prefix, name)) questions.push_back(question);
    const std::vector<Json> answers = session.multicall(questions);

    std::string text = Dictionary::head(prefix);
    const Json *answer = answers.data();
    for (const Json &name : names) {
        text += Dictionary::line(Dictionary::methods, bare(prefix, name), method_json(answer));
        answer += method_questions(prefix, name).size();
    }
    for (const Json &name : lists[0]) {
        text += Dictionary::line(Dictionary::udts, bare(prefix, name), udt_json(answer));
        text += Dictionary::line(Dictionary::shapes, shape(answer[1]), Json(bare(prefix, name)).dump());
        answer += udt_questions(prefix, name).size();
    }
    for (const Json &type : lists[1]) {
        Json values = Json::array();
        for (const Json &value : type.at("values")) values.push_back({value.at("name"), value.at("value")});
        text += Dictionary::line(Dictionary::enums, type.at("type"), values.dump());
    }
    for (const Json &define : lists[2])
        text += Dictionary::line(Dictionary::defines, define.at("name"), define.at("value").dump());
    for (const auto &[name, base] : lists[3].items()) text += Dictionary::line(Dictionary::typedefs, name, base.dump());
    return text;
}

std::optional<std::string> changed_contract(Session &session, const Dictionary &dictionary,
                                            const std::function<void(const std::string &)> &complain) {
    const HttpAnswer answer = session.get("interface", dictionary.contract_tag());
    if (answer.status == 304 && dictionary.has_contract()) return {};
    if (answer.status == 200) {
        try {
            return dictionary.text_with_contract(contract_lines(answer.body, answer.tag));
        } catch (const std::exception &error) {
            complain(std::string("the host's description of its interface cannot be used: ") + error.what());
        }
    }
    if (!dictionary.has_contract()) return {};
    return dictionary.text_with_contract("");
}

bool is_current(Session &session, const Dictionary &dictionary, const std::string &name) {
    // Help texts and prototypes follow from what is declared; asking for them would double the time of a call.
    std::vector<Call> questions{{dictionary.prefix() + "methodSignature", Json::array({dictionary.full_name(name)})}};
    const std::optional<Method> method = dictionary.method(name);
    std::vector<std::string> udts;
    if (method) udts = taken_udts(dictionary, *method);
    for (const std::string &udt : udts) questions.push_back({dictionary.prefix() + "UDTSignature", Json::array({udt})});
    const std::vector<Json> answers = session.multicall(questions);
    if (!method) return is_fault(answers[0]);
    const auto is_kept = [&](Dictionary::Kind kind, const std::string &entry, const char *key, const Json &told) {
        return dictionary.json(kind, entry).starts_with("{\"" + std::string(key) + "\":" + told.dump() + ",");
    };
    if (!is_kept(Dictionary::methods, method->name, "signature", signature_of(answers[0]))) return false;
    for (std::size_t i = 0; i < udts.size(); ++i)
        if (!is_kept(Dictionary::udts, dictionary.bare_name(udts[i]), "members", members_of(answers[1 + i])))
            return false;
    return true;
}

bool is_current(Session &session, const Dictionary &dictionary) {
    std::vector<std::string> names;
    for (const Json &name : session.call("system.listMethods")) names.push_back(dictionary.bare_name(name));
    return names == dictionary.names(Dictionary::methods);
}

}  // namespace lmqctl
