// The clipboard, as far as the application uses it.
#pragma once

#include "Color.h"
#include "Result.h"

#include <optional>
#include <string>

namespace platform {

/// What leaves the application by copy or drag: a colour and its text.
struct ColorContent {
    Color color;
    std::string text;

    bool operator==(const ColorContent&) const = default;
};

/// What another program has copied, as far as it can stand for a colour.
struct PastedContent {
    std::optional<Color> color;
    std::string text;
};

/// A place that programs copy to and paste from. Writing never fails.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Replaces whatever was there by `content` in both its forms.
    virtual void write(const ColorContent& content) = 0;

    /// An error when the program that has copied does not answer.
    [[nodiscard]] virtual Result<PastedContent> read() const = 0;
};

} // namespace platform
