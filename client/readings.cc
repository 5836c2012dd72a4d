// Columns out of types, values out of answers.
#include "readings.h"

#include "scalar_text.h"

namespace lmqctl {

namespace {

// `elements` is how many are sent, for a pointer to several; nothing inside of it.
void add_columns(const Column &at, const Type &type, std::optional<std::size_t> elements, std::vector<Column> &to) {
    const bool is_list = type.kind == Type::array && type.element;
    if (type.kind == Type::integer) {
        to.push_back({at.name, at.place, type.is_signed, type.width});
    } else if (is_list || (type.kind == Type::structure && elements)) {
        const Type &element = is_list ? *type.element : type;
        for (std::size_t i = 0; i < elements.value_or(type.bound); ++i)
            add_columns({at.name + "[" + std::to_string(i) + "]", at.place / i, false, 0}, element, {}, to);
    } else if (type.kind == Type::structure) {
        for (const Member &member : type.members)
            add_columns({at.name + "." + member.name, at.place / member.name, false, 0}, *member.type, {}, to);
    }
}

}  // namespace

std::optional<int64_t> Column::value(const Json &answer) const {
    if (!answer.contains(place) || !answer[place].is_number_integer()) return {};
    Type type;
    type.is_signed = is_signed;
    type.width = width;
    return as_declared(type, answer[place].get<int64_t>());
}

std::string Column::shown(int64_t value) const {
    return is_signed ? std::to_string(value) : std::to_string(static_cast<uint64_t>(value));
}

Json Column::json(int64_t value) const { return is_signed ? Json(value) : Json(static_cast<uint64_t>(value)); }

double Column::growth(int64_t before, int64_t now) const {
    if (is_signed) return static_cast<double>(now) - static_cast<double>(before);
    const auto old_count = static_cast<uint64_t>(before), count = static_cast<uint64_t>(now);
    const uint64_t range = width >= 64 ? ~uint64_t{0} : (uint64_t{1} << width) - 1;
    const uint64_t moved = (count - old_count) & range;
    return static_cast<double>(count >= old_count || moved <= range / 2 ? moved : count);
}

std::vector<Column> columns_of(Types &types, const Method &method, const Json &sent) {
    std::vector<Column> columns;
    for (std::size_t i = 0; i < method.parameters.size() && i < sent.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        if (!parameter.is_pointer()) continue;
        std::optional<std::size_t> elements;
        if (sent[i].is_array()) elements = sent[i].size();
        // The result comes before the arguments.
        add_columns({parameter.name, Json::json_pointer() / (i + 1), false, 0}, *types.parameter(parameter), elements,
                    columns);
    }
    return columns;
}

}  // namespace lmqctl
