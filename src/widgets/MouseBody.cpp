#include "widgets/MouseBody.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTransform>
#include <QtMath>

#include <array>
#include <cmath>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr QRectF kSpine(88, 0, 44, 215);
constexpr qreal kSpineCorner = 15;
constexpr QRectF kTyre(101.5, 49, 17, 90);
constexpr int kRidges = 9; // on either side of the tyre's middle
constexpr qreal kPen = 1.4;

struct Key {
    QRectF place;
    qreal corner;
};
constexpr std::array kKeys{
    Key{QRectF(96, 148, 28, 24), 8},
    Key{QRectF(96, 182, 28, 24), 8},
    Key{QRectF(14, 124, 22, 46), 9},
    Key{QRectF(14, 176, 22, 46), 9},
};

/// What the parts are painted with; opaque but for shades and shines.
struct Material {
    QColor light, middle, dark, darkest;
    QColor keyTop, keyBottom;
    QColor slotTop, slotBottom;
    QColor tyre, tyreShine;
    QColor edge;
    qreal shine; ///< of white, where an edge catches the light
    qreal shade; ///< of black, where something throws a shadow
};

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

Material materialOf(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    const auto onWindow = [&](qreal share) { return mixed(share, text, window); };
    const QColor edge = mouseEdgeColour(palette);
    if (isDark(palette))
        return {.light = onWindow(0.26),
            .middle = onWindow(0.17),
            .dark = onWindow(0.09),
            .darkest = mixed(0.3, Qt::black, window),
            .keyTop = onWindow(0.29),
            .keyBottom = onWindow(0.14),
            .slotTop = mixed(0.55, Qt::black, window),
            .slotBottom = mixed(0.3, Qt::black, window),
            .tyre = QColor(0x16, 0x18, 0x1a),
            .tyreShine = QColor(0x62, 0x68, 0x6d),
            .edge = edge,
            .shine = 0.16,
            .shade = 0.42};
    return {.light = mixed(0.2, window, Qt::white),
        .middle = onWindow(0.07),
        .dark = onWindow(0.2),
        .darkest = onWindow(0.32),
        .keyTop = mixed(0.5, window, Qt::white),
        .keyBottom = onWindow(0.24),
        .slotTop = onWindow(0.32),
        .slotBottom = onWindow(0.14),
        .tyre = QColor(0x26, 0x29, 0x2c),
        .tyreShine = QColor(0x7c, 0x82, 0x88),
        .edge = edge,
        .shine = 0.75,
        .shade = 0.2};
}

QColor white(qreal alpha) {
    return {255, 255, 255, qRound(255 * alpha)};
}

QColor black(qreal alpha) {
    return {0, 0, 0, qRound(255 * alpha)};
}

QColor clear(QColor colour) {
    colour.setAlpha(0);
    return colour;
}

QPainterPath outline() {
    QPainterPath path(QPointF(110, 14));
    path.cubicTo(165, 14, 196, 46, 198, 110);
    path.cubicTo(200, 160, 190, 180, 196, 230);
    path.cubicTo(198, 290, 160, 318, 110, 318);
    path.cubicTo(60, 318, 22, 290, 24, 230);
    path.cubicTo(30, 180, 20, 160, 22, 110);
    path.cubicTo(24, 46, 55, 14, 110, 14);
    return path;
}

/// Below the two buttons, from the one side to the other.
QPainterPath seams() {
    QPainterPath path(QPointF(22.5, 128));
    path.cubicTo(50, 139, 72, 142, kSpine.left(), 141);
    path.moveTo(197.5, 128);
    path.cubicTo(170, 139, 148, 142, kSpine.right(), 141);
    return path;
}

void fillKey(QPainter& painter, const Key& key, const QBrush& brush, const QColor& edge) {
    painter.setPen(QPen(edge, kPen));
    painter.setBrush(brush);
    painter.drawRoundedRect(key.place, key.corner, key.corner);
}

void drawFlat(QPainter& painter, const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    const QColor edge = mouseEdgeColour(palette);
    const QColor part = mixed(0.14, text, window);
    painter.setPen(QPen(edge, kPen));
    painter.setBrush(mixed(0.06, text, window));
    painter.drawPath(outline());
    painter.setBrush(Qt::NoBrush);
    QPainterPath lines = seams();
    lines.moveTo(110, 14);
    lines.lineTo(110, mouseWheel.top());
    for (const QRectF& stretch : {QRectF(kSpine.left(), 141, 6, 0), QRectF(126, 141, 6, 0)}) {
        lines.moveTo(stretch.topLeft());
        lines.lineTo(stretch.topRight());
    }
    painter.drawPath(lines);
    fillKey(painter, {mouseWheel, mouseWheelCorner}, part, edge);
    for (const Key& key : kKeys)
        fillKey(painter, key, part, edge);
}

