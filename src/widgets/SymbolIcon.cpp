#include "widgets/SymbolIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include "widgets/SymbolOutlines.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr QColor recordColor(0xd0, 0x2f, 0x2f);

class SymbolIconEngine : public QIconEngine {
  public:
    explicit SymbolIconEngine(Symbol symbol) : m_symbol(symbol) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        paintSymbol(*painter, m_symbol, rect, colorIn(mode));
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
        if (mode == QIcon::Selected) // in a row of a list
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        if ((m_symbol == Symbol::Record || m_symbol == Symbol::Stop) && !disabled)
            return signOnButton(palette, recordColor);
        return palette.color(disabled ? QPalette::Disabled : QPalette::Active, QPalette::ButtonText);
    }

    Symbol m_symbol;
};

} // namespace

QIcon symbolIcon(Symbol symbol) {
    return QIcon(new SymbolIconEngine(symbol));
}

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& place, const QColor& colour) {
    const SymbolOutline outline = outlineOf(symbol);
    const qreal side = qMin(place.width(), place.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center() - QPointF(side, side) / 2);
    painter.scale(side / kSymbolGrid, side / kSymbolGrid);
    painter.fillPath(outline.areas, colour);
    painter.strokePath(outline.lines, QPen(colour, kSymbolPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

} // namespace quorvi
