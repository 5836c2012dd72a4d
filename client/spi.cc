// lmqctl spi: transfers on an SPI line. It has no addresses: a command goes out, and data with it or behind it.
#include "bus.h"
#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

struct SpiOptions {
    std::vector<std::string> words;
    unsigned device = 0;
};

// One word: LINE[:COMMAND][=DATA]. Without a command, one byte.
struct Transfer {
    int64_t line = 0;
    std::vector<int64_t> command, data;
    bool writes = false;
    bool is_byte() const { return command.empty(); }
};

std::vector<int64_t> numbers(const std::string &word, const std::string &text, int64_t most, std::size_t at_most) {
    std::vector<int64_t> found;
    for (const std::string &each : split(text, ',')) {
        const std::optional<int64_t> value = number(each);
        if (!value || *value < 0 || *value > most || found.size() == at_most)
            throw UsageError("spi: " + word + ": " + text + " is not at most " + std::to_string(at_most) +
                             " numbers from 0 to " + std::to_string(most) +
                             "; expected LINE, LINE=BYTE, LINE:COMMAND or LINE:COMMAND=DATA");
        found.push_back(*value);
    }
    return found;
}

Transfer transfer_of(const std::string &word) {
    Transfer transfer;
    const std::size_t equals = word.find('=');
    const std::string where = word.substr(0, equals);
    const std::size_t colon = where.find(':');
    transfer.line = numbers(word, where.substr(0, colon), 0xff, 1)[0];
    if (colon != std::string::npos) transfer.command = numbers(word, where.substr(colon + 1), 0xffffffff, 3);
    transfer.writes = equals != std::string::npos;
    const bool is_byte = transfer.is_byte();
    if (transfer.writes)
        transfer.data = numbers(word, word.substr(equals + 1), is_byte ? 0xff : 0xffffffff, is_byte ? 1 : 2);
    return transfer;
}

// Numbers of the wire have a sign.
Json words_of(const std::vector<int64_t> &values) {
    Json words = Json::array();
    for (const int64_t value : values) words.push_back(static_cast<int32_t>(value));
    return words;
}

void perform(Context &context, unsigned device, const std::string &word, const Transfer &transfer) {
    const char *pattern = transfer.is_byte() ? (transfer.writes ? "*spi_byte_write" : "*spi_byte_read")
                                             : (transfer.writes ? "*spi_write" : "*spi_read");
    const Method method = bus_method(context, pattern, 3);
    Json last = 0;
    if (!transfer.is_byte())
        last = {{"cmd", words_of(transfer.command)}, {"data", words_of(transfer.data)}};
    else if (transfer.writes)
        last = transfer.data[0];
    else
        last = Json::array({0});
    const Json answer =
        context.session().call(context.dictionary().full_name(method.name), Json::array({device, transfer.line, last}));
    check_answer(context, method, answer);
    Json values = transfer.data;
    if (!transfer.writes) {
        values = Json::array();
        const Json &told = transfer.is_byte() ? answer.at(3) : answer.at(3).at("data");
        const uint64_t mask = transfer.is_byte() ? 0xff : 0xffffffff;
        for (const Json &value : told) values.push_back(value.get<uint64_t>() & mask);
    }
    if (context.json) return print(json_text({{"transfer", word}, {"values", values}}) + "\n");
    std::string text = word.substr(0, word.find('=')) + (transfer.writes ? " =" : " ");
    for (const Json &value : values) text.append(" ").append(hexadecimal(value, transfer.is_byte() ? 8 : 32));
    print(text + "\n");
}

void spi(Context &context, const SpiOptions &options) {
    std::vector<Transfer> transfers;
    transfers.reserve(options.words.size());
    for (const std::string &word : options.words) transfers.push_back(transfer_of(word));
    for (std::size_t i = 0; i < transfers.size(); ++i) perform(context, options.device, options.words[i], transfers[i]);
}

}  // namespace

void set_up_spi(CLI::App &command, Context &context) {
    const auto options = std::make_shared<SpiOptions>();
    add_words(command, "TRANSFER", options->words,
              "LINE receives a byte, LINE=BYTE sends one, LINE:COMMAND sends up to three words and\nreceives two, "
              "LINE:COMMAND=DATA sends both; words have a comma between them, and their\nhighest bit goes first")
        ->required();
    command.add_option("--device", options->device, "The device")->check(CLI::Range(0, 255))->capture_default_str();
    command.callback([&context, options] { spi(context, *options); });
}

}  // namespace lmqctl
