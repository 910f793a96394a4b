#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <filesystem>

#include "applications/ApplicationPanelFixture.h"
#include "platform/ModalSession.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

QStringList rowsOf(const QListView* list) {
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        names.append(list->model()->index(row, 0).data().toString());
    return names;
}

} // namespace

class ApplicationPanelTest : public ApplicationPanelFixture {
    Q_OBJECT

  private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void opensWithAllApplicationsTheSearchAndNoChoice() {
        QLocale::setDefault(QLocale(QLocale::German));
        open();
        QCOMPARE(rowsOf(m_list), QStringList({"Äpfel", "Byte Editor", "calculator", "Terminal", "Zebra"}));
        QCOMPARE(QApplication::focusWidget(), m_search);
        QVERIFY(!m_choose->isEnabled());
        QVERIFY(m_choose->isDefault());
        QTest::keyClick(m_search, Qt::Key_Return);
        QVERIFY(m_panel->isVisible());
        QCOMPARE(m_panel->chosenPath(), QString());
    }

    void sortsAsTheUsersLanguageDoes() {
        QLocale::setDefault(QLocale(QLocale::Swedish));
        open();
        QCOMPARE(rowsOf(m_list), QStringList({"Byte Editor", "calculator", "Terminal", "Zebra", "Äpfel"}));
    }

