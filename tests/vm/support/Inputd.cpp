#include "vm/support/Inputd.h"

namespace quorvi::test {

std::unique_ptr<ChildProcess> startInputd(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"setpriv", "--reuid=quorvi-inputd", "--regid=quorvi-inputd",
        "--groups=input", "--no-new-privs", "--bounding-set=-all", "/quorvi/quorvi-inputd"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return std::make_unique<ChildProcess>(command);
}

std::unique_ptr<ChildProcess> startInputd(const std::string& node, const TestRecord& record) {
    return startInputd({"--device", node, "--record", record.file()});
}

} // namespace quorvi::test
