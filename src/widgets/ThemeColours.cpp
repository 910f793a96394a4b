#include "widgets/ThemeColours.h"

#include <QStyleOptionViewItem>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace quorvi {

namespace {

constexpr qreal kHighContrast = 19.0; // black on white has 21, the darkest of the usual light themes 18.3
constexpr qreal kStep = 0.05;         // of a mixture, finer than the eye can distinguish

qreal linear(qreal channel) {
    constexpr qreal knee = 0.04045; // of the sRGB transfer function
    return channel <= knee ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The colour, mixed with the stronger one until its contrast with all grounds suffices.
QColor standingOut(
    const QColor& colour, const QColor& stronger, std::initializer_list<QColor> grounds, qreal wanted) {
    QColor mixture = colour;
    for (qreal share = 0; share < 1; share += kStep) {
        mixture = mixed(share, stronger, colour);
        if (std::ranges::all_of(
                grounds, [&](const QColor& ground) { return contrastOf(mixture, ground) >= wanted; }))
            return mixture;
    }
    return stronger;
}

QPalette::ColorGroup groupOf(const QStyleOptionViewItem& cell) {
    if (!(cell.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return cell.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
}

/// That share of the text colour in the field's.
QColor textOnField(const QPalette& palette, qreal share, qreal wanted) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    return standingOut(mixed(share, text, base), text, {base}, wanted);
}

} // namespace

qreal contrastOf(const QColor& first, const QColor& second) {
    constexpr qreal flare = 0.05; // reflected room light, on any screen
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + flare) / (darker + flare);
}

bool isHighContrast(const QPalette& palette) {
    return contrastOf(palette.color(QPalette::Active, QPalette::WindowText),
               palette.color(QPalette::Active, QPalette::Window)) >= kHighContrast;
}

qreal wantedContrast(const QPalette& palette) {
    if (palette.currentColorGroup() == QPalette::Disabled)
        return 1.0;
    return isHighContrast(palette) ? 7.0 : 3.0;
}

qreal wantedTextContrast(const QPalette& palette) {
    if (palette.currentColorGroup() == QPalette::Disabled)
        return 1.0;
    return isHighContrast(palette) ? 7.0 : 4.5;
}

QColor mixed(qreal share, const QColor& first, const QColor& second) {
    const auto mix = [share](int a, int b) { return int(std::lround(share * a + (1 - share) * b)); };
    return {
        mix(first.red(), second.red()), mix(first.green(), second.green()), mix(first.blue(), second.blue())};
}

QColor lineOn(const QPalette& palette, qreal share, std::initializer_list<QColor> grounds) {
    const QColor text = palette.color(QPalette::WindowText);
    return standingOut(
        mixed(share, text, palette.color(QPalette::Window)), text, grounds, wantedContrast(palette));
}

QColor lineOnWindow(const QPalette& palette, qreal share, const QColor& ground) {
    return lineOn(palette, share, {palette.color(QPalette::Window), ground});
}

QColor lineOnWindow(const QPalette& palette, qreal share) {
    return lineOnWindow(palette, share, palette.color(QPalette::Base));
}

QColor signOnButton(const QPalette& palette, const QColor& colour) {
    return standingOut(colour, palette.color(QPalette::ButtonText), {palette.color(QPalette::Button)},
        wantedContrast(palette));
}

QColor signOnWindow(const QPalette& palette, const QColor& colour) {
    return standingOut(colour, palette.color(QPalette::WindowText), {palette.color(QPalette::Window)},
        wantedContrast(palette));
}

QColor disabledMarkColour(const QPalette& palette) {
    return mixed(0.2, palette.color(QPalette::Text), palette.color(QPalette::Base));
}

QColor outlineColour(const QPalette& palette) {
    return textOnField(palette, 0.35, wantedContrast(palette));
}

QColor mutedTextColour(const QPalette& palette) {
    return textOnField(palette, 0.6, wantedTextContrast(palette));
}

QColor lightLineColour(const QPalette& palette) {
    constexpr qreal share = 0.2;
    return mixed(share, palette.color(QPalette::WindowText), palette.color(QPalette::Window));
}

QColor mutedTextOnWindow(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    if (isHighContrast(palette))
        return text;
    const QColor window = palette.color(QPalette::Window);
    return standingOut(mixed(0.7, text, window), text, {window}, wantedTextContrast(palette));
}

QColor cellTextColour(const QStyleOptionViewItem& cell) {
    const bool selected = cell.state & QStyle::State_Selected;
    return cell.palette.color(groupOf(cell), selected ? QPalette::HighlightedText : QPalette::Text);
}

QColor secondLineColour(const QStyleOptionViewItem& cell) {
    const QPalette::ColorGroup group = groupOf(cell);
    if (group == QPalette::Disabled || (cell.state & QStyle::State_Selected))
        return cellTextColour(cell);
    const QColor text = cell.palette.color(group, QPalette::Text);
    const QColor base = cell.palette.color(group, QPalette::Base);
    return standingOut(mixed(0.6, text, base), text,
        {base, cell.palette.color(group, QPalette::AlternateBase)}, wantedTextContrast(cell.palette));
}

void keepColours(QStyleOptionViewItem& cell) {
    QPalette colours = cell.palette;
    colours.setCurrentColorGroup(QPalette::Active);
    for (const auto role : {QPalette::Text, QPalette::HighlightedText, QPalette::Base})
        cell.palette.setColor(QPalette::Inactive, role, colours.color(role));
    const QColor ground = markGroundColour(colours);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        cell.palette.setColor(group, QPalette::Highlight, ground);
}

QColor markColour(const QPalette& palette) {
    if (palette.currentColorGroup() == QPalette::Disabled)
        return mutedTextColour(palette);
    return standingOut(palette.color(QPalette::Highlight), palette.color(QPalette::Text),
        {palette.color(QPalette::Base), palette.color(QPalette::Window)}, wantedContrast(palette));
}

QColor markOn(const QPalette& palette, std::initializer_list<QColor> grounds) {
    return standingOut(
        markColour(palette), palette.color(QPalette::WindowText), grounds, wantedContrast(palette));
}

QColor tintColour(const QPalette& palette) {
    constexpr qreal most = 0.35;
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const QColor tint = mixed(most, palette.color(QPalette::Highlight), base);
    return standingOut(tint, base, {text}, wantedTextContrast(palette));
}

QColor markGroundColour(const QPalette& palette) {
    const QColor text = palette.color(QPalette::HighlightedText);
    const QColor deepest =
        contrastOf(text, Qt::black) > contrastOf(text, Qt::white) ? QColor(Qt::black) : QColor(Qt::white);
    return standingOut(palette.color(QPalette::Highlight), deepest, {text}, wantedTextContrast(palette));
}

QColor warningGroundColour() {
    return {0xf0, 0xa8, 0x1c};
}

QColor warningTextColour() {
    return Qt::black;
}

} // namespace quorvi