/// On the table, softer the further out.
void drawShadow(QPainter& painter, const Material& material) {
    constexpr int steps = 9;
    constexpr QPointF middle(110, 172);
    painter.setPen(Qt::NoPen);
    painter.setBrush(black(material.shade / steps * 1.1));
    const QPainterPath shape = outline();
    for (int step = 0; step < steps; ++step) {
        const qreal out = qreal(step) / (steps - 1);
        QTransform wider;
        wider.translate(middle.x(), middle.y() + 4);
        wider.scale(0.985 + 0.06 * out, 0.995 + 0.025 * out);
        wider.translate(-middle.x(), -middle.y());
        painter.drawPath(wider.map(shape));
    }
}

void fillShell(QPainter& painter, const Material& material, const QPainterPath& shape) {
    QRadialGradient light(QPointF(88, 100), 262, QPointF(76, 74));
    light.setColorAt(0, material.light);
    light.setColorAt(0.42, material.middle);
    light.setColorAt(1, material.dark);
    painter.fillPath(shape, light);
    QLinearGradient sides(22, 0, 198, 0);
    QColor dark = material.darkest;
    dark.setAlpha(215);
    sides.setColorAt(0, dark);
    sides.setColorAt(0.05, QColor(dark.red(), dark.green(), dark.blue(), 110));
    sides.setColorAt(0.16, clear(dark));
    sides.setColorAt(0.8, clear(dark));
    sides.setColorAt(0.93, QColor(dark.red(), dark.green(), dark.blue(), 120));
    sides.setColorAt(1, dark);
    painter.fillPath(shape, sides);
    QLinearGradient back(0, 262, 0, 318);
    back.setColorAt(0, clear(dark));
    back.setColorAt(1, dark);
    painter.fillPath(shape, back);
}

/// The hump under the palm catches the light once more.
void shinePalm(QPainter& painter, const Material& material) {
    painter.save();
    painter.translate(86, 206);
    painter.scale(0.62, 1);
    QRadialGradient palm(QPointF(), 62);
    palm.setColorAt(0, white(material.shine * 0.5));
    palm.setColorAt(1, white(0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palm);
    painter.drawEllipse(QPointF(), 62, 62);
    painter.restore();
}

/// The two buttons lie on the shell: lighter at the front, in the shade of their own edge below.
void drawButtons(QPainter& painter, const Material& material) {
    QPainterPath left(QPointF(0, 0));
    left.lineTo(kSpine.left(), 0);
    left.lineTo(kSpine.left(), 141);
    left.cubicTo(72, 142, 50, 139, 22.5, 128);
    left.lineTo(0, 128);
    left.closeSubpath();
    QPainterPath right(QPointF(220, 0));
    right.lineTo(kSpine.right(), 0);
    right.lineTo(kSpine.right(), 141);
    right.cubicTo(148, 142, 170, 139, 197.5, 128);
    right.lineTo(220, 128);
    right.closeSubpath();
    QLinearGradient front(0, 14, 0, 142);
    front.setColorAt(0, white(material.shine * 0.55));
    front.setColorAt(0.45, white(0));
    front.setColorAt(0.75, black(0));
    front.setColorAt(1, black(material.shade * 0.35));
    painter.fillPath(left, front);
    painter.fillPath(right, front);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(white(material.shine), 1.6));
    painter.drawPath(seams().translated(0, 1.5));
    painter.setPen(QPen(material.edge, kPen));
    painter.drawPath(seams());
}

/// What the wheel and the buttons behind it are set in.
void drawSpine(QPainter& painter, const Material& material) {
    QLinearGradient across(kSpine.left(), 0, kSpine.right(), 0);
    across.setColorAt(0, material.darkest);
    across.setColorAt(0.22, material.dark);
    across.setColorAt(0.75, material.middle);
    across.setColorAt(1, material.dark);
    const QPainterPath strip = roundedPath(kSpine, kSpineCorner);
    painter.setPen(QPen(white(material.shine), 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(strip.translated(0.6, 1.4));
    painter.fillPath(strip, across);
    painter.setPen(QPen(material.edge, 1.1));
    painter.drawPath(strip);
}

/// A narrow light along the upper left edge.
void shineRim(QPainter& painter, const Material& material, const QPainterPath& shape) {
    QLinearGradient along(30, 20, 150, 200);
    along.setColorAt(0, white(material.shine));
    along.setColorAt(0.7, white(0));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QBrush(along), 5.0));
    painter.drawPath(shape);
}

