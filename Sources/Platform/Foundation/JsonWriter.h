// Writes JSON at the end of a text.
#pragma once

#include "JsonPlace.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// `pretty` puts every member and element on a line of its own, indented by two spaces a level;
/// `compact` writes no white space at all.
enum class JsonStyle { compact, pretty };

/// Appends one JSON document to a text. The caller writes the members of each object in the order
/// that the document shall have. Numbers read back to the same bits; "/" is escaped as "\/", as
/// well as what has to be.
class JsonWriter {
public:
    /// `out` outlives the writer.
    JsonWriter(std::string& out, JsonStyle style)
        : out_(out)
        , style_(style)
    {
    }

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// The name of the member whose value comes next; it needs no escapes.
    void member(std::string_view plainName);
    /// Before each value of an array.
    void element();

    void boolean(bool value) { out_ += value ? "true" : "false"; }
    /// False, with a failed `place`, for bytes that are not UTF-8.
    bool string(std::string_view text);
    /// False, with a failed `place`, for infinity and what is not a number: JSON has neither.
    bool number(double value);

    [[nodiscard]] JsonPlace& place() { return place_; }

private:
    void begin(char bracket);
    void end(char bracket);
    void startLine();

    std::string& out_;
    JsonStyle style_;
    std::size_t depth_ = 0;
    bool empty_ = true;
    JsonPlace place_;
};

} // namespace platform
