#include "applications/OtherApplicationDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "applications/PathName.h"

namespace quorvi {

namespace {

bool isApplicationBundle(const QString& path) {
    return QFileInfo(path).isDir() && path.endsWith(QLatin1String(kApplicationExtension.data()));
}

QList<QUrl> placesOfApplications() {
    QList<QUrl> places{QUrl::fromLocalFile(QDir::homePath())};
    for (const char* folder : {"/opt", "/usr/bin", "/usr/share/applications"})
        if (QFileInfo(QLatin1String(folder)).isDir())
            places.append(QUrl::fromLocalFile(QLatin1String(folder)));
    return places;
}

} // namespace

OtherApplicationDialog::OtherApplicationDialog(QWidget* parent, const PanelText& text)
    : QFileDialog(parent, text("Choose an Application"), QDir::homePath()) {
    setObjectName(QStringLiteral("quorviPanelOtherApplication"));
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setLabelText(QFileDialog::Accept, text("Choose"));
    setSidebarUrls(placesOfApplications());
    connect(this, &QFileDialog::directoryEntered, this, &OtherApplicationDialog::enter);
}

void OtherApplicationDialog::enter(const QString& folder) {
    if (!isApplicationBundle(folder))
        return;
    emit fileSelected(folder);
    done(QDialog::Accepted);
}

void OtherApplicationDialog::accept() {
    const QStringList files = selectedFiles();
    if (files.size() == 1 && isApplicationBundle(files.first()))
        enter(files.first());
    else
        QFileDialog::accept();
}

} // namespace quorvi
