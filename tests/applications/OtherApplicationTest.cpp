#include <QDialogButtonBox>
#include <QFileDialog>

#include <functional>

#include "applications/ApplicationPanelFixture.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

class OtherApplicationTest : public ApplicationPanelFixture {
    Q_OBJECT

  private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void takesAnyFile() {
        const QString program = write("bin/tool", "x");
        chooseOther([&](QFileDialog* dialog) { typePath(dialog, program); });
        QCOMPARE(m_panel->result(), int(QDialog::Accepted));
        QCOMPARE(m_panel->chosenPath(), program);
    }

    void takesADesktopEntry() {
        const QString entry = write("elsewhere/x.desktop", "[Desktop Entry]\n");
        chooseOther([&](QFileDialog* dialog) { typePath(dialog, entry); });
        QCOMPARE(m_panel->chosenPath(), entry);
    }

    void takesABundleThatIsTyped() {
        const QString bundle = makeBundle();
        chooseOther([&](QFileDialog* dialog) { typePath(dialog, bundle); });
        QCOMPARE(m_panel->chosenPath(), bundle);
    }

    void takesABundleThatIsDoubleClicked() {
        const QString bundle = makeBundle();
        chooseOther([&](QFileDialog* dialog) {
            auto* files = outlet<QAbstractItemView>(dialog, "treeView");
            const QPoint place = files->visualRect(waitForFile(files, "My Editor.app")).center();
            QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(files->viewport(), Qt::LeftButton, {}, place);
        });
        QCOMPARE(m_panel->chosenPath(), bundle);
    }

    void takesABundleThatIsSelectedByKeyboard() {
        const QString bundle = makeBundle();
        chooseOther([&](QFileDialog* dialog) {
            auto* files = outlet<QAbstractItemView>(dialog, "treeView");
            files->setFocus();
            files->setCurrentIndex(waitForFile(files, "My Editor.app"));
            QTest::keyClick(files, Qt::Key_Return);
        });
        QCOMPARE(m_panel->chosenPath(), bundle);
    }

    void takesASelectedBundleByItsButton() {
        const QString bundle = makeBundle();
        chooseOther([&](QFileDialog* dialog) {
            auto* files = outlet<QAbstractItemView>(dialog, "treeView");
            const QPoint place = files->visualRect(waitForFile(files, "My Editor.app")).center();
            QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, place);
            clickButton(outlet<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Open));
        });
        QCOMPARE(m_panel->chosenPath(), bundle);
    }

    void entersAFolderThatIsNoBundle() {
        const QString program = write("folder/tool", "x");
        chooseOther([&](QFileDialog* dialog) {
            typePath(dialog, QFileInfo(program).path());
            QVERIFY(dialog->isVisible());
            QCOMPARE(dialog->directory().absolutePath(), QFileInfo(program).path());
            typePath(dialog, "tool");
        });
        QCOMPARE(m_panel->chosenPath(), program);
    }

    void startsAtHome() {
        chooseOther([&](QFileDialog* dialog) {
            QCOMPARE(dialog->directory().absolutePath(), QString::fromStdString(m_folder->path()));
            dialog->reject();
        });
    }

    void aCancelledOtherLeavesThePanelOpen() {
        chooseOther([](QFileDialog* dialog) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY(!dialog->isVisible());
        });
        QVERIFY(m_panel->isVisible());
        QCOMPARE(m_panel->chosenPath(), QString());
    }

    void aHiddenPanelTakesTheFilePanelAlong() {
        chooseOther([&](QFileDialog* dialog) {
            m_panel->hide();
            QVERIFY(!dialog->isVisible());
        });
        QCOMPARE(m_panel->chosenPath(), QString());
    }

  private:
    QString makeBundle() {
        write("My Editor.app/Contents/Info.plist", "<plist version=\"1.0\"><dict/></plist>");
        return QString::fromStdString(m_folder->path("My Editor.app"));
    }

    /// Opens the file panel and lets the action do something in it.
    void chooseOther(const std::function<void(QFileDialog*)>& action) {
        open();
        clickButton(outlet<QPushButton>(m_panel.get(), "quorviApplicationButtonOther"));
        auto* dialog = outlet<QFileDialog>(m_panel.get(), "quorviPanelOtherApplication");
        waitUntilActive(dialog);
        action(dialog);
    }
    static void typePath(QFileDialog* dialog, const QString& path) {
        auto* name = outlet<QLineEdit>(dialog, "fileNameEdit");
        name->clear();
        QTest::keyClicks(name, path);
        QTest::keyClick(name, Qt::Key_Return);
    }
    /// The file system is read in the background.
    static QModelIndex waitForFile(const QAbstractItemView* files, const QString& name) {
        const auto find = [&] {
            const QModelIndex folder = files->rootIndex();
            return files->model()->match(files->model()->index(0, 0, folder), Qt::DisplayRole, name).value(0);
        };
        if (!QTest::qWaitFor([&] { return find().isValid(); }, kWindowPatienceMs))
            qFatal("no file %s", qPrintable(name));
        return find();
    }
};

QUORVI_SESSION_TEST_MAIN(OtherApplicationTest)
#include "OtherApplicationTest.moc"
