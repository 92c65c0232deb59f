#include "CssExport.h"

#include "PaletteGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tintwell {
namespace {

std::string cssOf(std::string_view hex)
{
    return cssProperties(PaletteGenerator().generate(RGBAColor::fromHex(hex).value()));
}

/// What stands between the braces of the first rule whose head ends in `selector`.
std::string bodyOf(const std::string& css, const std::string& selector)
{
    const auto start = css.find(selector + " {\n");
    return start == std::string::npos ? "" : css.substr(start, css.find('}', start) - start);
}

/// "--tintwell-tone-500: #7B65DF": lower case, no empty part, six or eight digits.
bool isDeclaration(std::string_view text)
{
    constexpr std::string_view start = "--tintwell-";
    const auto colon = text.find(": #");
    if (!text.starts_with(start) || colon == std::string_view::npos)
        return false;
    const auto name = text.substr(start.size(), colon - start.size());
    const auto digits = text.substr(colon + 3);
    return name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") == std::string_view::npos
        && !name.empty() && name.find("--") == std::string_view::npos && !name.starts_with('-')
        && !name.ends_with('-') && (digits.size() == 6 || digits.size() == 8)
        && digits.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

TEST(CssExport, EveryDeclarationIsValid)
{
    for (const char* hex : { "6E56CF", "6E56CF80", "FFFFFF", "0A0A0D" }) {
        const auto css = cssOf(hex);
        EXPECT_EQ(std::count(css.begin(), css.end(), '{'), std::count(css.begin(), css.end(), '}'));
        std::istringstream lines(css);
        std::size_t count = 0;
        for (std::string line; std::getline(lines, line);) {
            if (!line.ends_with(';'))
                continue;
            ++count;
            const auto start = line.find_first_not_of(' ');
            EXPECT_TRUE(
                isDeclaration(std::string_view(line).substr(start, line.size() - start - 1)))
                << line;
        }
        const auto exported
            = PaletteGenerator().generate(RGBAColor::fromHex(hex).value()).exportColors().size();
        EXPECT_EQ(count, exported + 10) << "the dark roles stand twice";
    }
}

TEST(CssExport, ThemesFollowThePreferenceAndTheAttribute)
{
    const auto css = cssOf("6E56CF");
    EXPECT_NE(bodyOf(css, ":root").find("  --tintwell-tone-500: #7B65DF;\n"), std::string::npos);
    EXPECT_NE(bodyOf(css, ":root").find("  --tintwell-source: #6E56CF;\n"), std::string::npos);
    const auto light = bodyOf(css, "[data-theme=\"light\"]");
    EXPECT_NE(light.find("  --tintwell-on-primary: #FBFBFC;\n"), std::string::npos);
    for (const char* selector : { ":root:not([data-theme=\"light\"])", "[data-theme=\"dark\"]" })
        EXPECT_NE(
            bodyOf(css, selector).find("--tintwell-background: #050509;\n"), std::string::npos)
            << selector;
    EXPECT_EQ(css.find("--tintwell-light"), std::string::npos);
    EXPECT_LT(css.find("@media (prefers-color-scheme: dark) {\n  :root:not("), css.size());
}

TEST(CssExport, OnlyTheSourceCarriesItsAlpha)
{
    const auto css = cssOf("6E56CF80");
    EXPECT_NE(css.find("--tintwell-source: #6E56CF80;"), std::string::npos);
    EXPECT_NE(css.find("--tintwell-complementary-0: #6E56CF;"), std::string::npos);
}

} // namespace
} // namespace tintwell
