// The desktop that the model's tests stand on: everything that time, chance or a user would do is
// moved by hand.
#pragma once

#include "TintwellModel.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tintwell {

/// A clock that stands still until it is advanced.
class ManualScheduler final : public platform::Scheduler {
public:
    void after(std::chrono::milliseconds delay, std::function<void()> task) override
    {
        tasks_.emplace(now_ + delay, std::move(task));
    }

    void advance(std::chrono::milliseconds time)
    {
        const auto end = now_ + time;
        while (!tasks_.empty() && tasks_.begin()->first <= end) {
            const auto next = tasks_.extract(tasks_.begin());
            now_ = next.key();
            next.mapped()();
        }
        now_ = end;
    }

    [[nodiscard]] std::size_t pending() const { return tasks_.size(); }

private:
    std::chrono::milliseconds now_ { 0 };
    std::multimap<std::chrono::milliseconds, std::function<void()>> tasks_;
};

class FakePasteboard final : public platform::Pasteboard {
public:
    void write(const platform::ColorContent& content) override { contents.push_back(content); }

    [[nodiscard]] platform::Result<platform::PastedContent> read() const override { return pasted; }

    std::vector<platform::ColorContent> contents;
    platform::PastedContent pasted;
};

/// Keeps every pick open until it is answered.
class FakeSampler final : public ScreenColorSampling {
public:
    void sample(Completion completion) override { picks.push_back(std::move(completion)); }

    void answer(const std::optional<RGBAColor>& color) { std::exchange(picks, {}).front()(color); }

    std::vector<Completion> picks;
};

/// Writes nothing; answers with a file, or with `error` when there is one.
class FakeInstaller final : public ColorListInstalling {
public:
    struct Call {
        std::string name;
        std::vector<NamedColor> colors;

        bool operator==(const Call&) const = default;
    };

    platform::Result<std::filesystem::path> install(const std::string& name,
        const std::vector<NamedColor>& colors,
        const std::optional<std::filesystem::path>& destination) override
    {
        calls.push_back({ destination ? destination->string() : name, colors });
        if (error)
            return platform::Error { *error };
        return std::filesystem::path("/lists") / (name + ".clr");
    }

    [[nodiscard]] const platform::Publication& publication() const override { return reached; }

    std::vector<Call> calls;
    std::optional<std::string> error;
    platform::Publication reached;
};

/// One desktop, on which any number of models live.
struct FakeDesktop {
    FakePasteboard pasteboard;
    FakeInstaller installer;
    ManualScheduler scheduler;
    std::shared_ptr<FakeSampler> sampler = std::make_shared<FakeSampler>();
    platform::Timestamp now = *platform::parseIso8601("2026-11-22T10:00:00Z");
    std::uint8_t lastId = 0;

    [[nodiscard]] ModelServices services()
    {
        return { pasteboard, installer, scheduler, [this] { return now; },
            [this] { return platform::Uuid { { ++lastId } }; } };
    }

    [[nodiscard]] std::unique_ptr<TintwellModel> modelOn(const std::filesystem::path& library)
    {
        return std::make_unique<TintwellModel>(*RGBAColor::fromHex("#6E56CF"),
            PalettePersistence(library, [this] { return now; }), sampler, services());
    }
};

} // namespace tintwell
