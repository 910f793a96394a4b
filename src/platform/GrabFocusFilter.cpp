#include "platform/GrabFocusFilter.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

namespace quorvi {

namespace {

class FilterOfField : public QObject {
  public:
    using QObject::QObject;

  private:
    GrabFocusFilter m_filter{GrabFocusFilter::Hidden::beginnings};
};

} // namespace

GrabFocusFilter::GrabFocusFilter(Hidden hidden) : m_hidden(hidden) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool GrabFocusFilter::nativeEventFilter(const QByteArray& eventType, void* message, Result* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    constexpr int kSentEvent = 0x80;
    const int type = static_cast<const xcb_generic_event_t*>(message)->response_type & ~kSentEvent;
    if (type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT)
        return false;
    // Both events have the same layout.
    const auto mode = static_cast<const xcb_focus_in_event_t*>(message)->mode;
    return mode == XCB_NOTIFY_MODE_GRAB ||
           (mode == XCB_NOTIFY_MODE_UNGRAB && m_hidden == Hidden::beginningsAndEnds);
}

void hideGrabsDuring(QObject& field) {
    new FilterOfField(&field);
}

} // namespace quorvi
