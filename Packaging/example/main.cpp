// Prints the tonal scale of a colour, and how well each tone reads on the light theme's background.
#include <tintwell/PaletteGenerator.h>

#include <cstdlib>
#include <iomanip>
#include <iostream>

int main(int argc, char* argv[])
{
    const auto source = tintwell::RGBAColor::fromHex(argc > 1 ? argv[1] : "#6E56CF");
    if (!source) {
        std::cerr << "That is no colour: " << argv[1] << '\n';
        return EXIT_FAILURE;
    }
    const auto palette = tintwell::PaletteGenerator().generate(*source);
    const auto background
        = palette.lightTheme.colorNamed("Background").value_or(tintwell::lightInk);
    std::cout << palette.sourceName << '\n' << std::fixed << std::setprecision(1);
    for (const auto& tone : palette.tonal.colors) {
        std::cout << tone.name << ' ' << tone.color.hex() << ' '
                  << tintwell::contrastRatio(tone.color, background) << '\n';
    }
}
