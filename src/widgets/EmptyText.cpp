#include "widgets/EmptyText.h"

#include <QAbstractItemView>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kEmptyTextMargin = 24;
constexpr int kLeastMargin = 4; // in a list that is too low for the text and the usual one

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
    setMargin(kEmptyTextMargin);
    if (heightForWidth(width()) > height())
        setMargin(kLeastMargin);
    setVisible(!m_list.model() || m_list.model()->rowCount() == 0);
}

// Themes' placeholder colours have too little contrast for a text with instructions.
void EmptyText::takeColour() {
    QPalette colours = m_list.palette();
    colours.setCurrentColorGroup(QPalette::Active);
    QPalette own = palette();
    own.setColor(QPalette::WindowText, mutedTextColour(colours));
    setPalette(own);
}

} // namespace quorvi
