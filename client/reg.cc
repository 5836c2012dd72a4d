// lmqctl reg, i2c, mdio: registers of the chip and of what stands on its buses, one by one, by bits, in ranges.
#include <algorithm>
#include <chrono>

#include "bus.h"
#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "names.h"
#include "standard_output.h"
#include "time_text.h"

namespace lmqctl {

namespace {

// What tells the buses apart. Which methods serve them the host says: the shortest name that fits the pattern.
struct Bus {
    const char *name, *readers, *writers, *element;
    bool has_slave;     // SLAVE:ADDRESS; the methods take a slave before the address, and a count behind it
    unsigned width;     // bits of an element
    int64_t stride;     // from one address to the next
    int64_t in_a_call;  // elements
    int64_t last;       // address
    int columns;        // of a dump
};

constexpr Bus buses[] = {
    {"reg", "*_read_register", "*_write_register", "register", false, 32, 4, 1, 0xfffffffc, 4},
    {"i2c", "*i2c_read", "*i2c_write", "byte", true, 8, 1, 256, 0xff, 16},
    {"mdio", "*mdio_read", "*mdio_write", "register", true, 16, 1, 32, 0x1f, 8},
};

constexpr int64_t most_in_a_range = 65536;  // elements

struct RegOptions {
    std::vector<std::string> words;
    unsigned device = 0;
    bool watch = false;
    double every = 1;
    std::size_t samples = 0;
};

// One word: SLAVE:FIRST..LAST[HIGH:LOW]=VALUE.
struct RegisterPlace {
    int64_t slave = 0, first = 0, last = 0;
    unsigned high = 0, low = 0;
    bool is_range = false, has_bits = false;
    std::optional<std::vector<uint64_t>> values;  // to write
    uint64_t mask() const { return ((uint64_t{2} << (high - low)) - 1) << low; }
};

[[noreturn]] void refuse(const Bus &bus, const std::string &word, const std::string &why) {
    const std::string form = std::string(bus.has_slave ? "SLAVE:" : "") + "ADDRESS[..LAST][[HIGH:LOW]][=VALUE]";
    throw UsageError(std::string(bus.name) + ": " + word + ": " + why + "; expected " + form);
}

int64_t number_in(const Bus &bus, const std::string &word, const std::string &text, int64_t most, const char *what) {
    const std::optional<int64_t> value = number(text);
    if (!value) refuse(bus, word, text.empty() ? std::string("there is no ") + what : text + " is no number");
    if (*value < 0 || *value > most)
        refuse(bus, word, text + " is no " + what + ", which goes from 0 to " + std::to_string(most));
    return *value;
}

void take_bits(const Bus &bus, const std::string &word, const std::string &text, RegisterPlace &place) {
    const std::size_t colon = text.find(':');
    place.has_bits = true;
    place.high = static_cast<unsigned>(number_in(bus, word, text.substr(0, colon), bus.width - 1, "bit"));
    place.low = colon == std::string::npos
                    ? place.high
                    : static_cast<unsigned>(number_in(bus, word, text.substr(colon + 1), bus.width - 1, "bit"));
    if (place.low > place.high) refuse(bus, word, "the higher bit stands first");
}

RegisterPlace place_of(const Bus &bus, const std::string &word) {
    RegisterPlace place;
    place.high = bus.width - 1;
    const std::size_t equals = word.find('=');
    std::string where = word.substr(0, equals);
    if (const std::size_t bracket = where.find('['); bracket != std::string::npos) {
        if (!where.ends_with(']')) refuse(bus, word, "the bracket is not closed");
        take_bits(bus, word, where.substr(bracket + 1, where.size() - bracket - 2), place);
        where.resize(bracket);
    }
    if (bus.has_slave) {
        const std::size_t colon = where.find(':');
        if (colon == std::string::npos) refuse(bus, word, "there is no slave");
        place.slave = number_in(bus, word, where.substr(0, colon), 127, "slave");
        where.erase(0, colon + 1);
    }
    const std::size_t dots = where.find("..");
    place.first = place.last = number_in(bus, word, where.substr(0, dots), bus.last, "address");
    if (dots != std::string::npos) {
        place.is_range = true;
        place.last = number_in(bus, word, where.substr(dots + 2), bus.last, "address");
        if (place.last < place.first) refuse(bus, word, "it ends before it begins");
        if (place.has_bits) refuse(bus, word, "bits are those of one " + std::string(bus.element));
        if ((place.last - place.first) / bus.stride >= most_in_a_range) refuse(bus, word, "the range is too large");
    }
    if (place.first % bus.stride != 0) refuse(bus, word, "an address is a multiple of " + std::to_string(bus.stride));
    if (equals == std::string::npos) return place;
    if (place.is_range) refuse(bus, word, "a range can only be read");
    place.values.emplace();
    const auto most = static_cast<int64_t>(place.mask() >> place.low);
    for (const std::string &value : split(word.substr(equals + 1), ','))
        place.values->push_back(static_cast<uint64_t>(number_in(bus, word, value, most, "value")));
    if (place.values->size() > 1 && (place.has_bits || bus.in_a_call == 1))
        refuse(bus, word, "one value is written at a time");
    return place;
}

class Registers {
  public:
    Registers(Context &context, const Bus &bus, unsigned device) : context_(context), bus_(bus), device_(device) {}

