#include "layouts/XkbHandles.h"

namespace quorvi {

XkbContext newXkbContext() {
    // The names are complete when a keymap is asked for, and what is wrong with them is not the user's to
    // read.
    XkbContext context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    if (context)
        xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    return context;
}

} // namespace quorvi
