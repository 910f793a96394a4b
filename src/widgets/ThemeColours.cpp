#include "widgets/ThemeColours.h"

#include <QStyleOptionViewItem>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace quorvi {

namespace {

constexpr qreal kHighContrast = 19.0; // black on white has 21, the darkest of the usual light themes 18.3
constexpr qreal kStep = 0.05;         // of a mixture, finer than the eye tells apart

qreal linear(qreal channel) {
    constexpr qreal knee = 0.04045; // of the sRGB transfer function
    return channel <= knee ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The colour, or as much of the stronger one as it takes to stand out from all of the grounds.
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

/// The share of the text's colour in the field's.
QColor textOnField(const QPalette& palette, qreal share, qreal wanted) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    return standingOut(mixed(share, text, base), text, {base}, wanted);
}

} // namespace

qreal contrastOf(const QColor& first, const QColor& second) {
    constexpr qreal flare = 0.05; // of the room, on any screen
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

QColor lineOnWindow(const QPalette& palette, qreal share, const QColor& ground) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    return standingOut(mixed(share, text, window), text, {window, ground}, wantedContrast(palette));
}

QColor lineOnWindow(const QPalette& palette, qreal share) {
    return lineOnWindow(palette, share, palette.color(QPalette::Base));
}

QColor signOnButton(const QPalette& palette, const QColor& colour) {
    return standingOut(colour, palette.color(QPalette::ButtonText), {palette.color(QPalette::Button)},
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

QColor cellTextColour(const QStyleOptionViewItem& cell) {
    const bool selected = cell.state & QStyle::State_Selected;
    QPalette::ColorGroup group = QPalette::Disabled;
    if (cell.state & QStyle::State_Enabled)
        group = cell.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
    return cell.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
}

QColor markColour(const QPalette& palette) {
    if (palette.currentColorGroup() == QPalette::Disabled)
        return mutedTextColour(palette);
    return standingOut(palette.color(QPalette::Highlight), palette.color(QPalette::Text),
        {palette.color(QPalette::Base), palette.color(QPalette::Window)}, wantedContrast(palette));
}

QColor markGroundColour(const QPalette& palette) {
    const QColor text = palette.color(QPalette::HighlightedText);
    const QColor deepest =
        contrastOf(text, Qt::black) > contrastOf(text, Qt::white) ? QColor(Qt::black) : QColor(Qt::white);
    return standingOut(palette.color(QPalette::Highlight), deepest, {text}, wantedTextContrast(palette));
}

} // namespace quorvi
