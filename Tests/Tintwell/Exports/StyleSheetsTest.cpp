#include "StyleSheets.h"

#include "PaletteGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>

namespace tintwell {
namespace {

std::string cssOf(std::string_view hex)
{
    return cssText(
        PaletteGenerator().generate(RGBAColor::fromHex(hex).value()), ColorNotation::hex);
}

/// What stands between the braces of the first rule whose head ends in `selector`.
std::string bodyOf(const std::string& css, const std::string& selector)
{
    const auto start = css.find(selector + " {\n");
    return start == std::string::npos ? "" : css.substr(start, css.find('}', start) - start);
}

TEST(StyleSheets, EveryDeclarationIsValid)
{
    const std::regex declaration(" +(--tintwell(-[a-z0-9]+)+: #([0-9A-F]{6}|[0-9A-F]{8})"
                                 "|color-scheme: (light|dark));");
    for (const char* hex : { "6E56CF", "6E56CF80", "FFFFFF", "808080", "0A0A0D" }) {
        const auto css = cssOf(hex);
        EXPECT_EQ(std::count(css.begin(), css.end(), '{'), std::count(css.begin(), css.end(), '}'));
        std::istringstream lines(css);
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(!line.ends_with(';') || std::regex_match(line, declaration)) << line;
        EXPECT_EQ(std::count(css.begin(), css.end(), ';'), 1 + 15 + 5 + 11 + 3 * (10 + 1))
            << "the dark roles stand twice, " << hex;
    }
}

TEST(StyleSheets, ThemesFollowThePreferenceAndTheAttribute)
{
    const auto css = cssOf("6E56CF");
    EXPECT_NE(bodyOf(css, ":root").find("  --tintwell-tone-500: #7B65DF;\n"), std::string::npos);
    EXPECT_NE(bodyOf(css, ":root").find("  --tintwell-source: #6E56CF;\n"), std::string::npos);
    const auto light = bodyOf(css, "[data-theme=\"light\"]");
    EXPECT_NE(light.find("  color-scheme: light;\n"), std::string::npos);
    EXPECT_NE(light.find("  --tintwell-on-primary: #FBFBFC;\n"), std::string::npos);
    for (const char* selector : { ":root:not([data-theme=\"light\"])", "[data-theme=\"dark\"]" })
        for (const char* line : { "color-scheme: dark;\n", "--tintwell-background: #050509;\n" })
            EXPECT_NE(bodyOf(css, selector).find(line), std::string::npos) << selector;
    EXPECT_EQ(css.find("--tintwell-light"), std::string::npos);
    EXPECT_LT(css.find("@media (prefers-color-scheme: dark) {\n  :root:not("), css.size());
}

TEST(StyleSheets, OnlyTheSourceCarriesItsAlpha)
{
    const auto css = cssOf("6E56CF80");
    EXPECT_NE(css.find("--tintwell-source: #6E56CF80;"), std::string::npos);
    EXPECT_NE(css.find("--tintwell-complementary-0: #6E56CF;"), std::string::npos);
}

} // namespace
} // namespace tintwell
