// A reader of the XML that clients write when they call, and hosts when they answer: elements without attributes,
// ASCII, and the five entities that XML knows by itself. It takes a tenth of what expat takes, and gives up at whatever
// it does not know to be well-formed: comments, processing instructions, CDATA, attributes, blanks within tags,
// references by number, other alphabets. Expat then has to judge, so that nothing is refused here, and nothing accepted
// that expat would not.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "encoding.h"

namespace lmq::host {

class PlainReader {
  public:
    /// Reads a document and reports it piece by piece, as expat would.
    /// @param events Has open(name), characters(text), close(name), which return whether to go on. One run of
    /// characters
    ///               may come in several pieces.
    /// @return Whether the document is well-formed and has been reported to its end. Else what was reported counts for
    ///         nothing.
    template <class Events>
    bool read(std::string_view document, Events &&events) {
        rest_ = document;
        open_.clear();
        rest_.remove_prefix(length_of_common_declaration(rest_));
        do {
            if (!read_text(events) || rest_.size() < 2) return false;
            rest_.remove_prefix(1);
            if (!read_tag(events)) return false;
        } while (!open_.empty());
        return std::all_of(rest_.begin(), rest_.end(),
                           [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
    }

  private:
    enum class Byte : char { other, text, name };

    /// What a byte is: a part of a name, which begins with a letter; text that stands for itself; or neither.
    static constexpr auto kinds = [] {
        std::array<Byte, 256> all{};
        for (unsigned char c = ' '; c < 0x7f; ++c) all[c] = c == '<' || c == '>' || c == '&' ? Byte::other : Byte::text;
        all['\t'] = all['\n'] = Byte::text;
        for (const char c : std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789:._")) {
            all[static_cast<unsigned char>(c)] = Byte::name;
        }
        return all;
    }();

    static Byte kind(char c) { return kinds[static_cast<unsigned char>(c)]; }

    /// Reads up to the next tag.
    template <class Events>
    bool read_text(Events &events) {
        while (!rest_.empty() && rest_.front() != '<') {
            if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
            const std::string_view text = take([](char c) { return kind(c) != Byte::other; });
            if (!(text.empty() ? read_entity(events) : report(text, events))) return false;
        }
        return true;
    }

    template <class Events>
    bool read_entity(Events &events) {
        using Entity = std::pair<std::string_view, std::string_view>;
        for (const auto &[entity, meaning] : {Entity("&lt;", "<"), Entity("&gt;", ">"), Entity("&amp;", "&"),
                                              Entity("&quot;", "\""), Entity("&apos;", "'")}) {
            if (!rest_.starts_with(entity)) continue;
            rest_.remove_prefix(entity.size());
            return report(meaning, events);
        }
        return false;
    }

    template <class Events>
    bool report(std::string_view text, Events &events) const {
        if (!open_.empty()) return events.characters(text);
        return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    }

    /// Reads a tag, behind its '<'.
    template <class Events>
    bool read_tag(Events &events) {
        if (rest_.front() == '/') {
            rest_.remove_prefix(1);
            if (open_.empty() || !rest_.starts_with(open_.back())) return false;
            rest_.remove_prefix(open_.back().size());
            return skip('>') && close(events);
        }
        const std::string_view name = take([](char c) { return kind(c) == Byte::name; });
        if (name.empty() || !is_letter(name.front())) return false;
        const bool is_empty = skip('/');
        if (!skip('>')) return false;
        open_.push_back(name);
        return events.open(name) && (!is_empty || close(events));
    }

    template <class Events>
    bool close(Events &events) {
        const std::string_view name = open_.back();
        open_.pop_back();
        return events.close(name);
    }

    /// Takes a byte off the front if it is the wanted one.
    bool skip(char wanted) {
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// Takes the bytes off the front that are wanted.
    template <class Wanted>
    std::string_view take(Wanted wanted) {
        const char *const begin = rest_.data();
        const char *const end = begin + rest_.size();
        const char *at = begin;
        while (at != end && wanted(*at)) ++at;
        rest_ = {at, static_cast<std::size_t>(end - at)};
        return {begin, static_cast<std::size_t>(at - begin)};
    }

    static bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

    std::string_view rest_;
    /// The names of the open elements.
    std::vector<std::string_view> open_;
};

}  // namespace lmq::host
