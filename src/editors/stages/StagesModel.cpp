#include "editors/stages/StagesModel.h"

#include "document/Document.h"
#include "editors/stages/EditedStages.h"
#include "resources/TableTags.h"
#include "window/StageText.h"

namespace quorvi {

StagesModel::StagesModel(const Document& document, const EditedStages& stages, PanelText text)
    : TableModel(stageColumns, std::move(text)), m_document(document), m_stages(stages) {}

int StagesModel::numberOfRows() const {
    return m_document.hasDevice() ? static_cast<int>(m_stages.stages().size()) : 0;
}

QVariant StagesModel::cellValue(int columnIdentifier, int row) const {
    if (columnIdentifier == kStageNumberColumn)
        return QString::number(row + 1);
    return stageText(m_stages.stages().dictionary(static_cast<std::size_t>(row)), panelText());
}

} // namespace quorvi
