#include "window/Occupation.h"

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QDialog>
#include <QMenu>

#include <algorithm>
#include <utility>

#include "widgets/KyvarQuorviTableView.h"
#include "window/Sheets.h"

namespace quorvi {

Occupation::Occupation(
    std::vector<const KyvarQuorviTableView*> tables, const Sheets& sheets, std::function<bool()> isRecording)
    : m_tables(std::move(tables)), m_sheets(sheets), m_isRecording(std::move(isRecording)) {}

bool Occupation::isUnderWay() const {
    const auto edited = [](const KyvarQuorviTableView* table) { return table->isEditing(); };
    return m_isRecording() || m_sheets.isRunning() || QApplication::activeModalWidget() ||
           QApplication::activePopupWidget() || std::any_of(m_tables.begin(), m_tables.end(), edited);
}

void Occupation::awaitEnd() {
    m_awaiting = std::make_unique<QObject>();
    // Queued twice, here and at the receiver, so that the choice or input is processed first. The signals
    // themselves are not queued, because Qt 5 cannot queue their arguments.
    const auto later = [this] {
        QMetaObject::invokeMethod(
            m_awaiting.get(), [this] { emit ended(); }, Qt::QueuedConnection);
    };
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        connect(menu, &QMenu::aboutToHide, m_awaiting.get(), later);
    if (const auto* panel = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        connect(panel, &QDialog::finished, m_awaiting.get(), later);
    connect(&m_sheets, &Sheets::ended, m_awaiting.get(), later);
    for (const KyvarQuorviTableView* table : m_tables)
        connect(table->itemDelegate(), &QAbstractItemDelegate::closeEditor, m_awaiting.get(), later);
}

} // namespace quorvi