void drawKey(QPainter& painter, const Material& material, const Key& key) {
    painter.fillPath(roundedPath(key.place.translated(0.8, 2.0), key.corner), black(material.shade));
    QLinearGradient down(key.place.topLeft(), key.place.bottomLeft());
    down.setColorAt(0, material.keyTop);
    down.setColorAt(1, material.keyBottom);
    fillKey(painter, key, down, material.edge);
    const QRectF within = key.place.adjusted(1.4, 1.4, -1.4, -1.4);
    QLinearGradient fade(within.topLeft(), within.bottomLeft());
    fade.setColorAt(0, white(material.shine));
    fade.setColorAt(0.5, white(0));
    painter.setPen(QPen(QBrush(fade), 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(within, key.corner - 1.4, key.corner - 1.4);
}

/// Narrower towards both ends, where it turns away.
void drawRidges(QPainter& painter) {
    for (int ridge = -kRidges; ridge <= kRidges; ++ridge) {
        const qreal turned = ridge * M_PI / 2 / (kRidges + 1);
        const qreal y = kTyre.center().y() + kTyre.height() / 2 * std::sin(turned);
        const qreal high = 1.5 * std::cos(turned) + 0.3;
        painter.fillRect(QRectF(kTyre.left() + 1, y, kTyre.width() - 2, high), black(0.55));
        painter.fillRect(QRectF(kTyre.left() + 1, y + high, kTyre.width() - 2, 0.6), white(0.16));
    }
}

void drawWheel(QPainter& painter, const Material& material) {
    QLinearGradient down(mouseWheel.topLeft(), mouseWheel.bottomLeft());
    down.setColorAt(0, material.slotTop);
    down.setColorAt(1, material.slotBottom);
    fillKey(painter, {mouseWheel, mouseWheelCorner}, down, material.edge);
    painter.fillPath(roundedPath(kTyre.adjusted(-1.2, -0.5, 1.2, 2.2), 8), black(material.shade));
    QLinearGradient round(kTyre.topLeft(), kTyre.bottomLeft());
    round.setColorAt(0, material.tyre);
    round.setColorAt(0.42, material.tyreShine);
    round.setColorAt(1, material.tyre);
    const QPainterPath tyre = roundedPath(kTyre, 7);
    painter.fillPath(tyre, round);
    painter.save();
    painter.setClipPath(tyre, Qt::IntersectClip);
    drawRidges(painter);
    QLinearGradient across(kTyre.left(), 0, kTyre.right(), 0);
    across.setColorAt(0, black(0.5));
    across.setColorAt(0.3, black(0));
    across.setColorAt(0.7, black(0));
    across.setColorAt(1, black(0.5));
    painter.fillPath(tyre, across);
    painter.restore();
}

void drawLit(QPainter& painter, const QPalette& palette) {
    const Material material = materialOf(palette);
    const QPainterPath shape = outline();
    drawShadow(painter, material);
    painter.save();
    painter.setClipPath(shape, Qt::IntersectClip);
    fillShell(painter, material, shape);
    shinePalm(painter, material);
    drawButtons(painter, material);
    shineRim(painter, material, shape);
    drawSpine(painter, material);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(material.edge, kPen));
    painter.drawPath(shape);
    drawWheel(painter, material);
    for (const Key& key : kKeys)
        drawKey(painter, material, key);
}

} // namespace

MouseTones mouseTones(const QPalette& palette) {
    if (isHighContrast(palette)) {
        const QColor body = mixed(0.06, palette.color(QPalette::WindowText), palette.color(QPalette::Window));
        return {.lightest = body, .darkest = body};
    }
    const Material material = materialOf(palette);
    if (isDark(palette)) // its lightest place shines a little more
        return {
            .lightest = mixed(material.shine * 0.5, Qt::white, material.light), .darkest = material.darkest};
    return {.lightest = Qt::white, .darkest = material.darkest};
}

QPainterPath roundedPath(const QRectF& place, qreal corner) {
    QPainterPath path;
    path.addRoundedRect(place, corner, corner);
    return path;
}

QColor mouseEdgeColour(const QPalette& palette) {
    return lineOnWindow(
        palette, 0.45, mixed(0.14, palette.color(QPalette::WindowText), palette.color(QPalette::Window)));
}

void drawMouseBody(QPainter& painter, const QPalette& palette) {
    if (isHighContrast(palette))
        drawFlat(painter, palette);
    else
        drawLit(painter, palette);
}

} // namespace quorvi
