// A sign beside a text that says all there is to say.
#pragma once

#include <QWidget>

#include "widgets/SymbolIcon.h"

namespace quorvi {

/// A label with a picture would be one thing more that screen readers come upon, and one without a name.
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
