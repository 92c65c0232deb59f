#include "TintwellModel.h"

#include "Fakes.h"
#include "FileLock.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>

namespace tintwell {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;
using platform::writeContent;

const auto seed = *RGBAColor::fromHex("#6E56CF");
const auto amber = *RGBAColor::fromHex("#F2C14E");

/// A model on a desktop and a folder of its own, made when it is first asked for.
struct Scene : FakeDesktop {
    platform::TemporaryFolder folder;
    fs::path file = folder / "saved-palettes.json";
    std::unique_ptr<TintwellModel> made;

    TintwellModel& model()
    {
        if (!made)
            made = modelOn(file);
        return *made;
    }

    /// A library of three, newest first: "Three", "Two", "One".
    TintwellModel& modelOfThree()
    {
        std::vector<SavedPalette> library;
        for (const char* name : { "Three", "Two", "One" })
            library.push_back({ platform::Uuid::random(), name, now, amber,
                { { "source", name, seed, std::nullopt } } });
        EXPECT_TRUE(PalettePersistence(file).save(library));
        return model();
    }

    /// Every edit of the library fails before it begins: the lock cannot be made.
    void refuseEdits() const
    {
        fs::remove(file.string() + ".lock");
        fs::create_directory(file.string() + ".lock");
    }

    /// An edit begins, but the new file cannot take the place of the old one.
    void refuseFile() const
    {
        fs::remove(file);
        fs::create_directory(file);
    }
};

Names namesIn(const std::vector<SavedPalette>& library)
{
    Names names;
    for (const auto& palette : library)
        names.push_back(palette.name);
    return names;
}

std::vector<SavedPalette> storedIn(const fs::path& file)
{
    return PalettePersistence(file).load().value();
}

TEST(TintwellModel, ReportsEveryOutcomeInTheStatusLine)
{
    struct Case {
        const char* when;
        std::function<void(Scene&)> act;
        std::string status;
    };
    const std::string noEdit
        = "saved-palettes.json.lock could not be made: a folder is in its place";
    const std::string noFile = "saved-palettes.json could not be written: a folder is in its place";
    const std::vector<Case> cases {
        { "no library at start", [](Scene&) {}, "Click to copy · drag to use" },
        { "a library at start", [](Scene& s) { s.modelOfThree(); }, "Click to copy · drag to use" },
        { "a broken library at start", [](Scene& s) { writeContent(s.file, "[{}]"); },
            "Saved palettes could not be loaded" },
        { "a folder for a library", [](Scene& s) { s.refuseFile(); },
            "Saved palettes could not be loaded" },
        { "a broken library mended",
            [](Scene& s) {
                writeContent(s.file, "[{}]");
                s.model();
                writeContent(s.file, "[]");
                s.model().followLibrary();
            },
            "Click to copy · drag to use" },
        { "sampler opened", [](Scene& s) { s.model().beginSampling(); },
            "Choose any visible color" },
        { "sampler cancelled",
            [](Scene& s) {
                s.model().beginSampling();
                s.sampler->answer({});
            },
            "Sampling cancelled" },
        { "colour sampled",
            [](Scene& s) {
                s.model().beginSampling();
                s.sampler->answer(amber);
            },
            "Sampled Pale Gold · #F2C14E" },
        { "colour copied",
            [](Scene& s) {
                s.model().copy({ "tone.500", "500", { 1, 0, 0, 0.5 }, "Tone 500" });
            },
            "Copied 500 · #FF0000" },
        { "hex text pasted",
            [](Scene& s) {
                s.pasteboard.pasted = { platform::Color { 1, 0, 0, 1 }, " #f2c14e\n" };
                s.model().paste();
            },
            "Pasted Pale Gold · #F2C14E" },
        { "colour pasted",
            [](Scene& s) {
                s.pasteboard.pasted = { platform::Color { 1, 0, 0, 1 }, "a fine red" };
                s.model().paste();
            },
            "Pasted Vivid Coral · #FF0000" },
        { "no colour to paste",
            [](Scene& s) {
                s.pasteboard.pasted = { std::nullopt, "a fine red" };
                s.model().paste();
            },
            "Nothing pasted: the clipboard holds no color such as #6E56CF" },
        { "source copied", [](Scene& s) { s.model().copySource(); }, "Copied Violet · #6E56CF" },
        { "saved and installed", [](Scene& s) { s.model().saveAndInstallCurrent(); },
            "Saved and installed Tintwell.clr" },
        { "saved, not installed",
            [](Scene& s) {
                s.installer.error = "No folder.";
                s.model().saveAndInstallCurrent();
            },
            "Saved, but install failed: No folder." },
        { "saving failed at once",
            [](Scene& s) {
                s.modelOfThree();
                s.refuseEdits();
                s.model().saveAndInstallCurrent();
            },
            "Save failed: " + noEdit },
        { "saving failed late",
            [](Scene& s) {
                s.modelOfThree();
                s.refuseFile();
                s.model().saveAndInstallCurrent();
            },
            "Save failed: " + noFile },
        { "palette used",
            [](Scene& s) {
                s.modelOfThree();
                s.model().use(s.model().savedPalettes()[1]);
            },
            "Loaded Two" },
        { "palette installed",
            [](Scene& s) {
                s.modelOfThree();
                s.model().install(s.model().savedPalettes()[1]);
            },
            "Installed Tintwell.clr" },
        { "palette not installed",
            [](Scene& s) {
                s.installer.error = TintwellError::emptyPalette().description;
                s.modelOfThree();
                s.model().install(s.model().savedPalettes()[1]);
            },
            "Install failed: The palette has no colors to install." },
        { "palette deleted",
            [](Scene& s) {
                s.modelOfThree();
                s.model().deletePalette(s.model().savedPalettes()[1]);
            },
            "Deleted Two" },
        { "a palette that is not there deleted",
            [](Scene& s) {
                s.model().deletePalette({ {}, "Gone", s.now, amber, {} });
            },
            "Deleted Gone" },
        { "nothing to take back", [](Scene& s) { s.model().undo(); }, "Nothing to undo" },
        { "nothing to repeat", [](Scene& s) { s.model().redo(); }, "Nothing to redo" },
        { "source taken back",
            [](Scene& s) {
                s.model().apply(amber);
                s.model().undo();
            },
            "Back to Violet · #6E56CF" },
        { "deletion taken back",
            [](Scene& s) {
                s.modelOfThree();
                s.model().deletePalette(s.model().savedPalettes()[1]);
                s.model().undo();
            },
            "Restored Two" },
        { "deletion not taken back",
            [](Scene& s) {
                s.modelOfThree();
                s.model().deletePalette(s.model().savedPalettes()[1]);
                s.refuseEdits();
                s.model().undo();
            },
            "Restore failed: " + noEdit },
        { "deletion repeated",
            [](Scene& s) {
                s.modelOfThree();
                s.model().deletePalette(s.model().savedPalettes()[1]);
                s.model().undo();
                s.model().redo();
            },
            "Deleted Two" },
        { "deleting failed at once",
            [](Scene& s) {
                s.modelOfThree();
                s.refuseEdits();
                s.model().deletePalette(s.model().savedPalettes()[1]);
            },
            "Delete failed: " + noEdit },
        { "deleting failed late",
            [](Scene& s) {
                s.modelOfThree();
                s.refuseFile();
                s.model().deletePalette(s.model().savedPalettes()[1]);
            },
            "Delete failed: " + noFile },
    };
    for (const auto& [when, act, status] : cases) {
        Scene scene;
        act(scene);
        EXPECT_EQ(scene.model().status(), status) << when;
    }
}

TEST(TintwellModel, StartsInTheStudioWithTheInitialColor)
{
    Scene scene;
    const auto& model = scene.model();
    EXPECT_EQ(model.generated(), PaletteGenerator().generate(seed));
    EXPECT_EQ(model.selectedTab(), WorkspaceTab::studio);
    EXPECT_EQ(model.lastCopiedID(), std::nullopt);
    EXPECT_FALSE(model.isSampling());
    EXPECT_EQ(namesIn(model.savedPalettes()), Names {});
    EXPECT_EQ(scene.folder.names(), Names {});
    Scene full;
    EXPECT_EQ(namesIn(full.modelOfThree().savedPalettes()), (Names { "Three", "Two", "One" }));
}

/// Tells which property each announcement was for, by what differs from then to the next one: a
/// value that is stored before it is announced is not seen to change. A star marks the transaction.
class Recorder {
public:
    explicit Recorder(TintwellModel& model)
        : model_(model)
        , subscription_(model.observe([this] { snapshots_.push_back(look()); }))
    {
    }

