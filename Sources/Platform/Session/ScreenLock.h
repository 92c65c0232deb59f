// Whether the screen is locked.
#pragma once

#include <QObject>

namespace platform {

/// Follows the desktop's screen saver on the session bus. Without one the screen is never locked.
class ScreenLock : public QObject {
    Q_OBJECT
public:
    ScreenLock();

    [[nodiscard]] bool isLocked() const { return isLocked_; }

Q_SIGNALS:
    void unlocked();

private Q_SLOTS:
    void setLocked(bool isLocked);

private:
    bool isLocked_ = false;
};

} // namespace platform
