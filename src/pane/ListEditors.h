// The editors of the lists of profiles, macros and steps, and of their files: what they are given of each
// other and of the panel.
#pragma once

#include "editors/files/ImportExport.h"

namespace quorvi {

struct ListEditors {
    ListEditors(const EditorContext& context, ImportExport::Surroundings surroundings)
        : files(context, std::move(surroundings)) {}

    ImportExport files;
};

} // namespace quorvi
