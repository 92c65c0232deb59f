// What the derivation takes from the heap: its lists and longer texts, and nothing on the way.
#include "PaletteGenerator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

int allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

// Inlined, they would look like a `free` of what `new` returned.
[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace tintwell {
namespace {

int heldBy(const std::string& text)
{
    return text.size() > std::string().capacity() ? 1 : 0;
}

int heldBy(const std::vector<NamedColor>& colors)
{
    int count = 1;
    for (const auto& color : colors)
        count += heldBy(color.id) + heldBy(color.name) + heldBy(color.detail.value_or(""));
    return count;
}

int heldBy(const PaletteSection& section)
{
    return heldBy(section.id) + heldBy(section.title) + heldBy(section.subtitle)
        + heldBy(section.colors);
}

int heldBy(const GeneratedPalette& palette)
{
    int count = heldBy(palette.sourceName) + 1;
    for (const auto& section : palette.harmonySections)
        count += heldBy(section);
    return count + heldBy(palette.monochromatic) + heldBy(palette.tonal)
        + heldBy(palette.lightTheme.colors) + heldBy(palette.darkTheme.colors);
}

TEST(Allocations, ConversionsAndWalksTakeNone)
{
    const RGBAColor fill(0.46, 0.46, 0.46, 1);
    const int before = allocations;
    const auto fitted = OKLCH(0.9, 0.3, 145).toSRGB(1);
    const auto repaired = ensureReadableFill(fill);
    const auto far = ensureContrast(fill, fill, 22);
    const auto ink = readableInkOn(OKLCH(fill).toSRGB(1));
    const int after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_NE(repaired, fill);
    EXPECT_NE(fitted, far);
    EXPECT_NE(ink, far);
}

TEST(Allocations, AWholePaletteTakesItsListsAndTextsOnce)
{
    for (const RGBAColor source : { RGBAColor(0.43, 0.34, 0.81, 1), RGBAColor(0.5, 0.5, 0.5, 1) }) {
        const int before = allocations;
        const auto palette = PaletteGenerator().generate(source);
        const int taken = allocations - before;
        EXPECT_EQ(taken, heldBy(palette));
    }
}

} // namespace
} // namespace tintwell
