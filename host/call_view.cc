// Finding the calls within a packed document. Where a struct of a system.multicall names its method or its parameters
// twice, every combination is shown, as the XML-RPC library may take either.
#include "call_view.h"

#include <vector>

#include "packed_reader.h"
#include "prepass.h"

namespace lmq::host {
namespace {

/// Reads values up to the end of their array, or of the document.
CallView read_arguments(std::string_view method, PackedReader &reader) {
    CallView call{method, {}, 0};
    while (!reader.at_end() && static_cast<Item>(reader.rest().front()) != Item::end) {
        const std::string_view before = reader.rest();
        reader.skip();
        if (call.count < call.arguments.size()) {
            call.arguments[call.count] = ArgumentView(before.substr(0, before.size() - reader.rest().size()));
        }
        ++call.count;
    }
    return call;
}

/// Shows the call that a struct of a system.multicall stands for. The reader is behind Item::structure.
bool show_inner(PackedReader &reader, const std::function<bool(const CallView &)> &look) {
    std::vector<std::string_view> methods;
    std::vector<std::string_view> parameters;
    while (reader.take<Item>() == Item::member) {
        const std::string_view name = reader.take_text();
        const std::string_view before = reader.rest();
        reader.skip();
        const ArgumentView value(before.substr(0, before.size() - reader.rest().size()));
        if (name == "methodName" && value.form() == Item::string) {
            methods.push_back(PackedReader(value.content()).take_text());
        }
        if (name == "params" && value.form() == Item::array) parameters.push_back(value.content());
    }
    for (const std::string_view method : methods) {
        for (const std::string_view list : parameters) {
            PackedReader arguments(list);
            if (!look(read_arguments(method, arguments))) return false;
        }
    }
    return true;
}

}  // namespace

std::size_t ArgumentView::elements() const {
    if (form() != Item::array) return 1;
    PackedReader reader(content());
    std::size_t count = 0;
    for (Item item = reader.take<Item>(); item != Item::end; item = reader.take<Item>()) {
        reader.skip(item);
        ++count;
    }
    return count;
}

std::optional<std::int32_t> ArgumentView::number() const {
    PackedReader reader(bytes_);
    Item item = reader.take<Item>();
    if (item == Item::array) item = reader.take<Item>();
    if (item != Item::int32) return std::nullopt;
    return reader.take<std::int32_t>();
}

void for_each_call(std::string_view packed, const std::function<bool(const CallView &)> &look) {
    if (packed.empty()) return;
    PackedReader reader(packed.substr(sizeof packed_mark));
    const std::string_view method = reader.take_text();
    if (method != multicall) {
        look(read_arguments(method, reader));
        return;
    }
    if (reader.at_end() || reader.take<Item>() != Item::array) return;
    for (Item item = reader.take<Item>(); item != Item::end; item = reader.take<Item>()) {
        if (item != Item::structure) {
            reader.skip(item);
        } else if (!show_inner(reader, look)) {
            return;
        }
    }
}

}  // namespace lmq::host
