// The fonts that tests with a window know, so that what else is installed changes nothing.
#pragma once

#include <QFont>
#include <QFontInfo>
#include <QtGlobal>

namespace quorvi::test {

/// Has to come before the application. Programs that the test starts know the same fonts.
inline void useFontsOfTheTests() {
    qputenv("FONTCONFIG_FILE", QUORVI_TEST_FONTS);
}

/// What the usual desktops write in: a family, and its size in points as it comes.
struct DesktopFont {
    const char* family;
    double points;
};
inline constexpr DesktopFont desktopFonts[] = {{"DejaVu Sans", 10}, {"Noto Sans", 10}, {"Cantarell", 11}};

/// The font in points; ends the test program when it is not installed.
inline QFont installedFont(const char* family, double points) {
    QFont font(QString::fromLatin1(family));
    font.setPointSizeF(points);
    if (QFontInfo(font).family() != QLatin1String(family))
        qFatal("%s is not installed; scripts/packages.sh names the package", family);
    return font;
}

} // namespace quorvi::test
