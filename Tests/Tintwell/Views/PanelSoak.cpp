// Random actions on the whole model and panel, beside a plain model of what must hold after each:
//   panel_soak ACTIONS [SECONDS [SEED]]
// ends at whichever limit comes first (0 is none) and says how memory and open files went.
#include "RollingText.h"
#include "TintwellViewFixture.h"

#include <cstdio>
#include <fstream>
#include <random>
#include <regex>

namespace tintwell {
namespace {

long mostActions = 10'000;
std::chrono::seconds mostTime { 0 };
unsigned seed = 1;

class PanelSoak : public TintwellViewTest {
protected:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    RGBAColor anyColor()
    {
        const auto part = [&] { return static_cast<double>(below(256)) / 255; };
        return below(8) == 0 ? seedColor : RGBAColor(part(), part(), part(), 1);
    }

    const SavedPalette* anySaved()
    {
        return saved_.empty() ? nullptr : &model_->savedPalettes()[below(saved_.size())];
    }

    /// What the user can do by several ways at once leads where the model says.
    void adopt()
    {
        source_ = model_->generated().source;
        saved_ = model_->savedPalettes();
    }

    void changeColor()
    {
        const auto color = anyColor();
        desktop_->pasteboard.pasted = { std::nullopt, below(4) == 0 ? "none" : color.hex() };
        const auto before = source_;
        switch (below(4)) {
        case 0:
            model_->paste();
            source_ = desktop_->pasteboard.pasted.text == "none" ? before : color;
            break;
        case 1:
            model_->drop(color);
            source_ = color;
            break;
        case 2:
            model_->beginSampling();
            if (!desktop_->sampler->picks.empty())
                desktop_->sampler->answer(color);
            source_ = color;
            break;
        default:
            model_->apply(color);
            source_ = color;
        }
        if (source_ != before && below(3) == 0) {
            model_->undo();
            source_ = before;
        }
    }

    void changeLibrary()
    {
        const auto* palette = anySaved();
        if (palette == nullptr || (below(2) == 0 && saved_.size() < 12)) {
            model_->saveAndInstallCurrent();
            ASSERT_EQ(model_->savedPalettes().front().source, source_);
            saved_.insert(saved_.begin(), model_->savedPalettes().front());
        } else if (below(2) == 0) {
            const auto id = palette->id;
            model_->deletePalette(*palette);
            std::erase_if(saved_, [&](const auto& each) { return each.id == id; });
        } else {
            // Another program takes the oldest one away.
            saved_.pop_back();
            ASSERT_TRUE(PalettePersistence(library()).save(saved_));
            model_->followLibrary();
        }
    }

    void useOrCopy()
    {
        const auto* palette = anySaved();
        const auto colors = model_->generated().exportColors();
        if (palette != nullptr && below(3) == 0) {
            source_ = palette->source;
            model_->use(*palette);
        } else if (palette != nullptr && below(3) == 0) {
            model_->install(*palette);
        } else {
            model_->copy(colors[below(colors.size())]);
            ASSERT_TRUE(model_->lastCopiedID());
        }
    }

    void playWithInput()
    {
        static constexpr Qt::Key keys[] { Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_Right,
            Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Space };
        auto* target = QApplication::focusWidget();
        if (target == nullptr || below(3) == 0)
            QTest::mouseMove(
                window_.get(), { static_cast<int>(below(500)), static_cast<int>(below(700)) });
        else
            QTest::keyClick(target, keys[below(std::size(keys))]);
        while (!desktop_->sampler->picks.empty())
            desktop_->sampler->answer(std::nullopt);
        adopt();
    }

    void act()
    {
        switch (below(8)) {
        case 0:
        case 1:
            return changeColor();
        case 2:
            return changeLibrary();
        case 3:
            return useOrCopy();
        case 4:
            return playWithInput();
        case 5:
            return desktop_->scheduler.advance(std::chrono::milliseconds { below(1500) });
        case 6:
            return model_->setSelectedTab(static_cast<WorkspaceTab>(below(3)));
        default:
            below(2) == 0 ? model_->undo() : model_->redo();
            adopt();
        }
    }

    void check()
    {
        static const std::regex statuses(
            "Click to copy · drag to use|Opened macOS Colors|Nothing to (un|re)do|Sampling "
            "cancelled|Nothing pasted: .*"
            "|(Sampled|Pasted|Dropped|Copied|Back to) .+ · #[0-9A-F]{6}"
            "|(Loaded|Deleted|Restored) .+|(Saved and i|I)nstalled Tintwell\\.clr");
        ASSERT_EQ(model_->generated(), PaletteGenerator().generate(source_));
        ASSERT_EQ(model_->savedPalettes(), saved_);
        if (const auto stamp = platform::stampOf(library());
            stamp != stamp_ || saved_ != written_) {
            ASSERT_EQ(PalettePersistence(library()).load().value(), saved_);
            stamp_ = stamp;
            written_ = saved_;
        }
        ASSERT_TRUE(std::regex_match(model_->status(), statuses)) << model_->status();
        ASSERT_EQ(part<platform::RollingText>()->text().toStdString(), source_.hex());
        const auto shown = marks();
        ASSERT_LE(shown.size(), 1U);
        ASSERT_TRUE(shown.empty() || shown.front() == model_->lastCopiedID())
            << shown.front() << " " << model_->lastCopiedID().value_or("none");
        desktop_->pasteboard.contents.clear();
        desktop_->installer.calls.clear();
    }

    /// Pages in use, and open files.
    static std::pair<long, long> resources()
    {
        long all = 0;
        long resident = 0;
        std::ifstream("/proc/self/statm") >> all >> resident;
        return { resident,
            std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}) };
    }

    std::mt19937 random_ { seed };
    RGBAColor source_ = seedColor;
    std::vector<SavedPalette> saved_;
    std::vector<SavedPalette> written_;
    std::optional<platform::FileStamp> stamp_;
};

TEST_F(PanelSoak, HoldsAfterEveryAction)
{
    constexpr long warmUp = 2000;
    constexpr long fewPages = 4096;
    const auto start = std::chrono::steady_clock::now();
    auto before = resources();
    long done = 0;
    for (; (mostActions == 0 || done < mostActions)
         && (mostTime.count() == 0 || std::chrono::steady_clock::now() < start + mostTime);
         ++done) {
        SCOPED_TRACE("action " + std::to_string(done) + " of seed " + std::to_string(seed));
        act();
        settle();
        check();
        if (HasFatalFailure())
            return;
        if (done == warmUp)
            before = resources();
    }
    const auto after = resources();
    std::printf("%ld actions; resident pages %ld to %ld, open files %ld to %ld\n", done,
        before.first, after.first, before.second, after.second);
    EXPECT_LE(after.first, before.first + fewPages);
    EXPECT_EQ(after.second, before.second);
}

} // namespace
} // namespace tintwell

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    if (argc > 1)
        tintwell::mostActions = std::atol(argv[1]);
    if (argc > 2)
        tintwell::mostTime = std::chrono::seconds { std::atol(argv[2]) };
    if (argc > 3)
        tintwell::seed = static_cast<unsigned>(std::atol(argv[3]));
    return RUN_ALL_TESTS();
}
