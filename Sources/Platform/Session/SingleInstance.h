// One process a user and session: a later start hands its wish to the first and ends.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// What a start asks for: nothing but to come to the front, or one of the application's actions.
struct ActivationRequest {
    /// Empty for a plain activation.
    std::string action;
    /// The right to take the focus, as the desktop gave it to the asking process; may be empty.
    std::string token;

    /// The token is that of this process's own start.
    [[nodiscard]] static ActivationRequest fromEnvironment(std::string action);
};

/// How an action ended.
struct ActionResult {
    enum class Kind { done, cancelled, impossible };

    Kind kind = Kind::done;
    /// What the action gave, or one sentence that says why it is impossible.
    std::string text {};
};

/// Owns the application's name on the session bus and answers "org.freedesktop.Application" there;
/// beside it "<name>.Actions", whose "Perform" answers when the action is over.
class SingleInstance {
public:
    enum class Outcome {
        /// Nobody else runs, or there is no bus on which one could know.
        first,
        /// Another process runs and has taken the request over.
        handedOver,
        /// Another process runs and does not answer.
        unanswered
    };
    using Answer = std::function<void(const ActionResult&)>;
    using Handler = std::function<void(const ActivationRequest&, const Answer&)>;

    /// `applicationID` is a reverse-DNS name. `handler` runs on the main thread for every request
    /// from outside; it may answer later, and once.
    SingleInstance(std::string applicationID, Handler handler);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Becomes the one process, or passes `request` to the one that is. Waits for the other at most
    /// five seconds.
    [[nodiscard]] Outcome claim(const ActivationRequest& request);
    /// Gives the name up: from now on a start is the first.
    void release();

    /// Has the one process do what `request` asks for, and waits until that is over, however long
    /// it takes. Nothing if no process runs, or it has ended meanwhile.
    [[nodiscard]] static std::optional<ActionResult> perform(
        const std::string& applicationID, const ActivationRequest& request);

private:
    class Service;
    class Actions;
    std::string applicationID_;
    Handler handler_;
    std::unique_ptr<Service> service_;
    std::unique_ptr<Actions> actions_;
};

} // namespace platform
