#include "window/ItemPanel.h"

#include <QLineEdit>

namespace quorvi {

namespace {

bool leadsToFolder(const QString& typed, const QDir& folder) {
    if (typed == QLatin1String(".") || typed == QLatin1String("..") || typed == QLatin1String("~"))
        return true;
    return typed.contains(QLatin1Char('/')) && QFileInfo(folder, typed).isDir();
}

} // namespace

QString withExtension(const QString& path, const QString& extension) {
    const QString end = QLatin1Char('.') + extension;
    return path.endsWith(end, Qt::CaseInsensitive) ? path : path + end;
}

QString fileNameFor(QString name, const QString& extension) {
    for (QChar& character : name) {
        if (character == QLatin1Char('/'))
            character = QLatin1Char('-');
        else if (character == QLatin1Char('"')) // stands around each of several names in a file panel
            character = QLatin1Char('\'');
        else if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return withExtension(name, extension);
}

void ItemPanel::accept() {
    // The desktop's own panel has no such field.
    auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (acceptMode() == AcceptSave && field && !field->text().isEmpty() &&
        !leadsToFolder(field->text(), directory()))
        field->setText(withExtension(field->text(), defaultSuffix()));
    QFileDialog::accept();
}

} // namespace quorvi
