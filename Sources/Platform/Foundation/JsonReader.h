// Reads JSON in one pass, straight into the caller's own values.
#pragma once

#include "JsonPlace.h"

#include <string>
#include <string_view>

namespace platform {

/// Pulls values out of a JSON document (RFC 8259, UTF-8, a byte-order mark at the start is passed
/// over). Each `read…` takes the next value and returns whether it was of that kind; after the
/// first failure the reader is done and `problem` says what was wrong. Nothing is copied but what
/// the caller keeps; a value of any size is skipped in constant memory.
class JsonReader {
public:
    /// `text` outlives the reader.
    explicit JsonReader(std::string_view text);

    /// The nearest double; a number beyond its range is a failure, one too close to 0 becomes 0.
    bool readNumber(double& number);
    bool readString(std::string& text);
    bool readBoolean(bool& value);

    /// Takes the next value if it is null; anything else is left for the next read.
    bool readNull();

    /// Calls `element()` for each element; it reads exactly one value and returns whether it could.
    template <typename Element> bool readArray(Element element)
    {
        if (!open('[', "an array"))
            return false;
        for (std::size_t number = 1;; ++number) {
            const auto next = step(']', number == 1);
            if (next != Step::item)
                return next == Step::close;
            if (!element())
                return place_.inElement(number);
        }
    }

    /// Calls `member(name)` for each member; it reads or skips exactly one value and returns
    /// whether it could. The name is valid until the call reads something.
    template <typename Member> bool readObject(Member member)
    {
        if (!open('{', "an object"))
            return false;
        for (bool first = true;; first = false) {
            const auto next = step('}', first);
            if (next != Step::item)
                return next == Step::close;
            Name name;
            if (!readName(name))
                return false;
            if (!member(name.text()))
                return place_.inMember(name.text());
        }
    }

    /// Passes over the next value, which has to be well formed and at most 512 levels deep.
    bool skipValue();

    /// True when nothing but white space is left.
    bool readEnd();

    /// Fails because the value that was read is not `what`, such as "a date"; false.
    bool failExpecting(std::string_view what);
    bool fail(std::string problem) { return place_.fail(std::move(problem)); }

    /// One sentence without the name of the document.
    [[nodiscard]] std::string problem() const { return place_.sentence(); }

private:
    enum class Step { item, close, failure };

    /// The name of a member: a part of the document, or a text of its own when it had escapes.
    class Name {
    public:
        [[nodiscard]] std::string_view text() const { return escaped_ ? unescaped_ : raw_; }

    private:
        friend class JsonReader;
        std::string_view raw_;
        std::string unescaped_;
        bool escaped_ = false;
    };

    bool open(char bracket, std::string_view what);
    Step step(char close, bool first);
    bool readName(Name& name);
    bool scanString(std::string_view& raw, bool& escaped);
    bool unescape(std::string_view raw, std::string* text);
    bool scanNumber(std::string_view& digits);
    bool scanWord(std::string_view word);
    struct OpenBrackets;
    bool skipScalarOrBracket(OpenBrackets& open);
    bool skipToNextItem(OpenBrackets& open);
    bool skipScalar();
    void skipDigits();
    void skipSpace();
    [[nodiscard]] char peek() const { return at_ < end_ ? *at_ : '\0'; }
    bool failKind(std::string_view what);
    bool failHere(std::string_view expected);

    const char* begin_;
    const char* at_;
    const char* end_;
    JsonPlace place_;
};

} // namespace platform
