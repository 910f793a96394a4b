#include "widgets/EmptyText.h"

#include <QAbstractItemView>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kEmptyTextMargin = 24;

} // namespace

EmptyText::EmptyText(QAbstractItemView& list) : QLabel(list.viewport()), m_list(list) {
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(kEmptyTextMargin);
    setForegroundRole(QPalette::WindowText);
    takeColour();
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void EmptyText::fit() {
    setGeometry(m_list.viewport()->rect());
    setVisible(!m_list.model() || m_list.model()->rowCount() == 0);
}

// Themes give placeholders too little contrast to be read with ease, and this one says what to do next.
void EmptyText::takeColour() {
    QPalette colours = m_list.palette();
    colours.setCurrentColorGroup(QPalette::Active);
    QPalette own = palette();
    own.setColor(QPalette::WindowText, mutedTextColour(colours));
    setPalette(own);
}

} // namespace quorvi
