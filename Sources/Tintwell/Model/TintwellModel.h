// The application model: the current palette, the library, the workspace, the status line, and
// every user action.
#pragma once

#include "Animation.h"
#include "History.h"
#include "MacColorIntegration.h"
#include "Observers.h"
#include "PaletteGenerator.h"
#include "PalettePersistence.h"
#include "Scheduler.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tintwell {

/// Animates every change of the source colour and of the library.
inline constexpr platform::Spring sourceChangeSpring { .response = 0.32, .dampingFraction = 0.85 };

/// What the model needs of the desktop beside its store and sampler; the referenced objects outlive
/// it.
struct ModelServices {
    platform::Pasteboard& pasteboard;
    ColorListInstalling& installer;
    platform::Scheduler& scheduler;
    std::function<platform::Timestamp()> now;
    std::function<platform::Uuid()> makeUuid;
};

/// One object a panel, main thread only. Every write of an observable property first announces
/// itself to all observers, then stores the value; observers re-read what they need on a later turn
/// of the event loop.
class TintwellModel {
public:
    TintwellModel(const RGBAColor& initial, PalettePersistence persistence,
        std::shared_ptr<ScreenColorSampling> sampler, ModelServices services);
    ~TintwellModel() = default;
    TintwellModel(const TintwellModel&) = delete;
    TintwellModel& operator=(const TintwellModel&) = delete;

    [[nodiscard]] const GeneratedPalette& generated() const { return generated_; }
    [[nodiscard]] const std::vector<SavedPalette>& savedPalettes() const { return savedPalettes_; }
    [[nodiscard]] WorkspaceTab selectedTab() const { return selectedTab_; }
    [[nodiscard]] const std::string& status() const { return status_; }
    /// What the status does not say; often empty.
    [[nodiscard]] const std::string& statusDetail() const { return statusDetail_; }
    /// How many a status it is: the same text may have been set anew.
    [[nodiscard]] std::size_t statusNumber() const { return statusNumber_; }
    [[nodiscard]] const std::optional<std::string>& lastCopiedID() const { return lastCopiedID_; }
    [[nodiscard]] bool isSampling() const { return isSampling_; }

    void setSelectedTab(WorkspaceTab tab);
    void setStatus(std::string status, std::string detail = {});

    [[nodiscard]] platform::Subscription observe(std::function<void()> willChange);

    void apply(const RGBAColor& color);
    void copy(const NamedColor& color);
    /// The colour in the words of `text` instead of its hex text.
    void copy(const NamedColor& color, const std::string& text);
    void copySource();
    /// As what the source is copied.
    [[nodiscard]] NamedColor source() const;
    /// Makes the colour on the pasteboard the source.
    void paste();
    /// Makes a colour that was dragged here the source.
    void drop(const RGBAColor& color);
    /// Makes a colour that was mixed the source.
    void use(const RGBAColor& color);
    /// Starts a pick and returns at once.
    void beginSampling() { sampleFromScreen(); }
    /// Lets the user pick a colour, which then becomes the source; nothing while a pick is running,
    /// of this model or another. Calls `ended`, if there is one, when all that is done.
    void sampleFromScreen(const ScreenColorSampling::Completion& ended = {});
    void saveAndInstallCurrent();
    void use(const SavedPalette& palette);
    void install(const SavedPalette& palette);
    void deletePalette(const SavedPalette& palette);
    /// Takes the last deletion or change of the source back, then the one before it.
    void undo();
    /// Makes what was taken back last happen again.
    void redo();
    /// Takes up what others have made of the library file; for when it may have changed.
    void followLibrary();
    [[nodiscard]] const std::filesystem::path& libraryFile() const { return persistence_.url(); }

private:
    void walk(std::vector<Step>& from, std::vector<Step>& to, const char* direction);
    bool go(const step::Source& step, std::vector<Step>& to);
    bool go(const step::PutBack& step, std::vector<Step>& to);
    bool go(const step::Delete& step, std::vector<Step>& to);
    std::optional<std::vector<RemovedPalette>> remove(
        const platform::Uuid& id, const std::string& name);
    void take(const RGBAColor& color, const std::string& verb);
    void tellCopied(const NamedColor& color, const std::string& text);
    template <typename T, typename Value> void store(T& property, Value&& value);
    platform::Result<void> changeLibrary(PalettePersistence::Change change);

    GeneratedPalette generated_;
    std::vector<SavedPalette> savedPalettes_;
    WorkspaceTab selectedTab_ = WorkspaceTab::studio;
    std::string status_;
    std::string statusDetail_;
    std::size_t statusNumber_ = 0;
    std::optional<std::string> lastCopiedID_;
    bool isSampling_ = false;
    History history_;

    PaletteGenerator generator_;
    PalettePersistence persistence_;
    std::shared_ptr<ScreenColorSampling> sampler_;
    ModelServices services_;
    platform::Observers observers_;
    /// What waits for the desktop holds this weakly and does nothing once the model is gone.
    std::shared_ptr<void> alive_ = std::make_shared<char>();
};

} // namespace tintwell
