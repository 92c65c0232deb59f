// What is wrong in a JSON document and where, as the user finds it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// A problem and its place. The place is gathered from the inside out, while the calls that read or
/// write the nested values return, so that it costs nothing as long as all is well.
class JsonPlace {
public:
    /// Sets the problem unless there is one already; always false, for `return place.fail(…)`.
    bool fail(std::string problem);

    /// The problem is in this member of the object around it; false.
    bool inMember(std::string_view name);

    /// The problem is in this element, counted from 1, of the array around it; false.
    bool inElement(std::size_t number);

    /// `entry 3, "colors" 2, "color", "red": expected a number`; an element of an outermost array
    /// is called an entry.
    [[nodiscard]] std::string sentence() const;

private:
    std::string problem_;
    std::string place_;
};

} // namespace platform