    std::vector<uint64_t> read(const RegisterPlace &place) {
        if (!reader_) reader_ = bus_method(context_, bus_.readers, arguments());
        const Method &method = *reader_;
        std::vector<Call> calls;
        for (int64_t at = place.first; at <= place.last; at += bus_.in_a_call * bus_.stride) {
            const int64_t count = std::min(bus_.in_a_call, (place.last - at) / bus_.stride + 1);
            std::vector<Json> data(static_cast<std::size_t>(count), Json(0));
            calls.push_back(call(method, place.slave, at, count, Json(data)));
        }
        std::vector<uint64_t> values;
        for (const Json &answer : context_.session().multicall(calls)) {
            check_answer(context_, method, answer);
            const Json &data = answer.is_array() && !answer.empty() ? answer.back() : answer;
            for (const Json &value : data.is_array() ? data : Json::array({data}))
                values.push_back(value.get<uint64_t>() & (~uint64_t{0} >> (64 - bus_.width)));
        }
        return values;
    }

    void write(const RegisterPlace &place, const std::vector<uint64_t> &values) {
        if (!writer_) writer_ = bus_method(context_, bus_.writers, arguments());
        const Method &method = *writer_;
        Json data = Json::array();
        // Numbers of the wire have a sign.
        for (const uint64_t value : values) data.push_back(static_cast<int32_t>(value));
        const Call made = call(method, place.slave, place.first, static_cast<int64_t>(values.size()),
                               bus_.has_slave ? data : data[0]);
        check_answer(context_, method, context_.session().call(made.method, made.parameters));
    }

  private:
    std::size_t arguments() const { return bus_.has_slave ? 5 : 3; }

    Call call(const Method &method, int64_t slave, int64_t address, int64_t count, const Json &data) {
        Json parameters = Json::array({device_});
        if (bus_.has_slave) parameters.push_back(slave);
        parameters.push_back(static_cast<int32_t>(address));
        if (bus_.has_slave) parameters.push_back(count);
        parameters.push_back(data);
        return {context_.dictionary().full_name(method.name), parameters};
    }

