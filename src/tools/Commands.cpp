#include "model/Commands.h"

#include <cstdio>

#include "tools/Verbs.h"

namespace quorvi::tools {

Outcome commands(const Arguments&) {
    for (const Command& command : commandTable())
        std::printf("%d\t%s\t%s\t%s\n", command.code,
            command.inputs == CommandInputs::Buttons ? "buttons" : "buttons and wheel",
            titleOfGroup(command.group), command.title);
    return done();
}

} // namespace quorvi::tools
