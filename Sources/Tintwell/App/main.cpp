// Starts the desktop application.
#include "PickCommand.h"
#include "TintwellApp.h"

#include <QApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <sysexits.h>

namespace {

constexpr auto pickSwitch = "--pick";
constexpr auto helpText = R"(Usage: tintwell [--pick | --preview-window]

Tintwell derives a complete colour system from one colour. It waits in the system tray; a second start
shows the panel of the running one.

Options:
  --pick            pick a color from the screen, copy it and print its hex text;
                    exit code 1 when cancelled, 69 when there is no way to pick
  --preview-window  also open the panel's content as an ordinary window
  --background      show no window: for the start at login
  --help            show this text
  --version         show the version

Without a display: tintwell-cli
)";

bool contains(const std::vector<std::string>& arguments, const char* wanted)
{
    return std::find(arguments.begin(), arguments.end(), wanted) != arguments.end();
}

/// In place while the toolkit looks for a display: it explains at length that there is none, and
/// aborts.
void onToolkitMessage(
    QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr, "%s\n", tintwell::needsDesktop);
    std::_Exit(EX_UNAVAILABLE);
}

} // namespace

int main(int argc, char* argv[])
{
    // Before Qt takes out what it knows.
    const std::vector<std::string> arguments(argv, argv + argc);
    if (contains(arguments, "--help")) {
        std::fputs(helpText, stdout);
        return EXIT_SUCCESS;
    }
    if (contains(arguments, "--version")) {
        std::puts("tintwell " TINTWELL_VERSION);
        return EXIT_SUCCESS;
    }
    if (contains(arguments, pickSwitch)) {
        const QCoreApplication core(argc, argv);
        const int code = tintwell::runPickCommand();
        std::fflush(stdout);
        // The toolkit's thread for the bus would go on amid the ruins, and complain.
        std::_Exit(code);
    }
    // A file that may not grow any more is an error of the write, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    // Windows without a frame of the desktop's draw their own. Besides, the toolkit would load
    // OpenGL to see whether it can draw one.
    qputenv("QT_WAYLAND_DISABLE_WINDOWDECORATION", "1");
    auto* const usualHandler = qInstallMessageHandler(onToolkitMessage);
    const QApplication application(argc, argv);
    qInstallMessageHandler(usualHandler);
    QApplication::setApplicationName(QStringLiteral("Tintwell"));
    QApplication::setApplicationVersion(QStringLiteral(TINTWELL_VERSION));
    // Its words are English, so it reads from left to right whatever the toolkit is asked for.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setDesktopFileName(QStringLiteral(TINTWELL_APP_ID));
    return tintwell::TintwellApp(arguments).run();
}