    Context &context_;
    const Bus &bus_;
    const unsigned device_;
    std::optional<Method> reader_, writer_;
};

std::string name_of(const Bus &bus, const RegisterPlace &place) {
    const std::string address = hexadecimal(static_cast<uint64_t>(place.first), bus.has_slave ? 8 : 32);
    const std::string bits = place.high == place.low ? std::to_string(place.low)
                                                     : std::to_string(place.high) + ":" + std::to_string(place.low);
    return (bus.has_slave ? hexadecimal(static_cast<uint64_t>(place.slave), 8) + ":" : "") + address +
           (place.has_bits ? "[" + bits + "]" : "");
}

// Lines of an address, so many elements, and their bytes as text.
std::string dump(const Bus &bus, const RegisterPlace &place, const std::vector<uint64_t> &values) {
    std::string text;
    const auto columns = static_cast<std::size_t>(bus.columns);
    for (std::size_t begin = 0; begin < values.size(); begin += columns) {
        text += hexadecimal(static_cast<uint64_t>(place.first + static_cast<int64_t>(begin) * bus.stride),
                            bus.has_slave ? 8 : 32) +
                " ";
        std::string letters;
        for (std::size_t i = begin; i < begin + columns; ++i) {
            const bool is_there = i < values.size();
            text += " " + (is_there ? hexadecimal(values[i], bus.width, false) : std::string(bus.width / 4, ' '));
            for (unsigned shift = bus.width; is_there && shift > 0; shift -= 8) {
                const auto letter = static_cast<char>(values[i] >> (shift - 8) & 0xff);
                letters += letter >= ' ' && letter <= '~' ? letter : '.';
            }
        }
        text.append("  |").append(letters).append("|\n");
    }
    return text;
}

std::string shown(const Context &context, const Bus &bus, const RegisterPlace &place,
                  const std::vector<uint64_t> &values) {
    if (context.json) {
        Json json{{"address", place.first}};
        if (bus.has_slave) json["slave"] = place.slave;
        if (place.has_bits) json["bits"] = {place.high, place.low};
        json["values"] = values;
        return json_text(json) + "\n";
    }
    if (place.is_range) return dump(bus, place, values);
    return name_of(bus, place) + "  " + hexadecimal(values[0], place.high - place.low + 1) + "  " +
           std::to_string(values[0]) + "\n";
}

std::vector<uint64_t> sampled(Registers &registers, const RegisterPlace &place) {
    std::vector<uint64_t> values = registers.read(place);
    if (values.empty()) throw Error(exit_connection, "the host answered no register");
    if (place.has_bits) values[0] = (values[0] & place.mask()) >> place.low;
    return values;
}

void perform(Context &context, const Bus &bus, Registers &registers, const RegisterPlace &place) {
    if (!place.values) return print(shown(context, bus, place, sampled(registers, place)));
    std::vector<uint64_t> values = *place.values;
    std::string before;
    if (place.has_bits) {
        const uint64_t old = registers.read(place).at(0);
        values[0] = (old & ~place.mask()) | values[0] << place.low;
        before = hexadecimal(old, bus.width) + " -> ";
    }
    registers.write(place, values);
    if (context.json) {
        RegisterPlace whole = place;
        whole.has_bits = false;
        return print(shown(context, bus, whole, values));
    }
    std::string text;
    for (const uint64_t value : values) text += (text.empty() ? "" : " ") + hexadecimal(value, bus.width);
    print(name_of(bus, place) + " = " + before + text + "\n");
}

// A line for each change; all of them at the beginning.
void watch(Context &context, const Bus &bus, Registers &registers, const std::vector<RegisterPlace> &places,
           const RegOptions &options) {
    for (const RegisterPlace &place : places)
        if (place.values) throw UsageError(std::string(bus.name) + " --watch: nothing is written again and again");
    const CatchInterrupt caught;
    context.connection.stop = &interrupted;
    std::vector<std::vector<uint64_t>> before(places.size());
    for (std::size_t n = 0; !interrupted && (options.samples == 0 || n < options.samples); ++n) {
        if (n > 0)
            sleep_until(Clock::now() +
                        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options.every)));
        for (std::size_t i = 0; i < places.size() && !interrupted; ++i) {
            std::vector<uint64_t> values = sampled(registers, places[i]);
            if (values == before[i]) continue;
            before[i] = std::move(values);
            print((context.json ? "" : now_text() + "  ") + (places[i].is_range ? "\n" : "") +
                  shown(context, bus, places[i], before[i]));
            flush();
        }
    }
}

void reg(Context &context, const Bus &bus, const RegOptions &options) {
    std::vector<RegisterPlace> places;
    places.reserve(options.words.size());
    for (const std::string &word : options.words) places.push_back(place_of(bus, word));
    Registers registers(context, bus, options.device);
    if (options.watch) return watch(context, bus, registers, places, options);
    for (const RegisterPlace &place : places) perform(context, bus, registers, place);
}

void set_up(const Bus &bus, CLI::App &command, Context &context) {
    const auto options = std::make_shared<RegOptions>();
    const std::string slave = bus.has_slave ? "SLAVE:" : "";
    add_words(command, "PLACE", options->words,
              slave + "ADDRESS reads one, " + slave + "ADDRESS..LAST a range, " + slave +
                  "ADDRESS=VALUE writes;\n[HIGH:LOW] behind the address means these bits: writing them reads, changes "
                  "and writes")
        ->required();
    command.add_option("--device", options->device, "The device")->check(CLI::Range(0, 255))->capture_default_str();
    command.add_flag("--watch", options->watch, "Read again and again, and show what changes");
    command.add_option("--every", options->every, "Seconds between two samples")
        ->check(CLI::Range(0.01, 86400.0))
        ->capture_default_str()
        ->type_name("S");
    command.add_option("--samples", options->samples, "End after so many; 0: with Ctrl-C")
        ->check(CLI::Range(0, 1000000000))
        ->capture_default_str()
        ->type_name("N");
    command.callback([&context, &bus, options] { reg(context, bus, *options); });
}

}  // namespace

void set_up_reg(CLI::App &command, Context &context) { set_up(buses[0], command, context); }

void set_up_i2c(CLI::App &command, Context &context) { set_up(buses[1], command, context); }

void set_up_mdio(CLI::App &command, Context &context) { set_up(buses[2], command, context); }

}  // namespace lmqctl
