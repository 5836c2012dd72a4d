// One call: how many elements each pointer stands for, the document, the answer, and the caller's memory.
//
// Of an [out] argument nothing is sent, whatever it holds: the host gets an empty struct, or zeros. If a function fails
// and they come back as they were, the driver has not written there, and the caller's memory is left alone too.
#include "remote/call.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string>

#include "remote/chips.h"
#include "remote/decode.h"
#include "remote/encode.h"
#include "remote/failure.h"

namespace lmq::remote {

namespace {

constexpr std::size_t largest_request = 64 << 20;  // bytes

class Call {
  public:
    Call(const Method &method, const Terms *terms, const Word *words)
        : method_(method), terms_(terms), words_(words), arguments_(method.arguments()) {}

    std::string name(unsigned i) const { return std::string("argument ") + method_.text(arguments_[i].name) + ": "; }

    void encode(std::string &to) {
        to.assign("<?xml version=\"1.0\"?><methodCall><methodName>").append(method_.full_name());
        to += "</methodName><params>";
        for (unsigned i = 0; i < method_.count; ++i) {
            to += "<param>";
            rooms_[i] = room(i);
            try {
                encode(to, i);
            } catch (const Failure &failure) {
                throw Failure(failure.status, name(i) + failure.what());
            }
            to += "</param>";
            if (to.size() > largest_request) throw Failure(LMQ_REMOTE_NOT_SENT, name(i) + "it is too large to be sent");
        }
        to += "</params></methodCall>";
    }

    // Looks at an answer, or writes it. Returns what the driver returned.
    std::int32_t decode(const Document &document, bool writes) {
        const Value &answer = document.root();
        if (answer.form != Form::array || answer.count != method_.count + 1U)
            throw Failure(LMQ_REMOTE_MISFIT,
                          "the answer is no array of " + std::to_string(method_.count + 1) + " values");
        const Value *value = document.first_in(answer);
        if (value->form != Form::int32) throw Failure(LMQ_REMOTE_MISFIT, "the answer begins with no int");
        const auto returned = static_cast<std::int32_t>(value->number);
        const bool failed = returned != 0 && (method_.returns == Returns::status || method_.returns == Returns::int32);

        std::array<const Value *, most_arguments> values{};
        for (unsigned i = 0; i < method_.count; ++i) values[i] = value = document.behind(*value);
        for (unsigned i = 0; i < method_.count; ++i) {
            try {
                decode(document, writes, i, values, failed);
            } catch (const Failure &failure) {
                throw Failure(failure.status, name(i) + failure.what());
            }
        }
        return returned;
    }

  private:
    const Udt &udt(unsigned i) const { return *method_.udts[arguments_[i].udt]; }
    std::byte *memory(unsigned i) const { return reinterpret_cast<std::byte *>(words_[i]); }

    // A struct goes alone where there can be one only; all else as an array, whose length says what is meant.
    bool is_single(unsigned i) const {
        return arguments_[i].kind == ArgumentKind::udt && terms_[i].length == Length::number && terms_[i].number == 1;
    }

    // How many elements an argument stands for.
    std::size_t room(unsigned i) const {
        const Terms &terms = terms_[i];
        if (arguments_[i].kind == ArgumentKind::value) return 0;
        if (terms.length == Length::number) return terms.number;
        const Scalar scalar = arguments_[terms.from].scalar;
        std::uint32_t said = 0;
        if (terms.length == Length::value)
            said = static_cast<std::uint32_t>(words_[terms.from]);
        else if (memory(terms.from))
            said = static_cast<std::uint32_t>(load(memory(terms.from), {scalar.width, false}));
        // The driver would refuse it before it looks at the elements, which need not be there.
        if (said > terms.most && words_[i] != 0)
            throw Failure(LMQ_REMOTE_NOT_SENT, name(terms.from) + std::to_string(said) +
                                                   " is more than the driver takes (" + std::to_string(terms.most) +
                                                   ")");
        return said == 0 ? terms.if_zero : std::size_t{said} * terms.number;
    }

    // An empty array is the NULL pointer, so what points to no element goes as an array of one.
    std::size_t sent(unsigned i) const { return words_[i] == 0 ? 0 : std::max<std::size_t>(rooms_[i], 1); }

    void encode(std::string &to, unsigned i) {
        const Argument &argument = arguments_[i];
        Encoder encoder(to);
        if (argument.kind == ArgumentKind::value) return encoder.integer(static_cast<std::int32_t>(words_[i]));
        const std::byte *const from = terms_[i].direction == Direction::out || rooms_[i] == 0 ? nullptr : memory(i);
        switch (argument.kind) {
            case ArgumentKind::value: break;
            case ArgumentKind::element: return encoder.elements(from, sent(i), argument.scalar);
            case ArgumentKind::udt:
                if (is_single(i) && words_[i] != 0) return encoder.structure(udt(i), from);
                return encoder.structures(udt(i), from, sent(i));
            case ArgumentKind::cookie:
                if (words_[i] != 0) throw Failure(LMQ_REMOTE_NOT_SENT, "no pointer but NULL can be sent");
                return encoder.elements(nullptr, 0, argument.scalar);
        }
        __builtin_unreachable();
    }

