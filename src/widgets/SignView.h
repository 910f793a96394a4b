// A sign next to a text that says the same.
#pragma once

#include <QWidget>

#include "widgets/SymbolIcon.h"

namespace quorvi {

/// Not a label with a picture, because screen readers would present that as another control, without a name.
class SignView : public QWidget {
    Q_OBJECT
    /// Width and height, in logical pixels.
    Q_PROPERTY(int extent READ extent WRITE setExtent)

  public:
    explicit SignView(QWidget* parent = nullptr);

    [[nodiscard]] int extent() const { return width(); }
    void setExtent(int extent) { setFixedSize(extent, extent); }
    void setSymbol(Symbol symbol);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Symbol m_symbol = Symbol::Information;
};

} // namespace quorvi
