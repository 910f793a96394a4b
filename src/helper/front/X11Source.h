// The window in front on an X server, as its window manager reports it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <xcb/xcb.h>

#include "events/EventLoop.h"
#include "events/ReturningSocket.h"
#include "helper/front/FrontSource.h"

namespace quorvi::front {

/// Frees memory allocated by xcb.
struct XcbFree {
    void operator()(void* memory) const;
};

/// Listens to _NET_ACTIVE_WINDOW of the root (freedesktop.org, Extended Window Manager Hints). Never waits
/// for the server's answers, because any client may grab the server for as long as it likes.
class X11Source : public FrontSource {
  public:
    /// The display as in $DISPLAY. The loop must outlive the object.
    X11Source(EventLoop& loop, std::string display);
    ~X11Source() override;

    void start() override;
    [[nodiscard]] bool tells() const override { return m_connection != nullptr; }
    [[nodiscard]] std::string_view name() const override { return "X11"; }

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Property = std::unique_ptr<xcb_get_property_reply_t, XcbFree>;
    /// A pending request: its sequence number. Its answer is taken once.
    using Question = std::optional<unsigned>;

    bool connect();
    void lose();
    void serve();
    bool takeEvents();
    void takeEvent(const xcb_generic_event_t& event);
    bool takeAnswers();
    void takeWindow(const Property& answer);
    void takeClassAndPid();

    Question ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    void askForWindow();
    void askAbout(xcb_window_t window);
    /// Whether the answer has arrived; the property is null if the window is gone.
    bool answered(Question& question, Property& property) const;
    /// Listens for the class of a window that has none yet; listens to no other window's properties.
    void waitForClassOf(xcb_window_t window);

    EventLoop& m_loop;
    std::string m_display;
    std::unique_ptr<ReturningSocket> m_return;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_atom_t m_activeWindow = XCB_NONE;
    xcb_atom_t m_windowPid = XCB_NONE;
    xcb_window_t m_window = XCB_NONE; ///< in front
    xcb_window_t m_classless = XCB_NONE;
    Question m_windowQuestion;
    Question m_classQuestion;
    Question m_pidQuestion;
    Property m_class;
    Property m_pid;
};

} // namespace quorvi::front
