#include "window/RemovalTexts.h"

#include <algorithm>

#include "model/Dependants.h"
#include "model/Keys.h"
#include "window/InputName.h"

namespace quorvi {

namespace {

/// A question must stay readable, and fit a small screen.
constexpr std::size_t kMostLines = 4;

QString nameOfProfile(const plist::Dictionary& tree, std::size_t index) {
    return QString::fromStdU16String(tree.array(keys::profiles).dictionary(index).string(keys::name));
}

QString nameOfInput(const ProfileInput& input, const plist::Dictionary& tree, const PanelText& text) {
    return inputName(input.input, nameOfProfile(tree, input.profile), text);
}

/// A line for each of the inputs, or for the first ones and then the number of others.
template <typename Input, typename LineOf>
QString lines(const std::vector<Input>& inputs, const LineOf& lineOf, const QString& others) {
    const std::size_t count = inputs.size() <= kMostLines ? inputs.size() : kMostLines - 1;
    QStringList lines;
    std::transform(inputs.begin(), inputs.begin() + static_cast<std::ptrdiff_t>(count),
        std::back_inserter(lines), lineOf);
    if (count < inputs.size())
        lines << filledText(others, {QString::number(inputs.size() - count)});
    return lines.join(QLatin1Char('\n'));
}

} // namespace

QString effectOfRemovingMacro(const plist::Dictionary& tree, std::size_t macro, const PanelText& text) {
    const auto line = [&](const ProfileInput& input) {
        return filledText(text("^1 runs it and will do nothing."), {nameOfInput(input, tree, text)});
    };
    return lines(inputsThatRun(tree, macro), line, text("Number of other buttons that run it: ^1"));
}

QString effectOfRemovingProfile(const plist::Dictionary& tree, std::size_t profile, const PanelText& text) {
    const auto line = [&](const RedirectedInput& input) {
        const QString who = nameOfInput(input.from, tree, text);
        const QString now = nameOfProfile(tree, input.now);
        if (!input.then) {
            const QString nothing = text("^1 switches to “^2” and will do nothing.");
            return filledText(nothing, {who, nameFor(nothing, now)});
        }
        const QString other = text("^1 switches to “^2” and will switch to “^3”.");
        return filledText(
            other, {who, nameFor(other, now), nameFor(other, nameOfProfile(tree, *input.then))});
    };
    return lines(inputsRedirectedWithout(tree, profile), line,
        text("Number of other buttons that will do nothing or switch to another profile: ^1"));
}

} // namespace quorvi
