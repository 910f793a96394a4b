#include "layouts/XkbHandles.h"

namespace quorvi {

XkbContext newXkbContext() {
    // Names are complete when a keymap is requested, and errors in them are not meant for the user.
    XkbContext context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    if (context)
        xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    return context;
}

} // namespace quorvi
