#include <array>
#include <cstdio>
#include <optional>

#include "base/Unicode.h"
#include "model/Keys.h"
#include "model/ProfileMatching.h"
#include "tools/Input.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

/// The application's properties in the order of KyvarMatchProfile's arguments.
constexpr std::array kOptions{"--application", "--identifier", "--signature", "--executable"};

struct MatchRequest {
    std::optional<std::string> path;
    bool automaticOnly = false;
    std::array<std::optional<std::u16string>, kOptions.size()> properties;
    std::string fault;

    [[nodiscard]] const std::u16string* property(std::size_t index) const {
        return properties[index] ? &*properties[index] : nullptr;
    }
};

/// The number of the option in kOptions; its size for any other argument.
std::size_t optionIndex(const std::string& argument) {
    std::size_t index = 0;
    while (index < kOptions.size() && argument != kOptions[index])
        ++index;
    return index;
}

MatchRequest parse(const Arguments& arguments) {
    MatchRequest request;
    for (std::size_t i = 0; i < arguments.size() && request.fault.empty(); ++i) {
        const std::string& argument = arguments[i];
        const std::size_t option = optionIndex(argument);
        if (option < kOptions.size() && i + 1 < arguments.size())
            request.properties[option] = toUtf16(arguments[++i]);
        else if (option < kOptions.size())
            request.fault = argument + " needs a value";
        else if (argument == "--auto")
            request.automaticOnly = true;
        else if (argument.starts_with("--"))
            request.fault = "match has no option " + argument;
        else if (!request.path)
            request.path = argument;
        else
            request.fault = "match takes one settings file";
    }
    if (request.fault.empty() && !request.path)
        request.fault = "match needs a settings file";
    return request;
}

} // namespace

Outcome match(const Arguments& arguments) {
    const MatchRequest request = parse(arguments);
    if (!request.fault.empty())
        return misused(request.fault);
    const auto settings = readSettings(*request.path);
    if (!settings.isGood())
        return refused(settings.fault);
    const int index = KyvarMatchProfile(settings.value.array(keys::profiles), request.automaticOnly,
        request.property(0), request.property(1), request.property(2), request.property(3));
    std::printf("%d\n", index);
    return done();
}

} // namespace quorvi::tools
