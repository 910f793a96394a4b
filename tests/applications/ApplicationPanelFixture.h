// The application panel in its own window, with five installed applications.
#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QPushButton>
#include <QTest>

#include <memory>

#include "applications/ApplicationPanel.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"
#include "support/WindowTools.h"

namespace quorvi::test {

class ApplicationPanelFixture : public QObject {
  protected:
    void setUp() {
        m_folder = std::make_unique<TemporaryFolder>();
        m_home = std::make_unique<EnvironmentVariable>("HOME", m_folder->path());
        m_dataHome = std::make_unique<EnvironmentVariable>("XDG_DATA_HOME", m_folder->path("home"));
        m_dataFolders = std::make_unique<EnvironmentVariable>("XDG_DATA_DIRS", m_folder->path("system"));
        for (const char* name : {"Terminal", "Byte Editor", "Äpfel", "Zebra", "calculator"})
            install(name);
        m_window = std::make_unique<QWidget>();
        m_window->show();
        waitUntilActive(m_window.get());
        m_panel = std::make_unique<ApplicationPanel>(
            m_window.get(), ApplicationPanel::Surroundings{.home = m_folder->path()});
        m_search = outlet<QLineEdit>(m_panel.get(), "quorviFieldSearch");
        m_list = outlet<QListView>(m_panel.get(), "quorviListApplications");
        m_choose = outlet<QPushButton>(m_panel.get(), "quorviApplicationButtonChoose");
    }

    void tearDown() {
        m_panel.reset();
        m_window.reset();
        m_dataFolders.reset();
        m_dataHome.reset();
        m_home.reset();
        QLocale::setDefault(QLocale::system());
    }

    void install(const QString& name, const QString& keys = {}) {
        const QString own = keys.isEmpty() ? "Name=" + name + "\nExec=x\n" : keys;
        write("system/applications/" + name + ".desktop", "[Desktop Entry]\nType=Application\n" + own);
    }
    QString write(const QString& name, const QString& content) {
        return QString::fromStdString(m_folder->write(name.toStdString(), content.toStdString()));
    }
    [[nodiscard]] QString pathOf(const QString& name) const {
        return QString::fromStdString(
            m_folder->path("system/applications/" + name.toStdString() + ".desktop"));
    }
    void open() {
        m_panel->show();
        waitUntilActive(m_panel.get());
    }
    /// A window counts as active for Qt's own function while one that it belongs to still is.
    static void waitUntilActive(const QWidget* window) {
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeWindow(), window, kWindowPatienceMs);
    }
    [[nodiscard]] QString selectedName() const {
        const auto rows = m_list->selectionModel()->selectedIndexes();
        return rows.isEmpty() ? QString() : rows.first().data().toString();
    }
    [[nodiscard]] QModelIndex rowNamed(const QString& name) const {
        return m_list->model()->match(m_list->model()->index(0, 0), Qt::DisplayRole, name, 1).value(0);
    }
    void clickRow(const QString& name) {
        QTest::mouseClick(
            m_list->viewport(), Qt::LeftButton, {}, m_list->visualRect(rowNamed(name)).center());
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<EnvironmentVariable> m_home;
    std::unique_ptr<EnvironmentVariable> m_dataHome;
    std::unique_ptr<EnvironmentVariable> m_dataFolders;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<ApplicationPanel> m_panel;
    QLineEdit* m_search = nullptr;
    QListView* m_list = nullptr;
    QPushButton* m_choose = nullptr;
};

} // namespace quorvi::test
