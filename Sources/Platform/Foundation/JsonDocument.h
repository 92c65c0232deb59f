// Reads JSON with simdjson, straight into the caller's own values.
#pragma once

#include "JsonPlace.h"

#include <simdjson.h>

#include <string>
#include <string_view>

namespace platform {

/// Walks once through a JSON text (RFC 8259, UTF-8, a byte-order mark at the start is passed over)
/// whose outermost value is an array or an object. Each `read…` takes the value that is next and
/// returns whether it was of that kind; after the first failure `problem` says what was wrong.
class JsonDocument {
public:
    /// Copies nothing when `text` has room for simdjson's padding, as `readWholeFile` leaves it.
    explicit JsonDocument(std::string text);
    JsonDocument(const JsonDocument&) = delete;
    JsonDocument& operator=(const JsonDocument&) = delete;

    /// The nearest double; a number beyond its range is a failure, one too close to 0 becomes 0.
    bool readNumber(double& number);
    bool readString(std::string& text);
    bool readBoolean(bool& value);

    /// Takes the value if it is null; anything else is left for the next read.
    bool readNull();

    /// Calls `element()` for each element; it reads or skips the value and returns whether it
    /// could.
    template <typename Element> bool readArray(Element element)
    {
        simdjson::ondemand::array array;
        if (!succeeded(value_->get_array().get(array), "an array"))
            return false;
        std::size_t number = 0;
        for (auto item : array) {
            if (!succeeded(item.error(), "an element"))
                return false;
            value_ = &item;
            ++number;
            if (!element())
                return place_.inElement(number);
        }
        return true;
    }

    /// Calls `member(name)` for each member; it reads or skips the value and returns whether it
    /// could.
    template <typename Member> bool readObject(Member member)
    {
        simdjson::ondemand::object object;
        if (!succeeded(value_->get_object().get(object), "an object"))
            return false;
        for (auto field : object) {
            std::string_view name;
            if (!succeeded(field.unescaped_key().get(name), "the name of a member"))
                return false;
            auto value = field.value();
            value_ = &value;
            if (!member(name))
                return place_.inMember(name);
        }
        return true;
    }

    /// Passes over the value, which has to be well formed and at most 512 levels deep.
    bool skipValue();

    /// True when nothing but white space is left.
    bool readEnd();

    /// Fails because the value that was read is not `what`, such as "a date"; false.
    bool failExpecting(std::string_view what);
    bool fail(std::string problem) { return place_.fail(std::move(problem)); }

    /// One sentence without the name of the document.
    [[nodiscard]] std::string problem() const { return place_.sentence(); }

private:
    bool succeeded(simdjson::error_code error, std::string_view what);
    bool failInLine(std::string_view what, std::size_t at);

    /// How far the walk has come; the size of the text at its end.
    std::size_t offset();

    std::string text_;
    simdjson::ondemand::parser parser_;
    simdjson::ondemand::document document_;
    simdjson::simdjson_result<simdjson::ondemand::value> outermost_;
    /// The one that is next, where the loop over its siblings holds it: copies cost a tenth.
    simdjson::simdjson_result<simdjson::ondemand::value>* value_ = &outermost_;
    JsonPlace place_;
};

} // namespace platform
