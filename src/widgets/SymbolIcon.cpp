#include "widgets/SymbolIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

// All symbols are drawn in a square of this kSide around its middle.
constexpr qreal kSide = 16.0;
constexpr int kGearTeeth = 8;
constexpr QColor recordColor(0xd0, 0x2f, 0x2f);

QPainterPath addPath() {
    QPainterPath path;
    path.addRect(-5.0, -1.0, 10.0, 2.0);
    path.addRect(-1.0, -5.0, 2.0, 10.0);
    path.setFillRule(Qt::WindingFill);
    return path;
}

QPainterPath removePath() {
    QPainterPath path;
    path.addRect(-5.0, -1.0, 10.0, 2.0);
    return path;
}

QPainterPath gearPath() {
    QPainterPath path;
    path.addEllipse(QPointF(), 4.8, 4.8);
    for (int tooth = 0; tooth < kGearTeeth; ++tooth) {
        QPainterPath box;
        box.addRect(-1.2, -6.6, 2.4, 3.0);
        path = path.united(QTransform().rotate(tooth * 360.0 / kGearTeeth).map(box));
    }
    QPainterPath hole;
    hole.addEllipse(QPointF(), 2.1, 2.1);
    return path.subtracted(hole);
}

QPainterPath recordPath() {
    QPainterPath path;
    path.addEllipse(QPointF(), 5.0, 5.0);
    return path;
}

/// An arrow that turns back.
QPainterPath undoPath() {
    QPainterPath line;
    line.moveTo(-4.0, -2.0);
    line.lineTo(1.5, -2.0);
    line.arcTo(QRectF(-1.75, -2.0, 6.5, 6.5), 90.0, -180.0);
    line.lineTo(-2.0, 4.5);
    QPainterPathStroker pen;
    pen.setWidth(1.7);
    QPainterPath path = pen.createStroke(line);
    QPainterPath head;
    head.moveTo(-6.5, -2.0);
    head.lineTo(-2.2, -5.8);
    head.lineTo(-2.2, 1.8);
    head.closeSubpath();
    return path.united(head);
}

QPainterPath pathOf(Symbol symbol) {
    switch (symbol) {
    case Symbol::Add:
        return addPath();
    case Symbol::Remove:
        return removePath();
    case Symbol::Gear:
        return gearPath();
    case Symbol::Record:
        return recordPath();
    case Symbol::Undo:
        return undoPath();
    case Symbol::Redo:
        return QTransform::fromScale(-1.0, 1.0).map(undoPath());
    }
    return {};
}

class SymbolIconEngine : public QIconEngine {
  public:
    explicit SymbolIconEngine(Symbol symbol) : m_symbol(symbol) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        const qreal scale = qMin(rect.width(), rect.height()) / kSide;
        painter->scale(scale, scale);
        painter->fillPath(pathOf(m_symbol), colorIn(mode));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(m_symbol); }

  private:
    [[nodiscard]] QColor colorIn(QIcon::Mode mode) const {
        const bool disabled = mode == QIcon::Disabled;
        const QPalette palette = QGuiApplication::palette();
        if (m_symbol == Symbol::Record && !disabled)
            return signOnButton(palette, recordColor);
        return palette.color(disabled ? QPalette::Disabled : QPalette::Active, QPalette::ButtonText);
    }

    Symbol m_symbol;
};

} // namespace

QIcon symbolIcon(Symbol symbol) {
    return QIcon(new SymbolIconEngine(symbol));
}

} // namespace quorvi
