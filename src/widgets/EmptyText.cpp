#include "widgets/EmptyText.h"

#include <QAbstractItemView>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kEmptyTextMargin = 24;
constexpr int kLeastMargin = 4; // at the sides, in a list that is too low for the text and the usual one

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
    // In the middle of the list, not of what its numbers and the header leave.
    const QWidget& viewport = *m_list.viewport();
    const int before = viewport.x();
    const int after = m_list.width() - before - viewport.width();
    const QRect room = viewport.rect();
    setGeometry(
        before > after ? room.adjusted(0, 0, after - before, 0) : room.adjusted(after - before, 0, 0, 0));
    setMargin(kEmptyTextMargin);
    setContentsMargins(0, 0, 0, 0);
    if (heightForWidth(width()) > height()) {
        // Lines in the middle need no margin above and below them.
        setMargin(0);
        setContentsMargins(kLeastMargin, 0, kLeastMargin, 0);
    }
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
