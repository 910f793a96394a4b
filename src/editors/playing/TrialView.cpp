#include "editors/playing/TrialView.h"

#include <QStyle>

#include <utility>

#include "widgets/Announcement.h"
#include "widgets/ElidedLabel.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ToggleButton.h"
#include "widgets/TrialField.h"

namespace quorvi {

TrialView::TrialView(const Views& views, PanelText text)
    : m_views(views), m_text(std::move(text)), m_playTitle(views.button->text()),
      m_stopTitle(views.button->property("alternateTitle").toString()) {}

void TrialView::setPossible(bool possible) {
    m_views.button->setEnabled(possible);
}

void TrialView::showRunning(bool runs) {
    m_views.button->setText(runs ? m_stopTitle : m_playTitle);
    m_views.button->setAccessibleName(m_views.button->text());
    m_views.button->setIcon(symbolIcon(runs ? Symbol::Stop : Symbol::Play));
    m_views.button->setChecked(runs);
}

void TrialView::showKeys(const QString& keys) {
    m_views.keys->setText(keys);
    m_views.keys->setToolTip(keys);
}

void TrialView::announceEnd(const QString& typed) {
    if (!typed.isEmpty())
        announce(*m_views.field, filledText(m_text("Typed: ^1"), {typed}));
}

bool TrialView::mayMove() const {
    return m_views.field->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_views.field) >
           0;
}

} // namespace quorvi
