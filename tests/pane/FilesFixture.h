// The panel with files to choose, in its real open and save panels.
#pragma once

#include <QFile>
#include <QFileDialog>
#include <QLabel>

#include "pane/ListTools.h"
#include "plist/Writer.h"

namespace quorvi::test {

inline constexpr const char* kProfileGear = "quorviButtonProfileGear";

class FilesFixture : public PaneFixture {
  public:
    explicit FilesFixture(
        int tab, const plist::Dictionary& tree = sampleTree(), const PaneOptions& options = {})
        : PaneFixture(options) {
        openWith(tree);
        selectTab(tab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }

    /// Not selected yet.
    explicit FilesFixture(const PaneOptions& options) : PaneFixture(options) {}

    [[nodiscard]] QString path(const char* name) const { return home.filePath(QLatin1String(name)); }
    QString write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the file cannot be written");
        return file.fileName();
    }
    QString write(const char* name, const plist::Value& value) const {
        return write(name, QByteArray::fromStdString(plist::writeXml(value).value()));
    }

    /// The panel that is open, once it is.
    [[nodiscard]] QFileDialog* filePanel() const {
        QFileDialog* panel = nullptr;
        const auto isOpen = [&] {
            panel = window->findChild<QFileDialog*>();
            return panel && panel->isVisible() && panel->isActiveWindow();
        };
        if (!QTest::qWaitFor(isOpen, kWindowPatienceMs))
            qFatal("no file panel opens");
        return panel;
    }
    [[nodiscard]] bool hasFilePanel() const { return window->findChild<QFileDialog*>() != nullptr; }

    /// Types the path into the open panel and presses Return, as a user can.
    void chooseFile(const QString& file) const {
        QFileDialog* panel = filePanel();
        auto* name = outlet<QLineEdit>(panel, "fileNameEdit");
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, file);
        // The completer's list would take the Return for itself.
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        QTest::keyClick(name, Qt::Key_Return);
        if (!QTest::qWaitFor([&] { return !hasFilePanel(); }, kWindowPatienceMs))
            qFatal("the file panel does not close");
        QCoreApplication::processEvents();
    }
    /// What the window tells at its foot.
    [[nodiscard]] QString told() const {
        const auto* label = window->findChild<QLabel*>(QStringLiteral("textNotice"));
        return label && label->isVisible() ? label->text() : QString();
    }
    void forgetWhatWasTold() const {
        if (!told().isEmpty())
            QTest::mouseClick(
                window->findChild<QAbstractButton*>(QStringLiteral("buttonNotice")), Qt::LeftButton);
    }
    /// Opens the panel that exports the current profile, in the home folder.
    void openExportPanel() const {
        chooseInGearMenu(*this, kProfileGear, 13);
        filePanel()->setDirectory(home.path());
    }
    /// Presses Return in the open panel, without a word.
    void acceptPanel() const {
        QTest::keyClick(outlet<QLineEdit>(filePanel(), "fileNameEdit"), Qt::Key_Return);
        if (!QTest::qWaitFor([&] { return !hasFilePanel(); }, kWindowPatienceMs))
            qFatal("the file panel does not close");
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QStringList exportedFiles() const {
        return QDir(home.path()).entryList({QStringLiteral("*.quorvi*")}, QDir::Files);
    }
    void cancelPanel(const QString& typedBefore = {}) const {
        QFileDialog* panel = filePanel();
        if (!typedBefore.isEmpty())
            outlet<QLineEdit>(panel, "fileNameEdit")->setText(typedBefore);
        panel->setFocus();
        QTest::keyClick(panel, Qt::Key_Escape);
        if (!QTest::qWaitFor([&] { return !hasFilePanel(); }, kWindowPatienceMs))
            qFatal("the file panel does not close");
        QCoreApplication::processEvents();
    }
};

} // namespace quorvi::test
