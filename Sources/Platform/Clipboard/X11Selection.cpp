#include "X11Selection.h"

#include "X11Display.h"
#include "XcbReply.h"

#include <array>
#include <chrono>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include <poll.h>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience { 1 };
constexpr std::array textTargets { "UTF8_STRING", "text/plain;charset=utf-8", "text/plain",
    "STRING" };

/// Asks on a connection of its own, whose events nobody else waits for.
class Reader {
public:
    Reader(const char* selection, xcb_window_t parent)
        : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect)
        , end_(Clock::now() + patience)
    {
        if (xcb_connection_has_error(connection_.get()) != 0)
            return;
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
        selection_ = atom(selection);
        property_ = atom("TINTWELL_SELECTION");
        incremental_ = atom("INCR");
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        window_ = xcb_generate_id(connection_.get());
        // Some programs give what is dragged only to a window inside the one that it is dropped on.
        xcb_create_window(connection_.get(), 0, window_, parent != 0 ? parent : screen->root, 0, 0,
            1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    }

    /// After a content that is so long that it comes in pieces, as no colour does.
    [[nodiscard]] bool hasEnded() const { return hasEnded_; }

    /// The beginning of the content in the form `target`; empty when that is refused, nothing when
    /// the time is over.
    std::optional<std::string> read(const char* target)
    {
        xcb_convert_selection(
            connection_.get(), window_, selection_, atom(target), property_, XCB_CURRENT_TIME);
        while (const auto event = nextEvent()) {
            if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
                continue;
            const auto* answer = reinterpret_cast<const xcb_selection_notify_event_t*>(event.get());
            return answer->property == XCB_ATOM_NONE ? std::string() : content();
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] xcb_atom_t atom(const char* name) const
    {
        const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_.get(),
            xcb_intern_atom(
                connection_.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name),
            nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    /// Nothing when the time is over.
    [[nodiscard]] XcbReply<xcb_generic_event_t> nextEvent() const
    {
        using std::chrono::milliseconds;
        xcb_flush(connection_.get());
        XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
        while (!event && xcb_connection_has_error(connection_.get()) == 0) {
            const auto left = std::chrono::duration_cast<milliseconds>(end_ - Clock::now()).count();
            if (left <= 0)
                break;
            pollfd connection { xcb_get_file_descriptor(connection_.get()), POLLIN, 0 };
            poll(&connection, 1, static_cast<int>(left));
            event.reset(xcb_poll_for_event(connection_.get()));
        }
        return event;
    }

    [[nodiscard]] XcbReply<xcb_get_property_reply_t> property(std::size_t mostBytes) const
    {
        const auto words = static_cast<std::uint32_t>(mostBytes / 4);
        return XcbReply<xcb_get_property_reply_t>(xcb_get_property_reply(connection_.get(),
            xcb_get_property(
                connection_.get(), 0, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, 0, words),
            nullptr));
    }

    [[nodiscard]] std::string content()
    {
        const auto reply = property(longestColorText);
        hasEnded_ = reply && reply->type == incremental_;
        if (hasEnded_)
            passOver();
        if (!reply || hasEnded_)
            return {};
        return { static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) };
    }

    /// Some programs serve nobody else before all pieces are taken, so they are, unread.
    void passOver() const
    {
        xcb_delete_property(connection_.get(), window_, property_);
        while (const auto event = nextEvent()) {
            if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
                continue;
            if (reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->state
                != XCB_PROPERTY_NEW_VALUE)
                continue;
            const auto piece = property(0);
            xcb_delete_property(connection_.get(), window_, property_);
            if (!piece || piece->bytes_after == 0)
                break;
        }
        xcb_flush(connection_.get());
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    Clock::time_point end_;
    bool hasEnded_ = false;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    xcb_atom_t property_ = XCB_ATOM_NONE;
    xcb_atom_t incremental_ = XCB_ATOM_NONE;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

} // namespace

std::optional<Result<PastedContent>> readX11Selection(const char* selection, std::uint32_t window)
{
    const auto display = X11Display::current();
    if (!display)
        return std::nullopt;
    if (display->selectionOwner(selection) == XCB_WINDOW_NONE)
        return PastedContent {};
    const Error silent { "the other program does not answer" };
    Reader reader(selection, window);
    const auto color = reader.read("application/x-color");
    if (!color)
        return silent;
    PastedContent content { colorFromChannels(*color), {} };
    for (const auto* target : textTargets) {
        if (reader.hasEnded())
            return Error { "it is too long for a color" };
        if (!content.text.empty())
            break;
        auto text = reader.read(target);
        if (!text)
            return silent;
        content.text = std::move(*text);
    }
    return content;
}

} // namespace platform
