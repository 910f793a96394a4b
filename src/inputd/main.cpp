#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>

#include "engine/Options.h"
#include "inputd/Foreground.h"
#include "inputd/SystemService.h"

namespace {

constexpr int kWrongUsage = 2;

int usage() {
    std::fputs("usage: quorvi-inputd\n"
               "       quorvi-inputd --device NODE --record FILE [--sensor-dpi N]\n"
               "       quorvi-inputd --version\n",
        stderr);
    return kWrongUsage;
}

bool parseDpi(std::string_view text, std::uint16_t& dpi) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), dpi);
    return error == std::errc() && end == text.data() + text.size() &&
           dpi >= quorvi::engine::lowestSensorDpi && dpi <= quorvi::engine::highestSensorDpi;
}

std::optional<quorvi::inputd::ForegroundRequest> parseForeground(int argc, char** argv) {
    quorvi::inputd::ForegroundRequest request;
    if (argc % 2 == 0)
        return {};
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string_view option = argv[i];
        if (option == "--device")
            request.device = argv[i + 1];
        else if (option == "--record")
            request.record = argv[i + 1];
        else if (option != "--sensor-dpi" || !parseDpi(argv[i + 1], request.sensorDpi))
            return {};
    }
    if (request.device.empty() || request.record.empty())
        return {};
    return request;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 1)
        return quorvi::inputd::runSystemService();
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::puts("quorvi-inputd " QUORVI_VERSION);
        return 0;
    }
    const auto request = parseForeground(argc, argv);
    return request ? quorvi::inputd::runInForeground(*request) : usage();
}
