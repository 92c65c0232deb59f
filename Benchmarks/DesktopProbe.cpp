// Measures a program from outside, as the X server sees it.
//
// desktop-probe window PROGRAM…: milliseconds from the start to the mapped and to the painted
// window. desktop-probe tray PROGRAM…: plays the tray; milliseconds from the start to the item,
// then from clicks on the item to the painted panel, the first one and the median of the later
// ones.
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds timeLimit { 20 };
constexpr int clickCount = 9;
/// What is smaller is an icon or a helper window.
constexpr int smallestWindow = 100;
constexpr int iconSide = 22;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "desktop-probe: %s\n", what);
    std::exit(1);
}

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

class Probe {
public:
    Probe()
        : connection_(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(connection_) != 0)
            fail("no display");
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        const std::uint32_t mask
            = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, screen_->root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection_);
    }

    ~Probe()
    {
        if (child_ > 0) {
            kill(child_, SIGTERM);
            waitpid(child_, nullptr, 0);
        }
        xcb_disconnect(connection_);
    }

    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    void start(char** command)
    {
        start_ = Clock::now();
        if (posix_spawnp(&child_, command[0], nullptr, nullptr, command, environ) != 0)
            fail("the program cannot be started");
    }

    void measureWindow()
    {
        const auto window = waitForWindow();
        const double mapped = millisecondsSince(start_);
        waitForPaint(window);
        std::printf("%.2f %.2f\n", mapped, millisecondsSince(start_));
    }

    void measureTray(char** command)
    {
        becomeTray();
        start(command);
        const auto icon = waitForDock();
        const double item = millisecondsSince(start_);
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        double first = 0;
        std::vector<double> later;
        for (int round = 0; round < clickCount; ++round) {
            const auto pressed = Clock::now();
            click(icon);
            const auto panel = waitForWindow();
            waitForPaint(panel);
            const double time = millisecondsSince(pressed);
            if (round == 0)
                first = time;
            else
                later.push_back(time);
            // Two clicks in short order are a double click.
            std::this_thread::sleep_for(std::chrono::milliseconds(600));
            click(icon);
            waitFor(XCB_UNMAP_NOTIFY, [panel](const xcb_generic_event_t* event) {
                return reinterpret_cast<const xcb_unmap_notify_event_t*>(event)->window == panel;
            });
            std::this_thread::sleep_for(std::chrono::milliseconds(600));
        }
        std::sort(later.begin(), later.end());
        std::printf("%.2f %.2f %.2f\n", item, first, later[later.size() / 2]);
    }

private:
    xcb_atom_t atom(std::string_view name) const
    {
        const auto cookie
            = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
        return Reply<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(connection_, cookie, nullptr))
            ->atom;
    }

    /// Returns once an event of `type` fits; others are passed over.
    void waitFor(int type, const std::function<bool(const xcb_generic_event_t*)>& fits) const
    {
        const auto limit = Clock::now() + timeLimit;
        while (Clock::now() < limit) {
            const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
            if (event && (event->response_type & 0x7F) == type && fits(event.get()))
                return;
            if (!event)
                std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        fail("nothing happened in time");
    }

    xcb_window_t waitForWindow() const
    {
        xcb_window_t found = XCB_WINDOW_NONE;
        waitFor(XCB_MAP_NOTIFY, [this, &found](const xcb_generic_event_t* event) {
            found = reinterpret_cast<const xcb_map_notify_event_t*>(event)->window;
            const Reply<xcb_get_geometry_reply_t> size(
                xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, found), nullptr));
            return size && size->width >= smallestWindow && size->height >= smallestWindow;
        });
        return found;
    }

    /// The screen is black before: painted is what mostly is not.
    void waitForPaint(xcb_window_t window) const
    {
        const auto limit = Clock::now() + timeLimit;
        while (Clock::now() < limit) {
            const auto cookie
                = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 50, 90, 1, ~0U);
            const Reply<xcb_get_image_reply_t> image(
                xcb_get_image_reply(connection_, cookie, nullptr));
            if (image && isMostlyPainted(*image))
                return;
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        fail("nothing was painted in time");
    }

    static bool isMostlyPainted(const xcb_get_image_reply_t& image)
    {
        const auto* bytes = xcb_get_image_data(&image);
        const int pixels = xcb_get_image_data_length(&image) / 4;
        int painted = 0;
        for (int index = 0; index < pixels; ++index) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, bytes + 4 * index, sizeof pixel);
            painted += (pixel & 0xFFFFFFU) != 0 ? 1 : 0;
        }
        return painted > pixels / 2;
    }

    void becomeTray()
    {
        tray_ = xcb_generate_id(connection_);
        const std::array<std::uint32_t, 2> values { screen_->white_pixel,
            XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY };
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, tray_, screen_->root, 1200, 0,
            iconSide, iconSide, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual,
            XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
        xcb_map_window(connection_, tray_);
        xcb_set_selection_owner(connection_, tray_, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
        xcb_flush(connection_);
    }

    xcb_window_t waitForDock() const
    {
        xcb_window_t icon = XCB_WINDOW_NONE;
        const auto opcode = atom("_NET_SYSTEM_TRAY_OPCODE");
        waitFor(XCB_CLIENT_MESSAGE, [&icon, opcode](const xcb_generic_event_t* event) {
            const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event);
            icon = message->data.data32[2];
            return message->type == opcode && message->data.data32[1] == 0;
        });
        xcb_reparent_window(connection_, icon, tray_, 0, 0);
        const std::array<std::uint32_t, 2> size { iconSide, iconSide };
        xcb_configure_window(
            connection_, icon, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
        xcb_map_window(connection_, icon);
        xcb_flush(connection_);
        return icon;
    }

    void click(xcb_window_t icon) const
    {
        xcb_button_press_event_t event {};
        event.response_type = XCB_BUTTON_PRESS;
        event.detail = XCB_BUTTON_INDEX_1;
        event.root = screen_->root;
        event.event = icon;
        event.root_x = 1200 + iconSide / 2;
        event.root_y = iconSide / 2;
        event.event_x = iconSide / 2;
        event.event_y = iconSide / 2;
        event.same_screen = 1;
        event.time = static_cast<xcb_timestamp_t>(millisecondsSince({}));
        send(icon, XCB_EVENT_MASK_BUTTON_PRESS, event);
        event.response_type = XCB_BUTTON_RELEASE;
        event.state = XCB_BUTTON_MASK_1;
        send(icon, XCB_EVENT_MASK_BUTTON_RELEASE, event);
        xcb_flush(connection_);
    }

    void send(xcb_window_t icon, std::uint32_t mask, const xcb_button_press_event_t& event) const
    {
        std::array<char, 32> bytes {};
        std::memcpy(bytes.data(), &event, sizeof event);
        xcb_send_event(connection_, 0, icon, mask, bytes.data());
    }

    xcb_connection_t* connection_;
    xcb_screen_t* screen_ = nullptr;
    xcb_window_t tray_ = XCB_WINDOW_NONE;
    pid_t child_ = 0;
    Clock::time_point start_;
};

} // namespace

int main(int argc, char* argv[])
{
    const std::string_view what = argc > 2 ? argv[1] : "";
    Probe probe;
    if (what == "window") {
        probe.start(argv + 2);
        probe.measureWindow();
    } else if (what == "tray") {
        probe.measureTray(argv + 2);
    } else {
        fail("usage: desktop-probe window|tray PROGRAM [ARGUMENT…]");
    }
    return 0;
}
