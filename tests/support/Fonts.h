// The fonts of tests with a window, so that other installed fonts have no effect.
#pragma once

#include <QFont>
#include <QFontInfo>
#include <QtGlobal>

namespace quorvi::test {

/// Call this before creating the application. Programs started by the test use the same fonts.
inline void useFontsOfTheTests() {
    qputenv("FONTCONFIG_FILE", QUORVI_TEST_FONTS);
}

/// The usual desktops' fonts: a family and its default size in points.
struct DesktopFont {
    const char* family;
    double points;
};
inline constexpr DesktopFont desktopFonts[] = {{"DejaVu Sans", 10}, {"Noto Sans", 10}, {"Cantarell", 11}};

/// The font in points; ends the test program if it is not installed.
inline QFont installedFont(const char* family, double points) {
    QFont font(QString::fromLatin1(family));
    font.setPointSizeF(points);
    if (QFontInfo(font).family() != QLatin1String(family))
        qFatal("%s is not installed; scripts/packages.sh names the package", family);
    return font;
}

} // namespace quorvi::test
