#include "NumberText.h"
#include "SwatchSheet.h"

namespace tintwell {

namespace {

std::string attribute(std::string_view name, std::string_view value)
{
    return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string attribute(std::string_view name, double points)
{
    return attribute(name, fixedPoint(points, 2));
}

std::string paint(std::string_view name, const RGBAColor& color)
{
    auto text = attribute(name, color.hex());
    if (color.alpha < 1)
        text += " " + std::string(name) + "-opacity=\"" + fixedPoint(color.alpha, 3) + "\"";
    return text;
}

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char character : text) {
        if (character == '&')
            out += "&amp;";
        else if (character == '<')
            out += "&lt;";
        else
            out += character;
    }
    return out;
}

std::string element(const SheetBox& box)
{
    return "<rect" + attribute("x", box.x) + attribute("y", box.y) + attribute("width", box.width)
        + attribute("height", box.height) + attribute("rx", box.radius) + paint("fill", box.fill)
        + paint("stroke", sheetEdge) + "/>\n";
}

std::string element(const SheetText& text)
{
    return "<text" + attribute("x", text.x) + attribute("y", text.baseline)
        + attribute("font-size", text.size) + (text.isBold ? " font-weight=\"bold\"" : "")
        + (text.isMonospace ? " font-family=\"monospace\"" : "") + paint("fill", text.ink) + ">"
        + escaped(text.text) + "</text>\n";
}

} // namespace

std::string svgText(const SwatchSheet& sheet)
{
    const auto size = attribute("width", sheet.width) + attribute("height", sheet.height);
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + size
        + " font-family=\"sans-serif\">\n<rect" + size + " fill=\"#FFFFFF\"/>\n";
    for (const auto& mark : sheet.marks)
        text += std::visit([](const auto& each) { return element(each); }, mark);
    return text + "</svg>\n";
}

} // namespace tintwell