    // How many elements of an [out] array the driver has filled.
    std::size_t filled(unsigned i, const std::array<const Value *, most_arguments> &values, bool failed) const {
        const unsigned from = terms_[i].filled;
        if (from == none || failed || words_[from] == 0) return rooms_[i];
        const Value &counts = *values[from];
        if (counts.form != Form::array || counts.count != 1) return 0;  // it is refused in its turn
        const auto said = static_cast<std::uint32_t>((&counts + 1)->number);
        // Where 0 stands for all, the driver says how many there are, and fills those that there is room for.
        if (said > rooms_[i] && terms_[i].if_zero != 0) return rooms_[i];
        if (said > rooms_[i])
            throw Failure(LMQ_REMOTE_MISFIT, std::to_string(said) +
                                                 " elements are said to be filled, and there is room for " +
                                                 std::to_string(rooms_[i]));
        return said;
    }

    void decode(const Document &document, bool writes, unsigned i,
                const std::array<const Value *, most_arguments> &values, bool failed) {
        const Value &value = *values[i];
        if (arguments_[i].kind == ArgumentKind::value) {
            // What the driver got is not what was sent if the host's types are narrower, or the answer is another
            // call's.
            const auto number = static_cast<std::int32_t>(words_[i]);
            if (value.form != Form::int32 || value.number != number)
                throw Failure(LMQ_REMOTE_MISFIT, "the driver got another value than " + std::to_string(number));
            return;
        }
        if (words_[i] == 0) {
            if (value.form != Form::nil) throw Failure(LMQ_REMOTE_MISFIT, "something came for a NULL pointer");
            return;
        }
        const std::size_t limit = terms_[i].direction == Direction::in ? 0 : filled(i, values, failed);
        std::byte *to = limit == 0 ? nullptr : memory(i);
        if (writes && failed && terms_[i].direction == Direction::out && is_blank(document, i, value)) to = nullptr;
        Decoder decoder(document, writes);
        read(decoder, i, value, to, limit);
    }

    bool is_blank(const Document &document, unsigned i, const Value &value) const {
        Decoder decoder(document, false);
        read(decoder, i, value, nullptr, 0);
        return decoder.is_blank();
    }

    void read(Decoder &decoder, unsigned i, const Value &value, std::byte *to, std::size_t limit) const {
        if (arguments_[i].kind == ArgumentKind::element)
            decoder.elements(value, to, sent(i), limit, arguments_[i].scalar);
        else if (is_single(i))
            decoder.structure(value, udt(i), to);
        else
            decoder.structures(value, udt(i), to, sent(i), limit);
    }

    const Method &method_;
    const Terms *const terms_;
    const Word *const words_;
    const Argument *const arguments_;
    std::array<std::size_t, most_arguments> rooms_{};  // elements, as they were before the call
};

// The words of a fault, or of a refusal by HTTP.
[[noreturn]] void refuse(const Answer &answer, const Document &document, bool is_document) {
    if (is_document && document.is_fault() && document.root().form == Form::structure) {
        const Value *hint = document.first_in(document.root());
        const Value *const code = document.find(document.root(), "faultCode", hint);
        const Value *const text = document.find(document.root(), "faultString", hint);
        throw Failure(answer.status == 200 ? LMQ_REMOTE_REFUSED : LMQ_REMOTE_LOST,
                      "fault " + std::to_string(code ? code->number : 0) + ": " +
                          std::string(text && text->form == Form::string ? document.text(*text) : ""));
    }
    const bool is_refusal = (answer.status >= 300 && answer.status < 500) || answer.status == 503;
    throw Failure(is_refusal ? LMQ_REMOTE_REFUSED : LMQ_REMOTE_LOST,
                  "status " + std::to_string(answer.status) + " of HTTP: " +
                      answer.body.substr(0, std::min<std::size_t>(answer.body.find_first_of("\r\n"), 200)));
}

// Prints what the driver printed at the other end. A host that does not give it away keeps it: the call was made.
void print_output(Chip &chip) {
    if (chip.answer.output.empty()) return;
    try {
        const Answer text = chip.line().get(chip.answer.output);
        if (text.status == 200) std::fwrite(text.body.data(), 1, text.body.size(), stdout);
    } catch (const Failure &) {
        return;
    }
}

std::int32_t made(Chip &chip, Call &call) {
    const std::lock_guard lock(chip.mutex);
    if (chip.is_closed) throw Failure(LMQ_REMOTE_NOT_SENT, "the chip has been closed");
    call.encode(chip.request);
    chip.answer = chip.line().post(chip.request);
    print_output(chip);
    const std::string wrong = chip.document.read(chip.answer.body);
    if (chip.answer.status != 200 || (wrong.empty() && chip.document.is_fault()))
        refuse(chip.answer, chip.document, wrong.empty());
    if (!wrong.empty()) throw Failure(LMQ_REMOTE_MISFIT, "the answer cannot be read: " + wrong);
    call.decode(chip.document, false);
    return call.decode(chip.document, true);
}

}  // namespace

std::int32_t call(const Method &method, const Terms *terms, const Word *words) noexcept {
    lmq_remote_status_e status = LMQ_REMOTE_NOT_SENT;
    try {
        Call prepared(method, terms, words);
        return made(*chosen_chip(), prepared);
    } catch (const Failure &failure) {
        status = failure.status;
        tell(method.name(), failure.what());
    } catch (const std::exception &failure) {
        tell(method.name(), failure.what());
    }
    return method.returns == Returns::status || method.returns == Returns::int32 ? static_cast<std::int32_t>(status)
                                                                                 : 0;
}

}  // namespace lmq::remote
