#include "model/Commands.h"

#include <cstdio>

#include "tools/Listing.h"

namespace quorvi::tools {

namespace {

void printCommand(const Command& command) {
    std::printf("%d\t%s\t%s\t%s\n", command.code,
        command.inputs == CommandInputs::Buttons ? "buttons" : "buttons and wheel",
        titleOfGroup(command.group), command.title);
}

Json jsonOfCommand(const Command& command) {
    std::vector<Json> inputs{"buttons"};
    if (command.inputs == CommandInputs::ButtonsAndWheel)
        inputs.emplace_back("wheel");
    return Json::object({{"code", command.code}, {"inputs", Json::array(inputs)},
        {"group", titleOfGroup(command.group)}, {"title", command.title}});
}

} // namespace

Outcome commands(const Arguments&, Format format) {
    printList(format, "commands", commandTable(), printCommand, jsonOfCommand);
    return done();
}

} // namespace quorvi::tools