    void typingFiltersAndReturnChoosesTheBestMatch() {
        open();
        QTest::keyClicks(m_search, "TE");
        QCOMPARE(rowsOf(m_list).size(), 2);
        QVERIFY(rowsOf(m_list).contains("Byte Editor"));
        QCOMPARE(selectedName(), QString("Terminal")); // starts with it
        QVERIFY(m_choose->isEnabled());
        QTest::keyClick(m_search, Qt::Key_Return);
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->result(), int(QDialog::Accepted));
        QCOMPARE(m_panel->chosenPath(), pathOf("Terminal"));
    }

    void aMatchWithinANameIsFoundAsWell() {
        open();
        QTest::keyClicks(m_search, "edit");
        QCOMPARE(rowsOf(m_list), QStringList({"Byte Editor"}));
        QCOMPARE(selectedName(), QString("Byte Editor"));
    }

    void programsAndUntranslatedNamesAreFound() {
        const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
        install("web", "Name=Web Browser\nName[de]=Netz\nExec=/usr/bin/surf-ng %u\n");
        open();
        for (const char* text : {"Netz", "web b", "surf", "  netz "}) {
            m_search->setText(text);
            QCOMPARE(rowsOf(m_list), QStringList({"Netz"}));
        }
    }

    void searchTextIsNoPattern() {
        install("cxx", "Name=C++ (x.y) [1]*\nExec=cxx\n");
        open();
        for (const char* text : {"c++", "(x.", "[1]*"}) {
            m_search->setText(text);
            QCOMPARE(rowsOf(m_list), QStringList({"C++ (x.y) [1]*"}));
        }
        m_search->setText("c.+");
        QCOMPARE(rowsOf(m_list), QStringList());
    }

    void anEmptiedSearchChoosesNothing() {
        open();
        QTest::keyClicks(m_search, "z");
        QCOMPARE(selectedName(), QString("Zebra"));
        QTest::keyClick(m_search, Qt::Key_Backspace);
        QCOMPARE(rowsOf(m_list).size(), 5);
        QCOMPARE(selectedName(), QString());
        QVERIFY(!m_choose->isEnabled());
    }

    void arrowKeysMoveInTheListWhileTheSearchKeepsTheFocus() {
        open();
        const QStringList names = rowsOf(m_list);
        QTest::keyClick(m_search, Qt::Key_Down);
        QTest::keyClick(m_search, Qt::Key_Down);
        QCOMPARE(selectedName(), names.at(1));
        QTest::keyClick(m_search, Qt::Key_Up);
        QCOMPARE(selectedName(), names.at(0));
        QTest::keyClick(m_search, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(selectedName(), names.at(4));
        QTest::keyClick(m_search, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(selectedName(), names.at(0));
        QTest::keyClick(m_search, Qt::Key_PageDown);
        QCOMPARE(selectedName(), names.at(4));
        QTest::keyClick(m_search, Qt::Key_PageUp);
        QCOMPARE(selectedName(), names.at(0));
        QCOMPARE(QApplication::focusWidget(), m_search);
        QTest::keyClick(m_search, Qt::Key_Enter);
        QCOMPARE(m_panel->chosenPath(), pathOf(names.at(0)));
    }

    void endAloneMovesInTheSearchText() {
        open();
        QTest::keyClicks(m_search, "te");
        QTest::keyClick(m_search, Qt::Key_Home);
        QCOMPARE(m_search->cursorPosition(), 0);
        QTest::keyClick(m_search, Qt::Key_End);
        QCOMPARE(m_search->cursorPosition(), 2);
        QCOMPARE(selectedName(), QString("Terminal"));
    }

    void escapeCancels() {
        open();
        QTest::keyClicks(m_search, "zebra");
        QTest::keyClick(m_search, Qt::Key_Escape);
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->result(), int(QDialog::Rejected));
        QCOMPARE(m_panel->chosenPath(), QString());
    }

    void cancelCancels() {
        open();
        QTest::keyClicks(m_search, "zebra");
        clickButton(outlet<QPushButton>(m_panel.get(), "quorviApplicationButtonCancel"));
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->result(), int(QDialog::Rejected));
        QCOMPARE(m_panel->chosenPath(), QString());
    }

    void aClickSelectsAndTheButtonChooses() {
        open();
        clickRow("Zebra");
        QCOMPARE(selectedName(), QString("Zebra"));
        QVERIFY(m_panel->isVisible());
        clickButton(m_choose);
        QCOMPARE(m_panel->result(), int(QDialog::Accepted));
        QCOMPARE(m_panel->chosenPath(), pathOf("Zebra"));
    }

    void aDoubleClickChooses() {
        open();
        const QPoint place = m_list->visualRect(rowNamed("Äpfel")).center();
        QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, place);
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->chosenPath(), pathOf("Äpfel"));
    }

    void returnInTheListChooses() {
        open();
        clickRow("Zebra");
        QCOMPARE(QApplication::focusWidget(), m_list);
        QTest::keyClick(m_list, Qt::Key_Return);
        QCOMPARE(m_panel->chosenPath(), pathOf("Zebra"));
    }

    void aSearchWithoutMatchSaysSo() {
        open();
        QTest::keyClicks(m_search, "xyz");
        const auto* text = outlet<QLabel>(m_panel.get(), "textNoApplication");
        QVERIFY(text->isVisible());
        QVERIFY(!m_list->isVisible());
        QTRY_COMPARE(text->text(), QString("No application matches the search.")); // nor does a game
        QVERIFY(!m_choose->isEnabled());
        QTest::keyClick(m_search, Qt::Key_Down);
        QTest::keyClick(m_search, Qt::Key_Return);
        QVERIFY(m_panel->isVisible());
        m_search->clear();
        QVERIFY(m_list->isVisible());
    }

    void aSystemWithoutApplicationsSaysSo() {
        std::filesystem::remove_all(m_folder->path("system"));
        open();
        const auto* text = outlet<QLabel>(m_panel.get(), "textNoApplication");
        QVERIFY(text->isVisible());
        QTRY_COMPARE(text->text(), QString("No installed applications were found."));
        QVERIFY(outlet<QPushButton>(m_panel.get(), "quorviApplicationButtonOther")->isEnabled());
    }

    void startsAfreshEachTime() {
        open();
        QTest::keyClicks(m_search, "zebra");
        clickRow("Zebra");
        QCOMPARE(QApplication::focusWidget(), m_list);
        QTest::keyClick(m_list, Qt::Key_Return);
        waitUntilActive(m_window.get());
        install("Abacus");
        open();
        QCOMPARE(m_panel->chosenPath(), QString());
        QCOMPARE(m_search->text(), QString());
        QCOMPARE(selectedName(), QString());
        QVERIFY(rowsOf(m_list).contains("Abacus"));
        QCOMPARE(QApplication::focusWidget(), m_search);
    }

    void theListIsReadWhenItIsShownAndNotBefore() {
        QCOMPARE(rowsOf(m_list), QStringList());
        open();
        QCOMPARE(rowsOf(m_list).size(), 5);
    }

    void aModalSessionEndsByTheChoice() {
        ModalSessions sessions;
        whenSheetIsUp(m_window.get(), "quorviPanelApplication", [&](QDialog*) {
            QTest::keyClicks(QApplication::focusWidget(), "zebra");
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        QCOMPARE(sessions.run(m_panel.get()), 1);
        QCOMPARE(m_panel->chosenPath(), pathOf("Zebra"));
        waitUntilActive(m_window.get());
        whenSheetIsUp(m_window.get(), "quorviPanelApplication",
            [&](QDialog*) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
        QCOMPARE(sessions.run(m_panel.get()), 0);
        QCOMPARE(m_panel->chosenPath(), QString());
        QVERIFY(!sessions.isRunning());
    }

    // Qt would give it two thirds of the screen.
    void aModalSessionShowsItsSheetWhole() {
        class High : public QWidget {
          public:
            using QWidget::QWidget;
            QSize sizeHint() const override { return {300, screen()->availableSize().height() * 3 / 4}; }
        };
        QDialog sheet(m_window.get());
        sheet.setObjectName("quorviPanelHigh");
        QVBoxLayout layout(&sheet);
        High content(&sheet);
        layout.addWidget(&content);
        QSize shown;
        whenSheetIsUp(m_window.get(), "quorviPanelHigh", [&](QDialog* up) {
            shown = content.size();
            QTest::keyClick(up, Qt::Key_Escape);
        });
        ModalSessions sessions;
        QCOMPARE(sessions.run(&sheet), 0);
        QCOMPARE(shown, content.sizeHint());
        QVERIFY2(!sheet.testAttribute(Qt::WA_Resized), "it asks anew the next time");
    }

    void tabGoesThroughAllControlsInTheirOrder() {
        open();
        QTest::keyClicks(m_search, "z");
        QStringList order;
        for (int i = 0; i < 6; ++i) {
            order.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order,
            QStringList({"quorviFieldSearch", "quorviListApplications", "quorviApplicationButtonOther",
                "quorviApplicationButtonChoose", "quorviApplicationButtonCancel", "quorviFieldSearch"}));
    }

    void everyControlHasANameForScreenReaders() {
        for (const char* name :
            {"quorviFieldSearch", "quorviListApplications", "quorviApplicationButtonOther",
                "quorviApplicationButtonChoose", "quorviApplicationButtonCancel"}) {
            QVERIFY2(!outlet<QWidget>(m_panel.get(), name)->accessibleName().isEmpty(), name);
            QVERIFY2(!outlet<QWidget>(m_panel.get(), name)->accessibleDescription().isEmpty(), name);
        }
    }
};

QUORVI_SESSION_TEST_MAIN(ApplicationPanelTest)
#include "ApplicationPanelTest.moc"
