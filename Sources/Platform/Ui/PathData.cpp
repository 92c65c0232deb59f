#include "PathData.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>

namespace platform {

namespace {

void skipSpaces(std::string_view& data)
{
    data.remove_prefix(std::min(data.find_first_not_of(' '), data.size()));
}

template <std::size_t N> std::array<double, N> takeNumbers(std::string_view& data)
{
    std::array<double, N> numbers {};
    for (auto& number : numbers) {
        skipSpaces(data);
        const auto* end = data.data() + data.size();
        const auto [next, error] = std::from_chars(data.data(), end, number);
        assert(error == std::errc {});
        data.remove_prefix(static_cast<std::size_t>(next - data.data()));
    }
    return numbers;
}

/// Appends one `command` from the start of `data`.
void append(QPainterPath& path, char command, std::string_view& data)
{
    const auto at = path.currentPosition();
    if (command == 'Z') {
        path.closeSubpath();
    } else if (command == 'H') {
        path.lineTo(takeNumbers<1>(data)[0], at.y());
    } else if (command == 'V') {
        path.lineTo(at.x(), takeNumbers<1>(data)[0]);
    } else if (command == 'C') {
        const auto n = takeNumbers<6>(data);
        path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]);
    } else {
        const auto [x, y] = takeNumbers<2>(data);
        command == 'M' ? path.moveTo(x, y) : path.lineTo(x, y);
    }
}

} // namespace

QPainterPath pathOf(std::string_view data)
{
    QPainterPath path;
    skipSpaces(data);
    while (!data.empty()) {
        const char command = data.front();
        data.remove_prefix(1);
        append(path, command, data);
        skipSpaces(data);
    }
    return path;
}

} // namespace platform