    Names takeChanges()
    {
        snapshots_.push_back(look());
        Names changes;
        for (std::size_t i = 0; i + 1 < snapshots_.size(); ++i)
            changes.push_back(difference(snapshots_[i], snapshots_[i + 1]));
        snapshots_.clear();
        return changes;
    }

private:
    struct Snapshot {
        std::map<std::string, std::string> values;
        std::optional<platform::Spring> spring;
    };

    [[nodiscard]] Snapshot look() const
    {
        std::string library;
        for (const auto& palette : model_.savedPalettes())
            library += palette.id.text();
        return { { { "generated", model_.generated().source.hex() }, { "savedPalettes", library },
                     { "selectedTab", std::string(rawValue(model_.selectedTab())) },
                     { "status", model_.status() },
                     { "lastCopiedID", model_.lastCopiedID().value_or("none") },
                     { "isSampling", model_.isSampling() ? "yes" : "no" } },
            platform::currentAnimation() };
    }

    static std::string difference(const Snapshot& before, const Snapshot& after)
    {
        std::string names;
        for (const auto& [name, value] : before.values)
            if (after.values.at(name) != value)
                names += name;
        if (before.spring) {
            EXPECT_EQ(*before.spring, (platform::Spring { 0.32, 0.85, 0 }));
            names += '*';
        }
        return names;
    }

