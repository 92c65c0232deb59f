// Which kind of tray the desktop has at the moment.
#pragma once

#include "X11Display.h"

#include <QAbstractNativeEventFilter>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>
#include <optional>
#include <string>

namespace platform {

/// Watches the session bus for a tray host and, on X11, the selection that a tray owns there.
///
/// Deliberately without QSystemTrayIcon: its first touch decides for the whole process which kind
/// of tray Qt will ever use.
class TrayWatch : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    enum class Tray {
        /// The bus has not answered yet.
        unknown,
        none,
        /// Over the bus; goes before the other where there are both.
        notifier,
        /// An X11 window that takes icons in.
        embedding
    };

    TrayWatch();
    ~TrayWatch() override;

    [[nodiscard]] Tray tray() const;

Q_SIGNALS:
    void changed();
    /// A watcher has come (or come again) that knows of no item yet.
    void watcherStarted();

private Q_SLOTS:
    void askForHost();
    /// The tray has gone, or the bus itself.
    void loseHost();

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void setNotifierHost(bool there);
    /// Has the X server say when the window of the tray there goes.
    void followEmbeddingTray();
    [[nodiscard]] xcb_window_t embeddingTray() const;

    /// Nothing until the bus has answered.
    std::optional<bool> notifierHost_;
    int question_ = 0;
    std::unique_ptr<QDBusServiceWatcher> service_;
    std::optional<X11Display> display_;
    std::string selection_;
    xcb_atom_t selectionAtom_ = XCB_ATOM_NONE;
    xcb_atom_t managerAtom_ = XCB_ATOM_NONE;
};

} // namespace platform
