#include "PickCommand.h"

#include "DetachedProcess.h"
#include "SingleInstance.h"
#include "TintwellApp.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <sysexits.h>

namespace tintwell {

namespace {

using platform::ActionResult;

constexpr std::chrono::seconds startTime { 10 };
constexpr unsigned long lookMilliseconds = 5;

bool isRunning()
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(
        QStringLiteral(TINTWELL_APP_ID));
}

/// Starts the process that stays in the tray; true once it can be reached.
bool startResident()
{
    platform::DetachedProcess process("/proc/self/exe", { "tintwell", backgroundSwitch });
    for (const QDeadlineTimer deadline(startTime); !deadline.hasExpired();) {
        if (isRunning())
            return true;
        if (process.hasFailed())
            return false;
        QThread::msleep(lookMilliseconds);
    }
    return false;
}

int fail(const char* sentence)
{
    std::fprintf(stderr, "%s\n", sentence);
    return EX_UNAVAILABLE;
}

int report(const ActionResult& result)
{
    switch (result.kind) {
    case ActionResult::Kind::done:
        std::puts(result.text.c_str());
        return EXIT_SUCCESS;
    case ActionResult::Kind::cancelled:
        return EXIT_FAILURE;
    case ActionResult::Kind::impossible:
        break;
    }
    return fail(result.text.c_str());
}

} // namespace

int runPickCommand()
{
    if (!QDBusConnection::sessionBus().isConnected())
        return fail("Tintwell cannot pick a color from here: there is no session bus.");
    const auto request = platform::ActivationRequest::fromEnvironment(pickAction);
    if (const auto result = platform::SingleInstance::perform(TINTWELL_APP_ID, request))
        return report(*result);
    if (!startResident())
        return fail(needsDesktop);
    if (const auto result = platform::SingleInstance::perform(TINTWELL_APP_ID, request))
        return report(*result);
    return fail("Tintwell has ended before a color was picked.");
}

} // namespace tintwell