    TintwellModel& model_;
    std::vector<Snapshot> snapshots_;
    platform::Subscription subscription_;
};

TEST(TintwellModel, AnnouncesEveryWriteOnceAndBeforeItIsStored)
{
    Scene scene;
    auto& model = scene.modelOfThree();
    Recorder recorder(model);
    const NamedColor color { "dark.text", "Text", amber, std::nullopt };
    struct Case {
        const char* action;
        std::function<void()> act;
        Names changes;
    };
    const std::vector<Case> cases {
        { "select", [&] { model.setSelectedTab(WorkspaceTab::saved); }, { "selectedTab" } },
        { "select again", [&] { model.setSelectedTab(WorkspaceTab::saved); }, { "" } },
        { "set status", [&] { model.setStatus("Opened"); }, { "status" } },
        { "apply", [&] { model.apply(amber); }, { "generated*", "selectedTab*" } },
        { "copy", [&] { model.copy(color); }, { "lastCopiedID", "status" } },
        { "mark falls due", [&] { scene.scheduler.advance(1s); }, { "lastCopiedID" } },
        { "copy source", [&] { model.copySource(); }, { "lastCopiedID", "status" } },
        { "pick", [&] { model.beginSampling(); }, { "isSampling", "status" } },
        { "pick during a pick", [&] { model.beginSampling(); }, {} },
        { "picked", [&] { scene.sampler->answer(seed); },
            { "isSampling", "generated*", "*", "status" } },
        { "pick again", [&] { model.beginSampling(); }, { "isSampling", "status" } },
        { "cancelled", [&] { scene.sampler->answer({}); }, { "isSampling", "status" } },
        { "use", [&] { model.use(model.savedPalettes()[0]); }, { "generated*", "*", "status" } },
        { "install", [&] { model.install(model.savedPalettes()[0]); }, { "status" } },
        { "save", [&] { model.saveAndInstallCurrent(); }, { "savedPalettes*", "status" } },
        { "delete", [&] { model.deletePalette(model.savedPalettes()[2]); },
            { "savedPalettes*", "status" } },
        { "save after somebody else",
            [&] {
                EXPECT_TRUE(PalettePersistence(scene.file).save({}));
                model.saveAndInstallCurrent();
            },
            { "savedPalettes*", "savedPalettes*", "status" } },
        { "save in vain",
            [&] {
                scene.refuseFile();
                model.saveAndInstallCurrent();
            },
            { "savedPalettes*", "savedPalettes*", "status" } },
        { "delete in vain", [&] { model.deletePalette(model.savedPalettes()[0]); },
            { "savedPalettes*", "savedPalettes*", "status" } },
    };
    for (const auto& [action, act, changes] : cases) {
        act();
        EXPECT_EQ(recorder.takeChanges(), changes) << action;
    }
    EXPECT_EQ(platform::currentAnimation(), std::nullopt);
}

TEST(TintwellModel, CopiesTheColorWithItsAlphaAndItsText)
{
    Scene scene;
    const RGBAColor half { 1, 0, 0, 0.5 };
    scene.model().copy({ "tone.500", "500", half, std::nullopt });
    scene.model().copySource();
    ASSERT_EQ(scene.pasteboard.contents.size(), 2U);
    EXPECT_EQ(scene.pasteboard.contents[0], ColorPasteboard::content(half));
    EXPECT_EQ(scene.pasteboard.contents[1], ColorPasteboard::content(seed));
    EXPECT_EQ(scene.model().lastCopiedID(), "source");
}

TEST(TintwellModel, TheCopyMarkGoesWhenItsOwnColorsTimeIsUp)
{
    // Copies at their moments, then the mark that is expected after each wait.
    struct Step {
        std::chrono::milliseconds wait;
        std::string copy;
        std::string markAfterwards;
    };
    const std::vector<std::pair<const char*, std::vector<Step>>> cases {
        { "one copy", { { 0ms, "a", "a" }, { 949ms, "", "a" }, { 1ms, "", "" } } },
        { "another colour meanwhile",
            { { 0ms, "a", "a" }, { 500ms, "b", "b" }, { 450ms, "", "b" }, { 499ms, "", "b" },
                { 1ms, "", "" } } },
        { "the same colour twice: the first time counts",
            { { 0ms, "a", "a" }, { 500ms, "a", "a" }, { 449ms, "", "a" }, { 1ms, "", "" },
                { 500ms, "", "" } } },
        { "there and back: the first mark's time ends the third copy",
            { { 0ms, "a", "a" }, { 400ms, "b", "b" }, { 400ms, "a", "a" }, { 150ms, "", "" },
                { 400ms, "", "" } } },
        { "after the end", { { 0ms, "a", "a" }, { 950ms, "", "" }, { 0ms, "a", "a" } } },
    };
    for (const auto& [name, steps] : cases) {
        Scene scene;
        for (const auto& [wait, copy, mark] : steps) {
            scene.scheduler.advance(wait);
            if (!copy.empty())
                scene.model().copy({ copy, copy, amber, std::nullopt });
            EXPECT_EQ(scene.model().lastCopiedID().value_or(""), mark) << name;
        }
    }
}

TEST(TintwellModel, OpensOneSamplerAtATime)
{
    Scene scene;
    auto& model = scene.model();
    model.setSelectedTab(WorkspaceTab::themes);
    model.beginSampling();
    model.setStatus("Something else");
    model.beginSampling();
    EXPECT_EQ(scene.sampler->picks.size(), 1U);
    EXPECT_EQ(model.status(), "Something else");
    scene.sampler->answer({});
    EXPECT_EQ(model.generated().source, seed);
    EXPECT_EQ(model.selectedTab(), WorkspaceTab::themes);

    model.beginSampling();
    EXPECT_TRUE(model.isSampling());
    scene.sampler->answer(RGBAColor(0.1, 0.2, 0.3, 0.4));
    EXPECT_FALSE(model.isSampling());
    EXPECT_EQ(model.generated().source, RGBAColor(0.1, 0.2, 0.3, 0.4));
    EXPECT_EQ(model.selectedTab(), WorkspaceTab::studio);
}

TEST(TintwellModel, MayGoWhileSomethingIsPending)
{
    Scene scene;
    scene.model().copySource();
    scene.model().beginSampling();
    scene.made.reset();
    scene.sampler->answer(amber);
    EXPECT_EQ(scene.scheduler.pending(), 1U);
    scene.scheduler.advance(1s);

    // The application's sampler answers a pending pick when it goes, which is with the model.
    struct Endless final : platform::ColorSampler {
        void show(SelectionHandler /*handler*/) override { }
    };
    TintwellModel last(seed, PalettePersistence(scene.file),
        std::make_shared<ColorSamplerService>(
            [] { return std::make_unique<Endless>(); }, scene.scheduler),
        scene.services());
    last.beginSampling();
    EXPECT_TRUE(last.isSampling());
}

TEST(TintwellModel, SavesTheCurrentPaletteInFrontAndInstallsIt)
{
    Scene scene;
    auto& model = scene.modelOfThree();
    model.saveAndInstallCurrent();
    scene.now += 1h;
    model.saveAndInstallCurrent();
    const auto& library = model.savedPalettes();
    EXPECT_EQ(namesIn(library), (Names { "Violet", "Violet", "Three", "Two", "One" }));
    EXPECT_NE(library[0].id, library[1].id);
    EXPECT_EQ(library[0].createdAt, library[1].createdAt + 1h);
    EXPECT_EQ(library[0].source, seed);
    EXPECT_EQ(library[0].colors, model.generated().exportColors());
    EXPECT_EQ(storedIn(scene.file), library);
    EXPECT_EQ(scene.installer.calls,
        std::vector(2, FakeInstaller::Call { "Tintwell", model.generated().exportColors() }));
}

TEST(TintwellModel, AFailureLeavesTheLibraryAsItWas)
{
    for (const auto refuse : { &Scene::refuseEdits, &Scene::refuseFile }) {
        Scene scene;
        auto& model = scene.modelOfThree();
        const auto library = model.savedPalettes();
        (scene.*refuse)();
        model.saveAndInstallCurrent();
        EXPECT_EQ(model.savedPalettes(), library);
        EXPECT_TRUE(scene.installer.calls.empty());
        for (std::size_t i = 0; i < library.size(); ++i) {
            model.deletePalette(model.savedPalettes()[i]);
            EXPECT_EQ(model.savedPalettes(), library);
        }
    }
    Scene scene;
    scene.installer.error = "No folder.";
    scene.model().saveAndInstallCurrent();
    EXPECT_EQ(namesIn(storedIn(scene.file)), Names { "Violet" });
    EXPECT_EQ(namesIn(scene.model().savedPalettes()), Names { "Violet" });
}

TEST(TintwellModel, LeavesALibraryThatItCannotReadAloneUntilASave)
{
    Scene scene;
    writeContent(scene.file, "[{}]");
    scene.model().apply(amber);
    scene.model().followLibrary();
    EXPECT_EQ(platform::contentOf(scene.file), "[{}]");
    EXPECT_EQ(scene.folder.names(), Names { "saved-palettes.json" });
    scene.model().saveAndInstallCurrent();
    EXPECT_EQ(namesIn(storedIn(scene.file)), Names { "Pale Gold" });
    const auto aside = scene.folder / "saved-palettes.json.unreadable-20261122T100000Z";
    EXPECT_EQ(platform::contentOf(aside), "[{}]");
}

TEST(TintwellModel, DoesNotWaitLongForALibraryInUse)
{
    Scene scene;
    auto& model = scene.modelOfThree();
    const auto held = platform::FileLock::acquire(scene.file, 0s);
    const auto start = std::chrono::steady_clock::now();
    model.deletePalette(model.savedPalettes()[0]);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_EQ(model.status(), "Delete failed: saved-palettes.json is in use by another program");
    EXPECT_EQ(model.savedPalettes().size(), 3U);
}

TEST(TintwellModel, TakesItsOwnElementsAsArguments)
{
    Scene scene;
    auto& model = scene.modelOfThree();
    const auto complement = model.generated().harmonySections[0].colors[1];
    model.copy(model.generated().harmonySections[0].colors[1]);
    EXPECT_EQ(model.lastCopiedID(), complement.id);
    model.apply(model.generated().harmonySections[0].colors[1].color);
    EXPECT_EQ(model.generated(), PaletteGenerator().generate(complement.color));
    model.apply(model.generated().source);
    EXPECT_EQ(model.generated().source, complement.color);

    model.install(model.savedPalettes()[2]);
    ASSERT_EQ(scene.installer.calls.size(), 1U);
    EXPECT_EQ(scene.installer.calls[0].colors, model.savedPalettes()[2].colors);
    // Used is the source, not what was saved with it.
    model.use(model.savedPalettes()[2]);
    EXPECT_EQ(model.generated(), PaletteGenerator().generate(amber));

    // Somebody else's change replaces the whole list while its element is the argument.
    ASSERT_TRUE(PalettePersistence(scene.file).save({ model.savedPalettes()[2] }));
    model.deletePalette(model.savedPalettes()[2]);
    EXPECT_EQ(model.status(), "Deleted One");
    EXPECT_EQ(namesIn(model.savedPalettes()), Names {});
}

TEST(TintwellModel, TwoModelsOnOneFileLoseNothing)
{
    Scene scene;
    auto& panel = scene.modelOfThree();
    const auto preview = scene.modelOn(scene.file);
    panel.apply(amber);
    panel.saveAndInstallCurrent();
    preview->saveAndInstallCurrent();
    panel.deletePalette(panel.savedPalettes()[2]);
    EXPECT_EQ(namesIn(panel.savedPalettes()), (Names { "Violet", "Pale Gold", "Three", "One" }));
    preview->deletePalette(preview->savedPalettes()[1]);
    EXPECT_EQ(namesIn(preview->savedPalettes()), (Names { "Violet", "Three", "One" }));
    // What the panel still shows is gone already.
    panel.deletePalette(panel.savedPalettes()[1]);
    EXPECT_EQ(panel.status(), "Deleted Pale Gold");
    EXPECT_EQ(panel.savedPalettes(), preview->savedPalettes());

    // Taking up what others saved outlasts a failure of one's own.
    preview->saveAndInstallCurrent();
    const auto stored = storedIn(scene.file);
    panel.apply(RGBAColor::stored(0, 0, std::numeric_limits<double>::infinity(), 1));
    panel.saveAndInstallCurrent();
    EXPECT_NE(panel.status().find("is not a finite number"), std::string::npos) << panel.status();
    EXPECT_EQ(panel.savedPalettes(), stored);
    EXPECT_EQ(storedIn(scene.file), stored);
}

} // namespace
} // namespace tintwell
