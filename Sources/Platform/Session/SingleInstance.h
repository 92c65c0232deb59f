// One process a user and session: a later start hands its wish to the first and ends.
#pragma once

#include <functional>
#include <memory>
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

    bool operator==(const ActivationRequest&) const = default;
};

/// Owns the application's name on the session bus and answers "org.freedesktop.Application" there.
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
    using Handler = std::function<void(const ActivationRequest&)>;

    /// `applicationID` is a reverse-DNS name. `handler` runs on the main thread for every request
    /// of a later start.
    SingleInstance(std::string applicationID, Handler handler);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Becomes the one process, or passes `request` to the one that is. Waits for the other at most
    /// five seconds.
    [[nodiscard]] Outcome claim(const ActivationRequest& request);

private:
    class Service;
    std::string applicationID_;
    std::unique_ptr<Service> service_;
};

} // namespace platform
